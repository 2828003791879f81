// The reader of template files.
//
// Two older spellings are read as well. "condition", a child of "template", is a report type of a fixed name
// with one segment without header. Blocks and rows may be spelled as follows, where the two rules differ; the
// other rule's spellings are unknown elements.
//
//     rule      for                     block              block header             row
//     details   details                 details-group      details-group-header     details-item
//     segment   segment and condition   condition-group    condition-group-header   condition-item
//
// "group" is a block under either. A legacy row has one text field: its header is in elements named like the
// row with "-header" appended, its contents, under details, with "-text" appended. A legacy block header
// counts when there is no "header".

#include "common/base/error.h"
#include "common/base/xml.h"
#include "common/base/xml_attribute.h"
#include "common/base/xml_read.h"
#include "common/model/langstr_builder.h"
#include "common/model/template_io.h"
#include "common/model/xml_langstr.h"

// An element name as the document's dictionary holds it: the parser has looked up every name there, so that
// two are equal when their pointers are.
struct z_known_name {
    const xmlChar *text;

    z_known_name(xmlDict *dictionary, const char *name)
        : text(xmlDictLookup(dictionary, z_xml_from_utf8(name), -1))
    {
    }
};

static bool is_element(const xmlNode *node, z_known_name name)
{
    return node->name == name.text && node->type == XML_ELEMENT_NODE;
}

enum class z_value_reading { kept, ignored };

// How blocks are read: under details, or under a segment.
struct z_block_rules {
    z_value_reading values;
    z_known_name legacy_block;
    z_known_name legacy_block_header;
    z_known_name legacy_row;
    z_known_name legacy_row_header;
    z_known_name legacy_row_text; // Only where values are kept.
};

struct z_template_reader {
    z_known_name author, block, checkbox, codeset, codesets, condition, contents, details, group, header,
        label, name, report_type, row, segment, textfield;
    z_block_rules details_rules, segment_rules;

    explicit z_template_reader(xmlDict *names)
        : author(names, "author"), block(names, "block"), checkbox(names, "checkbox"),
          codeset(names, "codeset"), codesets(names, "codesets"), condition(names, "condition"),
          contents(names, "contents"), details(names, "details"), group(names, "group"),
          header(names, "header"), label(names, "label"), name(names, "name"),
          report_type(names, "report-type"), row(names, "row"), segment(names, "segment"),
          textfield(names, "textfield"), details_rules{z_value_reading::kept,
                                                       {names, "details-group"},
                                                       {names, "details-group-header"},
                                                       {names, "details-item"},
                                                       {names, "details-item-header"},
                                                       {names, "details-item-text"}},
          segment_rules{z_value_reading::ignored,          {names, "condition-group"},
                        {names, "condition-group-header"}, {names, "condition-item"},
                        {names, "condition-item-header"},  {names, "condition-item-text"}}
    {
    }
};

static bool read_langstr(z_langstr_ptr &langstr, const xmlNode *parent, z_known_name name,
                         z_xml_white_space white_space = z_xml_white_space::compact)
{
    z_langstr_builder found;
    for (const xmlNode *node = parent->children; node != nullptr; node = node->next)
        if (is_element(node, name) &&
            !z_xml_parse_langstr_translation(found, node, z_xml_empty_tag::allowed, white_space))
            return false;
    langstr = found.take();
    return true;
}

static bool read_required_langstr(z_langstr_ptr &langstr, const xmlNode *parent, z_known_name name)
{
    if (!read_langstr(langstr, parent, name))
        return false;
    if (langstr == nullptr)
        z_error_set_utf8_printf("Missing XML node: %s", z_xml_to_utf8(name.text));
    return langstr != nullptr;
}

// Hands each child element to `read` and frees it then, so that the tree shrinks as the model grows. Ends at
// the first false, and returns it.
template <typename Read>
static bool consume_children(xmlNode *parent, Read read)
{
    for (xmlNode *node = parent->children, *next; node != nullptr; node = next) {
        next = node->next;
        if (node->type == XML_ELEMENT_NODE && !read(node))
            return false;
        xmlUnlinkNode(node);
        xmlFreeNode(node);
    }
    return true;
}

static bool read_text_field(const z_template_reader &reader, const z_block_rules &rules,
                            z_text_sheet_row *row, const xmlNode *node)
{
    z_text_sheet_field_ptr field = z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD);
    if (rules.values == z_value_reading::kept &&
        !read_langstr(field->text, node, reader.contents, z_xml_white_space::keep_lines))
        return false;
    z_text_sheet_row_add_field(row, std::move(field));
    return true;
}

static bool read_checkbox(const z_template_reader &reader, const z_block_rules &rules, z_text_sheet_row *row,
                          const xmlNode *node)
{
    z_text_sheet_field_ptr field = z_text_sheet_field_new(Z_TEXT_SHEET_CHECKBOX);
    if (!read_required_langstr(field->text, node, reader.label))
        return false;
    if (rules.values == z_value_reading::kept &&
        !z_xml_get_attribute_value_as_boolean_with_fallback(field->selected, node, "selected", false))
        return false;
    z_text_sheet_row_add_field(row, std::move(field));
    return true;
}

static bool read_row(const z_template_reader &reader, const z_block_rules &rules, z_text_sheet_block *block,
                     const xmlNode *parent)
{
    z_text_sheet_row_ptr row = z_text_sheet_row_new(nullptr);
    if (!read_required_langstr(row->header, parent, reader.header))
        return false;
    for (const xmlNode *node = parent->children; node != nullptr; node = node->next) {
        if (is_element(node, reader.textfield)) {
            if (!read_text_field(reader, rules, row.get(), node))
                return false;
        } else if (is_element(node, reader.checkbox)) {
            if (!read_checkbox(reader, rules, row.get(), node))
                return false;
        }
    }
    z_text_sheet_block_add_row(block, std::move(row));
    return true;
}

