#pragma once

// Reading the attributes of an XML element, each in the encoding or as the number that the model wants,
// checked.
//
// A failure leaves its reason in z_error, and null in results and out-arguments; a number or boolean is then
// the fallback, or what it was.

#include <string>

#include "common/base/xml_handles.h"

[[nodiscard]] bool z_xml_node_has_attribute(const xmlNode *node, const char *name);

// An absent attribute is success with null. An empty one gives the empty text, except where the name says
// nonempty.
[[nodiscard]] bool z_xml_get_attribute_value_as_utf8(z_utf8_ptr &value, const xmlNode *node,
                                                     const char *name);
[[nodiscard]] bool z_xml_get_attribute_value_as_ascii(z_latin1_ptr &value, const xmlNode *node,
                                                      const char *name);
[[nodiscard]] bool z_xml_get_attribute_value_as_latin1(z_latin1_ptr &value, const xmlNode *node,
                                                       const char *name);
[[nodiscard]] bool z_xml_get_nonempty_attribute_value_as_utf8(z_utf8_ptr &value, const xmlNode *node,
                                                              const char *name);

// The fallback stands for an absent attribute only; an empty one is a failure. Booleans are exactly "true"
// and "false".
[[nodiscard]] bool z_xml_get_attribute_value_as_boolean_with_fallback(bool &value, const xmlNode *node,
                                                                      const char *name, bool fallback);
[[nodiscard]] bool z_xml_get_attribute_value_as_int_in_range_with_fallback(int &value, const xmlNode *node,
                                                                           const char *name, int minimum,
                                                                           int maximum, int fallback);
[[nodiscard]] bool z_xml_get_attribute_value_as_double_in_range_with_fallback(
    double &value, const xmlNode *node, const char *name, double minimum, double maximum, double fallback);

// An absent attribute is a failure.
[[nodiscard]] z_utf8_ptr z_xml_get_required_attribute_value_as_utf8(const xmlNode *node, const char *name);
[[nodiscard]] z_latin1_ptr z_xml_get_required_attribute_value_as_ascii(const xmlNode *node, const char *name);
[[nodiscard]] z_latin1_ptr z_xml_get_required_attribute_value_as_latin1(const xmlNode *node,
                                                                        const char *name);
[[nodiscard]] z_utf8_ptr z_xml_get_nonempty_required_attribute_value_as_utf8(const xmlNode *node,
                                                                             const char *name);
[[nodiscard]] z_latin1_ptr z_xml_get_nonempty_required_attribute_value_as_latin1(const xmlNode *node,
                                                                                 const char *name);
[[nodiscard]] bool z_xml_get_required_attribute_value_as_boolean(bool &value, const xmlNode *node,
                                                                 const char *name);
[[nodiscard]] bool z_xml_get_required_attribute_value_as_int(int &value, const xmlNode *node,
                                                             const char *name);
[[nodiscard]] bool z_xml_get_required_attribute_value_as_int_in_range(int &value, const xmlNode *node,
                                                                      const char *name, int minimum,
                                                                      int maximum);
[[nodiscard]] bool z_xml_get_required_attribute_value_as_double_in_range(double &value, const xmlNode *node,
                                                                         const char *name, double minimum,
                                                                         double maximum);

// The value without a copy; `storage` is as for z_xml_borrow_text. An absent attribute is a failure.
[[nodiscard]] const char *z_xml_borrow_required_attribute_value(const xmlNode *node, const char *name,
                                                                std::string &storage);
