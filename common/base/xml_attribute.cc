#include "common/base/xml_attribute.h"

#include <cstring>
#include <limits>
#include <string>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/utf8.h"
#include "common/base/util.h"
#include "common/base/xml_read.h"

enum class z_xml_presence { optional, required };
enum class z_xml_emptiness { allowed, refused };

static const xmlAttr *find_attribute(const xmlNode *node, const char *name)
{
    const xmlAttr *attribute = node->type == XML_ELEMENT_NODE ? node->properties : nullptr;
    while (attribute != nullptr && strcmp(z_xml_to_utf8(attribute->name), name) != 0)
        attribute = attribute->next;
    return attribute;
}

// The value, borrowed. Success with null is an absent optional attribute.
static bool borrow_value(const char *&utf8, std::string &storage, const xmlNode *node, const char *name,
                         z_xml_presence presence, z_xml_emptiness emptiness)
{
    utf8 = nullptr;
    const xmlAttr *attribute = find_attribute(node, name);
    if (attribute == nullptr) {
        if (presence == z_xml_presence::required)
            z_error_set_utf8_printf("Missing XML attribute: %s", name);
        return presence == z_xml_presence::optional;
    }
    utf8 = z_xml_borrow_text(attribute->children, storage);
    if (utf8 == nullptr) {
        z_error_set("Error when reading XML attribute.");
        return false;
    }
    if (utf8[0] == '\0' && emptiness == z_xml_emptiness::refused) {
        z_error_set_utf8_printf("Empty XML attribute: %s", name);
        return false;
    }
    return true;
}

// The getters of each kind. All of them leave `result` alone when an optional attribute is absent.

static bool get_utf8(z_utf8_ptr &result, const xmlNode *node, const char *name, z_xml_presence presence,
                     z_xml_emptiness emptiness)
{
    std::string storage;
    const char *utf8;
    const bool success = borrow_value(utf8, storage, node, name, presence, emptiness);
    result.reset(success ? g_strdup(utf8) : nullptr);
    return success;
}

static bool get_latin1(z_latin1_ptr &result, z_latin1_ptr (*convert)(const char *), const xmlNode *node,
                       const char *name, z_xml_presence presence, z_xml_emptiness emptiness)
{
    result.reset();
    std::string storage;
    const char *utf8;
    if (!borrow_value(utf8, storage, node, name, presence, emptiness))
        return false;
    if (utf8 == nullptr)
        return true;
    result = convert(utf8);
    if (result == nullptr)
        z_error_append("Invalid XML attribute content.");
    return result != nullptr;
}

static z_latin1_ptr convert_to_ascii(const char *utf8)
{
    return z_latin1_ptr(g_strdup(z_ascii_assert_in_utf8(utf8)));
}

static bool get_boolean(bool &result, const xmlNode *node, const char *name, z_xml_presence presence)
{
    std::string storage;
    const char *utf8;
    if (!borrow_value(utf8, storage, node, name, presence, z_xml_emptiness::refused))
        return false;
    if (utf8 == nullptr)
        return true;
    const bool is_true = strcmp(utf8, "true") == 0;
    if (!is_true && strcmp(utf8, "false") != 0) {
        z_error_set_utf8_printf("Invalid boolean value in XML attribute: %s", name);
        return false;
    }
    result = is_true;
    return true;
}

static bool get_int(int &result, const xmlNode *node, const char *name, int minimum, int maximum,
                    z_xml_presence presence)
{
    std::string storage;
    const char *utf8;
    if (!borrow_value(utf8, storage, node, name, presence, z_xml_emptiness::refused))
        return false;
    if (utf8 == nullptr)
        return true;
    const bool is_valid = z_util_parse_int_in_range(&result, utf8, minimum, maximum);
    if (!is_valid)
        z_error_append_utf8_printf("Invalid integer value in XML attribute: %s", name);
    return is_valid;
}

static bool get_double(double &result, const xmlNode *node, const char *name, double minimum, double maximum,
                       z_xml_presence presence)
{
    std::string storage;
    const char *utf8;
    if (!borrow_value(utf8, storage, node, name, presence, z_xml_emptiness::refused))
        return false;
    if (utf8 == nullptr)
        return true;
    const bool is_valid = z_util_parse_double_in_range(&result, utf8, minimum, maximum);
    if (!is_valid)
        z_error_append_utf8_printf("Invalid floating point number in XML attribute: %s", name);
    return is_valid;
}

