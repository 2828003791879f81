#pragma once

// What a document may have the parser open beside itself: an external DTD, and nothing else.
//
// Whoever wrote the document names the file. So it must be a local, regular "*.dtd" file: nothing on a
// network, no other local file whose contents could end up in a document, nothing that a read would wait for.

#include <cstddef>

#include <libxml/parser.h>

// The DTDs of one document together.
inline constexpr size_t z_xml_max_dtd_size = 1024 * 1024;

enum class z_xml_dtd_result { opened, missing, refused };

// Gives `input` to `parser`, which owns it from then on, and takes its size off `bytes_left`. Otherwise
// `input` is null. z_error may be changed in every case.
[[nodiscard]] z_xml_dtd_result z_xml_dtd_open(xmlParserInput *&input, const char *url, xmlParserCtxt *parser,
                                              size_t &bytes_left);
