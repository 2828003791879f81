#pragma once

// Multilingual strings and remarks in XML.
//
// A langstr is a run of sibling elements of one name, one per translation; the empty tag marks a text whose
// language is not known:
//
//     <name lang="en-uk">Door</name>
//     <name lang="sv">D&#xF6;rr</name>
//
// A remark has one code and a description, which is a langstr:
//
//     <remark>
//         <code>A1</code>
//         <description lang="en-uk">Crack</description>
//     </remark>
//
// A failure leaves its reason in z_error and no partial result.

#include <string_view>

#include "common/base/xml_handles.h"
#include "common/model/langstr.h"
#include "common/model/remark.h"

class z_langstr_builder;
struct z_output_stream;

// White space is dropped at the ends of a text; inside, every run becomes one space, or every character but
// the line feed becomes one space.
enum class z_xml_white_space { compact, keep_lines };
enum class z_xml_empty_tag { allowed, refused };

// Sets the translation that one element holds. A tag or text that is there already counts as when it is set.
[[nodiscard]] bool z_xml_parse_langstr_translation(z_langstr_builder &langstr, const xmlNode *node,
                                                   z_xml_empty_tag empty_tag, z_xml_white_space white_space);
// All child elements of that name. None is success with the empty langstr.
[[nodiscard]] bool z_xml_parse_langstr(z_langstr_ptr &langstr, const xmlNode *parent, const char *name,
                                       z_xml_white_space white_space);
// None is a failure.
[[nodiscard]] z_langstr_ptr z_xml_parse_required_langstr(const xmlNode *parent, const char *name,
                                                         z_xml_white_space white_space);

[[nodiscard]] z_remark_ptr z_xml_parse_remark(const xmlNode *node);

// Adds a child element per translation. The empty langstr adds nothing and succeeds.
[[nodiscard]] bool z_xml_add_langstr(xmlNode *parent, const char *name, const z_langstr *langstr);

// Prints a line per translation, `indent` tabs deep, see xml_write.h.
[[nodiscard]] bool z_xml_write_langstr(z_output_stream *stream, const z_langstr *langstr,
                                       std::string_view name, int indent);
