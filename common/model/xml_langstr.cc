#include "common/model/xml_langstr.h"

#include <array>
#include <cstring>
#include <string>
#include <string_view>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/output_stream.h"
#include "common/base/strip.h"
#include "common/base/utf8.h"
#include "common/base/xml_attribute.h"
#include "common/base/xml_build.h"
#include "common/base/xml_read.h"
#include "common/base/xml_write.h"
#include "common/model/langstr_builder.h"

// Room for a text of the model on its way there. Few are long.
class z_text_buffer {
public:
    char *get(size_t size)
    {
        if (size <= small.size())
            return small.data();
        large.reset(static_cast<char *>(g_malloc(size)));
        return large.get();
    }

private:
    std::array<char, 1024> small;
    z_latin1_ptr large;
};

// Null, with the reason, if the tag is not ASCII, or not there.
static const char *get_tag(const xmlNode *node, z_text_buffer &buffer)
{
    std::string storage;
    const char *value = z_xml_borrow_required_attribute_value(node, "lang", storage);
    if (value == nullptr)
        return nullptr;
    if (z_ascii_assert_in_utf8(value) == nullptr) {
        z_error_append("Invalid XML attribute content.");
        return nullptr;
    }
    char *tag = strcpy(buffer.get(strlen(value) + 1), value);
    return z_strip_surrounding_and_spacify_compactly_within_original_for_ascii(tag);
}

static const char *get_text(const xmlNode *node, z_xml_white_space white_space, z_text_buffer &buffer)
{
    std::string storage;
    const char *utf8 = z_xml_borrow_text_content(node, storage);
    if (utf8 == nullptr)
        return nullptr;
    char *latin1 = buffer.get(strlen(utf8) + 1);
    if (!z_convert_utf8_to_latin1_buf(utf8, latin1)) {
        z_error_append("Invalid XML node content.");
        return nullptr;
    }
    return white_space == z_xml_white_space::compact
               ? z_strip_surrounding_and_spacify_compactly_within_original_for_latin1(latin1)
               : z_strip_surrounding_and_detabify_within_original_for_latin1(latin1);
}

bool z_xml_parse_langstr_translation(z_langstr_builder &langstr, const xmlNode *node,
                                     z_xml_empty_tag empty_tag, z_xml_white_space white_space)
{
    z_text_buffer tag_buffer;
    const char *tag = get_tag(node, tag_buffer);
    if (tag == nullptr)
        return false;
    if (tag[0] == '\0' && empty_tag == z_xml_empty_tag::refused) {
        z_error_set("Empty XML lang attribute where not allowed.");
        return false;
    }
    z_text_buffer text_buffer;
    const char *text = get_text(node, white_space, text_buffer);
    if (text == nullptr)
        return false;
    if (text[0] == '\0') {
        z_error_set("Empty text content in XML where not allowed.");
        return false;
    }
    langstr.set_translation(tag, text);
    return true;
}

bool z_xml_parse_langstr(z_langstr_ptr &langstr, const xmlNode *parent, const char *name,
                         z_xml_white_space white_space)
{
    langstr.reset();
    z_langstr_builder found;
    for (const xmlNode *node = parent->children; node != nullptr; node = node->next) {
        if (node->type == XML_ELEMENT_NODE && z_xml_node_has_name(node, name) &&
            !z_xml_parse_langstr_translation(found, node, z_xml_empty_tag::allowed, white_space))
            return false;
    }
    langstr = found.take();
    return true;
}

z_langstr_ptr z_xml_parse_required_langstr(const xmlNode *parent, const char *name,
                                           z_xml_white_space white_space)
{
    z_langstr_ptr langstr;
    if (z_xml_parse_langstr(langstr, parent, name, white_space) && langstr == nullptr)
        z_error_set_utf8_printf("Missing XML node: %s", name);
    return langstr;
}

static bool parse_code(z_remark *remark, const xmlNode *node)
{
    if (remark->code != nullptr) {
        z_error_set("Remark in XML has multiple codes.");
        return false;
    }
    remark->code = z_xml_get_nonempty_text_content_as_compact_latin1(node);
    if (remark->code == nullptr)
        z_error_append("Missing or invalid remark code in XML data.");
    return remark->code != nullptr;
}

static bool parse_remark_children(z_remark *remark, z_langstr_builder &description, const xmlNode *parent)
{
    for (const xmlNode *node = parent->children; node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE)
            continue;
        if (z_xml_node_has_name(node, "code")) {
            if (!parse_code(remark, node))
                return false;
        } else if (z_xml_node_has_name(node, "description")) {
            if (!z_xml_parse_langstr_translation(description, node, z_xml_empty_tag::allowed,
                                                 z_xml_white_space::compact))
                return false;
        }
    }
    return true;
}

z_remark_ptr z_xml_parse_remark(const xmlNode *node)
{
    z_remark_ptr remark = z_remark_new();
    z_langstr_builder description;
    const bool success = parse_remark_children(remark.get(), description, node);
    remark->description = description.take();
    // Also when the walk failed: what is missing then says more than why.
    if (remark->code == nullptr || remark->description == nullptr) {
        z_error_set("Missing remark content in XML data.");
        return nullptr;
    }
    return success ? std::move(remark) : nullptr;
}

bool z_xml_add_langstr(xmlNode *parent, const char *name, const z_langstr *langstr)
{
    for (; langstr != nullptr; langstr = langstr->next.get()) {
        xmlNode *child = z_xml_add_child_element_with_latin1_text_content(parent, name, langstr->text.get());
        if (child == nullptr || !z_xml_set_attribute_with_ascii_content(child, "lang", langstr->tag.get()))
            return false;
    }
    return true;
}

static char *append(char *buffer, std::string_view text)
{
    return buffer + text.copy(buffer, text.size());
}

bool z_xml_write_langstr(z_output_stream *stream, const z_langstr *langstr, std::string_view name, int indent)
{
    const size_t tab_count = indent > 0 ? static_cast<size_t>(indent) : 0;
    for (; langstr != nullptr; langstr = langstr->next.get()) {
        const char *tag = langstr->tag.get();
        const char *text = langstr->text.get();
        const size_t max_size = tab_count + sizeof "< lang=\"\"></>\n" + 2 * name.size() +
                                z_xml_max_escape_size * (strlen(tag) + strlen(text));
        z_text_buffer buffer;
        char *const line = buffer.get(max_size);

        memset(line, '\t', tab_count);
        char *end = append(line + tab_count, "<");
        end = append(append(end, name), " lang=\"");
        end = append(z_xml_escape_latin1(end, tag), "\">");
        end = append(z_xml_escape_latin1(end, text), "</");
        end = append(append(end, name), ">\n");
        if (!z_output_stream_write(stream, line, static_cast<size_t>(end - line)))
            return false;
    }
    return true;
}
