#pragma once

// Reading an XML tree: finding nodes, and their texts in the encoding that the model wants. Attributes have a
// header of their own.
//
// Documents hold UTF-8, the model Latin-1; names are ASCII. A failure leaves its reason in z_error, and null
// in results and out-arguments. Compact means without white space at the ends and with one space for every
// run of it inside.

#include <string>

#include "common/base/xml_handles.h"

// Null, with a reason, for a document without any element.
[[nodiscard]] xmlNode *z_xml_get_root_element(const xmlDoc *doc);

[[nodiscard]] const char *z_xml_get_node_name(const xmlNode *node);
[[nodiscard]] bool z_xml_node_has_name(const xmlNode *node, const char *name);
[[nodiscard]] bool z_xml_node_has_child_node_with_name(const xmlNode *node, const char *name);

// The one child of that name, of whatever node kind; null if there is none, a failure if there are several.
[[nodiscard]] bool z_xml_get_distinct_child_node(xmlNode *&child, const xmlNode *parent, const char *name);
// Null, with a reason, also if there is none.
[[nodiscard]] xmlNode *z_xml_get_required_distinct_child_node(const xmlNode *parent, const char *name);

// What a node holds as text directly, not below its child elements. An element without children has the empty
// text; one that holds something, but no text, fails.
[[nodiscard]] z_utf8_ptr z_xml_get_text_content_as_utf8(const xmlNode *node);
[[nodiscard]] z_latin1_ptr z_xml_get_text_content_as_latin1(const xmlNode *node);
[[nodiscard]] z_latin1_ptr z_xml_get_text_content_as_compact_latin1(const xmlNode *node);
[[nodiscard]] z_latin1_ptr z_xml_get_nonempty_text_content_as_compact_latin1(const xmlNode *node);

// The same without a copy: the tree's own text where it is in one piece, else put together in `storage`.
[[nodiscard]] const char *z_xml_borrow_text_content(const xmlNode *node, std::string &storage);
// The same for the child nodes of whatever holds text, an attribute for instance. Sets no message.
[[nodiscard]] const char *z_xml_borrow_text(const xmlNode *children, std::string &storage);

// The text of the one child of that name. No such child is success with null.
[[nodiscard]] bool z_xml_get_text_content_from_distinct_child_node_as_latin1(z_latin1_ptr &text,
                                                                             const xmlNode *parent,
                                                                             const char *name);
[[nodiscard]] bool z_xml_get_text_content_from_distinct_child_node_as_compact_latin1(z_latin1_ptr &text,
                                                                                     const xmlNode *parent,
                                                                                     const char *name);
[[nodiscard]] bool z_xml_get_text_content_from_distinct_child_node_as_utf8(z_utf8_ptr &text,
                                                                           const xmlNode *parent,
                                                                           const char *name);
[[nodiscard]] bool z_xml_get_text_content_from_distinct_child_node_as_compact_utf8(z_utf8_ptr &text,
                                                                                   const xmlNode *parent,
                                                                                   const char *name);
[[nodiscard]] bool z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_latin1(
    z_latin1_ptr &text, const xmlNode *parent, const char *name);
[[nodiscard]] bool z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_utf8(
    z_utf8_ptr &text, const xmlNode *parent, const char *name);
// No such child is a failure as well.
[[nodiscard]] z_utf8_ptr
z_xml_get_nonempty_text_content_from_required_distinct_child_node_as_compact_utf8(const xmlNode *parent,
                                                                                  const char *name);
