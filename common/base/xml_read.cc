#include "common/base/xml_read.h"

#include <cstring>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/latin1.h"
#include "common/base/strip.h"
#include "common/base/utf8.h"

// What entities may make of one text; libxml2 takes no more in one piece either. Documents that were parsed
// here have no entity nodes left, trees from elsewhere may.
static constexpr size_t max_text_size = 10'000'000;
static constexpr int max_entity_depth = 40;

static bool append_texts(std::string &text, const xmlNode *first, int depth)
{
    for (const xmlNode *node = first; node != nullptr; node = node->next) {
        if ((node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) && node->content != nullptr)
            text += z_xml_to_utf8(node->content);
        if (node->type == XML_ENTITY_REF_NODE) {
            const xmlEntity *entity = xmlGetDocEntity(node->doc, node->name);
            if (entity == nullptr || depth == max_entity_depth ||
                !append_texts(text, entity->children, depth + 1))
                return false;
        }
        if (text.size() > max_text_size)
            return false;
    }
    return true;
}

static bool is_text(const xmlNode *node)
{
    return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE ||
           node->type == XML_ENTITY_REF_NODE;
}

const char *z_xml_borrow_text(const xmlNode *children, std::string &storage)
{
    if (children == nullptr)
        return "";
    if (children->next == nullptr && children->type == XML_TEXT_NODE && children->content != nullptr)
        return z_xml_to_utf8(children->content);
    const xmlNode *node = children;
    while (node != nullptr && !is_text(node))
        node = node->next;
    storage.clear();
    return node != nullptr && append_texts(storage, node, 0) ? storage.c_str() : nullptr;
}

xmlNode *z_xml_get_root_element(const xmlDoc *doc)
{
    xmlNode *root = xmlDocGetRootElement(doc);
    if (root == nullptr)
        z_error_set("Missing root element in XML tree.");
    return root;
}

const char *z_xml_get_node_name(const xmlNode *node)
{
    return z_xml_to_utf8(node->name);
}

bool z_xml_node_has_name(const xmlNode *node, const char *name)
{
    return xmlStrEqual(node->name, z_xml_from_utf8(name)) != 0;
}

bool z_xml_node_has_child_node_with_name(const xmlNode *node, const char *name)
{
    const xmlNode *child = node->children;
    while (child != nullptr && !z_xml_node_has_name(child, name))
        child = child->next;
    return child != nullptr;
}

bool z_xml_get_distinct_child_node(xmlNode *&child, const xmlNode *parent, const char *name)
{
    child = nullptr;
    for (xmlNode *node = parent->children; node != nullptr; node = node->next) {
        if (!z_xml_node_has_name(node, name))
            continue;
        if (child != nullptr) {
            child = nullptr;
            z_error_set("Duplicate XML nodes found where not allowed.");
            return false;
        }
        child = node;
    }
    return true;
}

xmlNode *z_xml_get_required_distinct_child_node(const xmlNode *parent, const char *name)
{
    xmlNode *child;
    if (z_xml_get_distinct_child_node(child, parent, name) && child == nullptr)
        z_error_set_utf8_printf("Missing XML node: %s", name);
    return child;
}

const char *z_xml_borrow_text_content(const xmlNode *node, std::string &storage)
{
    const char *text = z_xml_borrow_text(node->children, storage);
    if (text == nullptr)
        z_error_set("Error reading text content from XML node.");
    return text;
}

static z_utf8_ptr get_compact_utf8(const xmlNode *node)
{
    std::string storage;
    const char *text = z_xml_borrow_text_content(node, storage);
    return text != nullptr ? z_strip_surrounding_and_spacify_compactly_in_new_for_utf8(text) : nullptr;
}

z_utf8_ptr z_xml_get_text_content_as_utf8(const xmlNode *node)
{
    std::string storage;
    return z_utf8_ptr(g_strdup(z_xml_borrow_text_content(node, storage)));
}

