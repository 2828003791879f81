#pragma once

// Building XML trees, and saving them.
//
// What is put into a tree is checked for being valid UTF-8 of characters that XML can hold: libxml2 would
// save anything else without a word, as a file that nobody can read. Everything that fails leaves its reason
// in z_error.

#include <cstddef>

#include "common/base/xml_handles.h"

struct z_output_stream;

// The element, borrowed from the tree; null on failure. Texts are escaped when they are saved.
[[nodiscard]] xmlNode *z_xml_add_root_element(xmlDoc *doc, const char *name);
[[nodiscard]] xmlNode *z_xml_add_child_element(xmlNode *parent, const char *name);
[[nodiscard]] xmlNode *z_xml_add_child_element_with_utf8_text_content(xmlNode *parent, const char *name,
                                                                      const char *text_utf8);
[[nodiscard]] xmlNode *z_xml_add_child_element_with_ascii_text_content(xmlNode *parent, const char *name,
                                                                       const char *text_ascii);
[[nodiscard]] xmlNode *z_xml_add_child_element_with_latin1_text_content(xmlNode *parent, const char *name,
                                                                        const char *text_latin1);

// Adds the attribute or replaces its value. A null value fails.
[[nodiscard]] bool z_xml_set_attribute(xmlNode *node, const char *name, const char *value_utf8);
[[nodiscard]] bool z_xml_set_attribute_with_ascii_content(xmlNode *node, const char *name,
                                                          const char *value_ascii);
[[nodiscard]] bool z_xml_set_attribute_with_latin1_content(xmlNode *node, const char *name,
                                                           const char *value_latin1);
[[nodiscard]] bool z_xml_set_attribute_to_boolean(xmlNode *node, const char *name, bool value);
[[nodiscard]] bool z_xml_set_attribute_to_int(xmlNode *node, const char *name, int value);
// Whatever the locale, with a full stop, and so that the same value is read back.
[[nodiscard]] bool z_xml_set_attribute_to_double(xmlNode *node, const char *name, double value);

// Saving is indented. Null stands for the document's own encoding; without any, other characters than ASCII
// are written as references.
[[nodiscard]] bool z_xml_write_to_stream(xmlDoc *doc, z_output_stream *stream, const char *encoding);
// Puts the finished file in the old one's place: on failure the old file stands as it was.
[[nodiscard]] bool z_xml_write_to_file(xmlDoc *doc, const char *path, const char *encoding);
// In the document's own encoding. A NUL follows, which is not counted. Null on failure.
[[nodiscard]] z_bytes_ptr z_xml_write_to_string(xmlDoc *doc, size_t &length);
