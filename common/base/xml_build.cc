#include "common/base/xml_build.h"

#include <libxml/xmlsave.h>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/output_stream.h"
#include "common/base/util.h"

static bool is_xml_character(gunichar c)
{
    return c >= 0x20 ? c != 0xFFFE && c != 0xFFFF : c == '\t' || c == '\n' || c == '\r';
}

static bool can_be_saved(const char *utf8)
{
    if (!g_utf8_validate(utf8, -1, nullptr))
        return false;
    while (*utf8 != '\0' && is_xml_character(g_utf8_get_char(utf8)))
        utf8 = g_utf8_next_char(utf8);
    return *utf8 == '\0';
}

xmlNode *z_xml_add_root_element(xmlDoc *doc, const char *name)
{
    xmlNode *root = xmlNewDocNode(doc, nullptr, z_xml_from_utf8(name), nullptr);
    if (root == nullptr) {
        z_error_set("Error when creating an XML element.");
        return nullptr;
    }
    const z_xml_node_ptr replaced(xmlDocSetRootElement(doc, root));
    return root;
}

xmlNode *z_xml_add_child_element(xmlNode *parent, const char *name)
{
    xmlNode *child = xmlNewChild(parent, nullptr, z_xml_from_utf8(name), nullptr);
    if (child == nullptr)
        z_error_set("Error when creating an XML child element.");
    return child;
}

xmlNode *z_xml_add_child_element_with_utf8_text_content(xmlNode *parent, const char *name,
                                                        const char *text_utf8)
{
    xmlNode *child = nullptr;
    if (can_be_saved(text_utf8))
        child = xmlNewTextChild(parent, nullptr, z_xml_from_utf8(name), z_xml_from_utf8(text_utf8));
    if (child == nullptr)
        z_error_set("Error when creating an XML text child element.");
    return child;
}

xmlNode *z_xml_add_child_element_with_ascii_text_content(xmlNode *parent, const char *name,
                                                         const char *text_ascii)
{
    return z_xml_add_child_element_with_utf8_text_content(parent, name, text_ascii);
}

xmlNode *z_xml_add_child_element_with_latin1_text_content(xmlNode *parent, const char *name,
                                                          const char *text_latin1)
{
    const z_utf8_ptr utf8 = z_convert_latin1_to_utf8(text_latin1);
    return z_xml_add_child_element_with_utf8_text_content(parent, name, utf8.get());
}

bool z_xml_set_attribute(xmlNode *node, const char *name, const char *value_utf8)
{
    if (value_utf8 == nullptr) {
        z_error_set("Missing value for XML attribute.");
        return false;
    }
    if (!can_be_saved(value_utf8) ||
        xmlSetProp(node, z_xml_from_utf8(name), z_xml_from_utf8(value_utf8)) == nullptr) {
        z_error_set("Error when setting an XML attribute.");
        return false;
    }
    return true;
}

bool z_xml_set_attribute_with_ascii_content(xmlNode *node, const char *name, const char *value_ascii)
{
    return z_xml_set_attribute(node, name, value_ascii);
}

bool z_xml_set_attribute_with_latin1_content(xmlNode *node, const char *name, const char *value_latin1)
{
    const z_utf8_ptr utf8 = value_latin1 != nullptr ? z_convert_latin1_to_utf8(value_latin1) : nullptr;
    return z_xml_set_attribute(node, name, utf8.get());
}

bool z_xml_set_attribute_to_boolean(xmlNode *node, const char *name, bool value)
{
    return z_xml_set_attribute(node, name, value ? "true" : "false");
}

bool z_xml_set_attribute_to_int(xmlNode *node, const char *name, int value)
{
    const z_utf8_ptr text(g_strdup_printf("%d", value));
    return z_xml_set_attribute(node, name, text.get());
}

bool z_xml_set_attribute_to_double(xmlNode *node, const char *name, double value)
{
    const z_utf8_ptr text = z_util_format_double(value);
    return z_xml_set_attribute(node, name, text.get());
}

struct z_xml_save_target {
    z_output_stream *stream;
    bool has_failed = false;
};

static int write_callback(void *data, const char *bytes, int size)
{
    auto *target = static_cast<z_xml_save_target *>(data);
    // libxml2 goes on writing; only the first failure's reason is of use.
    if (target->has_failed || !z_output_stream_write(target->stream, bytes, static_cast<size_t>(size))) {
        target->has_failed = true;
        return -1;
    }
    return size;
}

static void ignore_message(void *, const char *, ...) {}

bool z_xml_write_to_stream(xmlDoc *doc, z_output_stream *stream, const char *encoding)
{
    z_xml_save_target target{stream};
    xmlSetGenericErrorFunc(nullptr, ignore_message); // The texts below say what libxml2 would print.
    xmlSaveCtxt *save = xmlSaveToIO(write_callback, nullptr, &target, encoding, XML_SAVE_FORMAT);
    bool success = false;
    if (save != nullptr) {
        success = xmlSaveDoc(save, doc) >= 0;
        success = xmlSaveClose(save) >= 0 && success;
    }
    xmlSetGenericErrorFunc(nullptr, nullptr);

    if (save == nullptr)
        z_error_set("Could not create XML saving context for file.");
    else if (target.has_failed)
        z_error_append("Could not write XML data.");
    else if (!success)
        z_error_set("Could not write XML data.");
    return success && !target.has_failed;
}

bool z_xml_write_to_file(xmlDoc *doc, const char *path, const char *encoding)
{
    const z_output_stream_ptr stream = z_output_stream_new_for_memory();
    if (!z_xml_write_to_stream(doc, stream.get(), encoding))
        return false;
    size_t size;
    const z_bytes_ptr data = z_output_stream_get_memory_data(stream.get(), size);
    if (z_fs_utils_put_file(path, data.get(), size, z_fs_existing::replace))
        return true;
    z_error_append("Could not write XML data.");
    return false;
}

z_bytes_ptr z_xml_write_to_string(xmlDoc *doc, size_t &length)
{
    z_xml_string_ptr text;
    int size = 0;
    xmlDocDumpFormatMemory(doc, z_out(text), &size, 1);
    length = size > 0 ? static_cast<size_t>(size) : 0;
    if (text == nullptr || length == 0) {
        z_error_set("Could not write XML data to memory buffer.");
        return nullptr;
    }
    return z_bytes_ptr(static_cast<guint8 *>(g_memdup2(text.get(), length + 1)));
}