z_latin1_ptr z_xml_get_text_content_as_latin1(const xmlNode *node)
{
    std::string storage;
    const char *text = z_xml_borrow_text_content(node, storage);
    if (text == nullptr)
        return nullptr;
    z_latin1_ptr latin1 = z_convert_utf8_to_latin1(text);
    if (latin1 == nullptr)
        z_error_append("Invalid XML node content.");
    return latin1;
}

z_latin1_ptr z_xml_get_text_content_as_compact_latin1(const xmlNode *node)
{
    const z_latin1_ptr latin1 = z_xml_get_text_content_as_latin1(node);
    return latin1 != nullptr ? z_strip_surrounding_and_spacify_compactly_in_new_for_latin1(latin1.get())
                             : nullptr;
}

static z_latin1_ptr require_text(z_latin1_ptr latin1)
{
    z_latin1_ptr text = z_latin1_assert_nonempty_or_free(std::move(latin1));
    if (text == nullptr)
        z_error_append("Missing text content in XML.");
    return text;
}

static z_utf8_ptr require_text(z_utf8_ptr utf8)
{
    z_utf8_ptr text = z_utf8_assert_nonempty_or_free(std::move(utf8));
    if (text == nullptr)
        z_error_append("Missing text content in XML.");
    return text;
}

z_latin1_ptr z_xml_get_nonempty_text_content_as_compact_latin1(const xmlNode *node)
{
    z_latin1_ptr text = z_xml_get_text_content_as_compact_latin1(node);
    return text != nullptr ? require_text(std::move(text)) : nullptr;
}

static z_utf8_ptr get_nonempty_compact_utf8(const xmlNode *node)
{
    z_utf8_ptr text = get_compact_utf8(node);
    return text != nullptr ? require_text(std::move(text)) : nullptr;
}

// Gives `text` what `get` makes of the one child of that name; success with null if there is none.
template <typename Text>
static bool get_from_distinct_child(Text &text, const xmlNode *parent, const char *name,
                                    Text (*get)(const xmlNode *node))
{
    text.reset();
    xmlNode *child;
    if (!z_xml_get_distinct_child_node(child, parent, name))
        return false;
    if (child == nullptr)
        return true;
    text = get(child);
    return text != nullptr;
}

bool z_xml_get_text_content_from_distinct_child_node_as_latin1(z_latin1_ptr &text, const xmlNode *parent,
                                                               const char *name)
{
    return get_from_distinct_child(text, parent, name, z_xml_get_text_content_as_latin1);
}

bool z_xml_get_text_content_from_distinct_child_node_as_compact_latin1(z_latin1_ptr &text,
                                                                       const xmlNode *parent,
                                                                       const char *name)
{
    return get_from_distinct_child(text, parent, name, z_xml_get_text_content_as_compact_latin1);
}

bool z_xml_get_text_content_from_distinct_child_node_as_utf8(z_utf8_ptr &text, const xmlNode *parent,
                                                             const char *name)
{
    return get_from_distinct_child(text, parent, name, z_xml_get_text_content_as_utf8);
}

bool z_xml_get_text_content_from_distinct_child_node_as_compact_utf8(z_utf8_ptr &text, const xmlNode *parent,
                                                                     const char *name)
{
    return get_from_distinct_child(text, parent, name, get_compact_utf8);
}

bool z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_latin1(z_latin1_ptr &text,
                                                                                const xmlNode *parent,
                                                                                const char *name)
{
    return get_from_distinct_child(text, parent, name, z_xml_get_nonempty_text_content_as_compact_latin1);
}

bool z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_utf8(z_utf8_ptr &text,
                                                                              const xmlNode *parent,
                                                                              const char *name)
{
    return get_from_distinct_child(text, parent, name, get_nonempty_compact_utf8);
}

z_utf8_ptr
z_xml_get_nonempty_text_content_from_required_distinct_child_node_as_compact_utf8(const xmlNode *parent,
                                                                                  const char *name)
{
    const xmlNode *child = z_xml_get_required_distinct_child_node(parent, name);
    return child != nullptr ? get_nonempty_compact_utf8(child) : nullptr;
}