static bool read_legacy_row(const z_block_rules &rules, z_text_sheet_block *block, const xmlNode *node)
{
    z_text_sheet_row_ptr row = z_text_sheet_row_new(nullptr);
    z_text_sheet_field_ptr field = z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD);
    if (!read_required_langstr(row->header, node, rules.legacy_row_header))
        return false;
    if (rules.values == z_value_reading::kept && !read_langstr(field->text, node, rules.legacy_row_text))
        return false;
    z_text_sheet_row_add_field(row.get(), std::move(field));
    z_text_sheet_block_add_row(block, std::move(row));
    return true;
}

static bool read_block(const z_template_reader &reader, const z_block_rules &rules,
                       z_text_sheet_segment *segment, xmlNode *parent)
{
    z_text_sheet_block_ptr block = z_text_sheet_block_new(nullptr);
    if (!read_langstr(block->header, parent, reader.header))
        return false;
    if (block->header == nullptr && !read_langstr(block->header, parent, rules.legacy_block_header))
        return false;
    const bool success = consume_children(parent, [&](const xmlNode *node) {
        if (is_element(node, reader.row))
            return read_row(reader, rules, block.get(), node);
        if (is_element(node, rules.legacy_row))
            return read_legacy_row(rules, block.get(), node);
        return true;
    });
    z_text_sheet_segment_add_block(segment, std::move(block));
    return success;
}

static bool read_blocks(const z_template_reader &reader, const z_block_rules &rules,
                        z_text_sheet_segment *segment, xmlNode *parent)
{
    return consume_children(parent, [&](xmlNode *node) {
        const bool is_block = is_element(node, reader.block) || is_element(node, reader.group) ||
                              is_element(node, rules.legacy_block);
        return !is_block || read_block(reader, rules, segment, node);
    });
}

static bool read_report_type(const z_template_reader &reader, z_template *tmpl, xmlNode *parent)
{
    z_template_report_type_ptr report_type = z_template_report_type_new(nullptr);
    if (!read_required_langstr(report_type->name, parent, reader.name))
        return false;
    const bool success = consume_children(parent, [&](xmlNode *node) {
        if (!is_element(node, reader.segment))
            return true;
        z_text_sheet_segment_ptr segment = z_text_sheet_segment_new(nullptr);
        if (!read_langstr(segment->header, node, reader.header) ||
            !read_blocks(reader, reader.segment_rules, segment.get(), node))
            return false;
        z_template_report_type_add_segment(report_type.get(), std::move(segment));
        return true;
    });
    z_template_add_report_type(tmpl, std::move(report_type));
    return success;
}

static bool read_legacy_report_type(const z_template_reader &reader, z_template *tmpl, xmlNode *node)
{
    z_text_sheet_segment_ptr segment = z_text_sheet_segment_new(nullptr);
    if (!read_blocks(reader, reader.segment_rules, segment.get(), node))
        return false;
    z_template_report_type_ptr report_type = z_template_report_type_new(nullptr);
    z_util_fill_in_legacy_report_type_name(report_type->name);
    z_template_report_type_add_segment(report_type.get(), std::move(segment));
    z_template_add_report_type(tmpl, std::move(report_type));
    return true;
}

static bool read_codesets(const z_template_reader &reader, z_template *tmpl, const xmlNode *parent)
{
    for (const xmlNode *node = parent->children; node != nullptr; node = node->next) {
        if (!is_element(node, reader.codeset))
            continue;
        const z_latin1_ptr name = z_xml_get_nonempty_required_attribute_value_as_latin1(node, "filename");
        if (name == nullptr)
            return false;
        z_template_add_codeset(tmpl, z_template_codeset_new(name.get()));
    }
    return true;
}

static bool read_template(const z_template_reader &reader, z_template *tmpl, xmlNode *root)
{
    if (!read_required_langstr(tmpl->name, root, reader.name) ||
        !read_langstr(tmpl->author, root, reader.author) ||
        !z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_latin1(tmpl->version, root,
                                                                                    "version"))
        return false;
    const bool success = consume_children(root, [&](xmlNode *node) {
        if (is_element(node, reader.codesets))
            return read_codesets(reader, tmpl, node);
        if (is_element(node, reader.details))
            return read_blocks(reader, reader.details_rules, &tmpl->details, node);
        if (is_element(node, reader.condition))
            return read_legacy_report_type(reader, tmpl, node);
        if (is_element(node, reader.report_type))
            return read_report_type(reader, tmpl, node);
        return true;
    });
    if (success && tmpl->report_types.is_empty())
        z_error_set("Missing report types.");
    return success && !tmpl->report_types.is_empty();
}

z_template_ptr z_template_io_read_from_document(z_xml_doc_ptr doc)
{
    if (doc == nullptr) {
        z_error_append("Error loading template file.");
        return nullptr;
    }
    xmlNode *root = z_xml_get_root_element(doc.get());
    if (root == nullptr) {
        z_error_append("Invalid template file.");
        return nullptr;
    }
    if (!z_xml_node_has_name(root, "template")) {
        z_error_set("Not a template file.");
        return nullptr;
    }
    z_template_ptr tmpl = z_template_new();
    if (!read_template(z_template_reader(doc->dict), tmpl.get(), root)) {
        z_error_append("Error parsing template file.");
        return nullptr;
    }
    return tmpl;
}

z_template_ptr z_template_io_read_from_file(const char *path)
{
    return z_template_io_read_from_document(z_xml_parse_file(path, z_xml_tree::for_reading));
}