bool z_xml_node_has_attribute(const xmlNode *node, const char *name)
{
    return find_attribute(node, name) != nullptr;
}

bool z_xml_get_attribute_value_as_utf8(z_utf8_ptr &value, const xmlNode *node, const char *name)
{
    return get_utf8(value, node, name, z_xml_presence::optional, z_xml_emptiness::allowed);
}

bool z_xml_get_attribute_value_as_ascii(z_latin1_ptr &value, const xmlNode *node, const char *name)
{
    return get_latin1(value, convert_to_ascii, node, name, z_xml_presence::optional,
                      z_xml_emptiness::allowed);
}

bool z_xml_get_attribute_value_as_latin1(z_latin1_ptr &value, const xmlNode *node, const char *name)
{
    return get_latin1(value, z_convert_utf8_to_latin1, node, name, z_xml_presence::optional,
                      z_xml_emptiness::allowed);
}

bool z_xml_get_nonempty_attribute_value_as_utf8(z_utf8_ptr &value, const xmlNode *node, const char *name)
{
    return get_utf8(value, node, name, z_xml_presence::optional, z_xml_emptiness::refused);
}

bool z_xml_get_attribute_value_as_boolean_with_fallback(bool &value, const xmlNode *node, const char *name,
                                                        bool fallback)
{
    value = fallback;
    return get_boolean(value, node, name, z_xml_presence::optional);
}

bool z_xml_get_attribute_value_as_int_in_range_with_fallback(int &value, const xmlNode *node,
                                                             const char *name, int minimum, int maximum,
                                                             int fallback)
{
    value = fallback;
    return get_int(value, node, name, minimum, maximum, z_xml_presence::optional);
}

bool z_xml_get_attribute_value_as_double_in_range_with_fallback(double &value, const xmlNode *node,
                                                                const char *name, double minimum,
                                                                double maximum, double fallback)
{
    value = fallback;
    return get_double(value, node, name, minimum, maximum, z_xml_presence::optional);
}

z_utf8_ptr z_xml_get_required_attribute_value_as_utf8(const xmlNode *node, const char *name)
{
    z_utf8_ptr value;
    get_utf8(value, node, name, z_xml_presence::required, z_xml_emptiness::allowed);
    return value;
}

z_latin1_ptr z_xml_get_required_attribute_value_as_ascii(const xmlNode *node, const char *name)
{
    z_latin1_ptr value;
    get_latin1(value, convert_to_ascii, node, name, z_xml_presence::required, z_xml_emptiness::allowed);
    return value;
}

z_latin1_ptr z_xml_get_required_attribute_value_as_latin1(const xmlNode *node, const char *name)
{
    z_latin1_ptr value;
    get_latin1(value, z_convert_utf8_to_latin1, node, name, z_xml_presence::required,
               z_xml_emptiness::allowed);
    return value;
}

z_utf8_ptr z_xml_get_nonempty_required_attribute_value_as_utf8(const xmlNode *node, const char *name)
{
    z_utf8_ptr value;
    get_utf8(value, node, name, z_xml_presence::required, z_xml_emptiness::refused);
    return value;
}

z_latin1_ptr z_xml_get_nonempty_required_attribute_value_as_latin1(const xmlNode *node, const char *name)
{
    z_latin1_ptr value;
    get_latin1(value, z_convert_utf8_to_latin1, node, name, z_xml_presence::required,
               z_xml_emptiness::refused);
    return value;
}

bool z_xml_get_required_attribute_value_as_boolean(bool &value, const xmlNode *node, const char *name)
{
    return get_boolean(value, node, name, z_xml_presence::required);
}

bool z_xml_get_required_attribute_value_as_int(int &value, const xmlNode *node, const char *name)
{
    return get_int(value, node, name, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
                   z_xml_presence::required);
}

bool z_xml_get_required_attribute_value_as_int_in_range(int &value, const xmlNode *node, const char *name,
                                                        int minimum, int maximum)
{
    return get_int(value, node, name, minimum, maximum, z_xml_presence::required);
}

bool z_xml_get_required_attribute_value_as_double_in_range(double &value, const xmlNode *node,
                                                           const char *name, double minimum, double maximum)
{
    return get_double(value, node, name, minimum, maximum, z_xml_presence::required);
}

const char *z_xml_borrow_required_attribute_value(const xmlNode *node, const char *name, std::string &storage)
{
    const char *utf8;
    return borrow_value(utf8, storage, node, name, z_xml_presence::required, z_xml_emptiness::allowed)
               ? utf8
               : nullptr;
}
