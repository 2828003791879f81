#pragma once

// Printing XML by hand, without a tree: what the writers of templates and codesets are made of. The files are
// declared as ISO 8859-1, so texts go out as they are but for the characters below. Tabs and line breaks of a
// text are written as references, so that the layout of the file cannot change them.
//
//     tab &#x9;   line feed &#xA;   carriage return &#xD;   " &quot;   & &amp;   ' &apos;   < &lt;   > &gt;

#include <cstddef>
#include <string_view>

#include "common/base/handles.h"

struct z_output_stream;

// As it is.
[[nodiscard]] bool z_xml_write_markup(z_output_stream *stream, std::string_view markup);
// Nothing for a count below 1.
[[nodiscard]] bool z_xml_write_tabs(z_output_stream *stream, int count);
[[nodiscard]] bool z_xml_write_string(z_output_stream *stream, const char *latin1);

// The escaped text. Null gives null.
[[nodiscard]] z_latin1_ptr z_xml_latin1_to_xml(const char *latin1);

// The greatest number of bytes that one byte becomes.
inline constexpr size_t z_xml_max_escape_size = 6;
// Escapes into a buffer of that many bytes for each of the text, and returns the end. Writes no NUL.
[[nodiscard]] char *z_xml_escape_latin1(char *buffer, const char *latin1);
