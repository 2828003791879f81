#include <cstring>

#include "common/base/error.h"
#include "common/base/xml.h"
#include "common/base/xml_attribute.h"
#include "common/base/xml_read.h"
#include "common/model/xml_langstr.h"
#include "common/workspace/settings.h"

// The texts of each choice, in the order of its enumeration.
static constexpr const char *printout_identifiers[] = {"None", "Object ID", "Inventory ID",
                                                       "Inventory ID or Object ID"};
static constexpr const char *codeset_filter_levels[] = {"From all codesets", "From primary codeset only",
                                                        "From no codeset"};
static constexpr const char *mark_filter_levels[] = {"From all views", "From this view only", "From no view"};

// --- Attributes. One that is missing leaves the setting as it was. ---

static void read_text(z_utf8_ptr &text, const xmlNode *node, const char *attribute)
{
    z_utf8_ptr value;
    if (z_xml_get_attribute_value_as_utf8(value, node, attribute) && value != nullptr)
        text = std::move(value);
}

static void read_flag(bool &flag, const xmlNode *node, const char *attribute)
{
    z_utf8_ptr value;
    read_text(value, node, attribute);
    if (value != nullptr)
        flag = std::strcmp(value.get(), "true") == 0;
}

// The first enumerator is `first`, and another text than the listed ones stands for `otherwise`.
template <typename Choice, size_t count>
static void read_choice(Choice &choice, const xmlNode *node, const char *attribute,
                        const char *const (&texts)[count], Choice first, Choice otherwise)
{
    z_utf8_ptr value;
    read_text(value, node, attribute);
    if (value == nullptr)
        return;
    choice = otherwise;
    for (size_t index = 0; index < count; ++index)
        if (std::strcmp(texts[index], value.get()) == 0)
            choice = static_cast<Choice>(static_cast<int>(first) + static_cast<int>(index));
}

// --- Items: false only for what the user should hear of ---

static bool read_archive(z_settings *settings, const xmlNode *node)
{
    read_text(settings->archive_path, node, "path");
    return true;
}

static bool read_automatically_place_id(z_settings *settings, const xmlNode *node)
{
    read_flag(settings->automatically_places_id, node, "active");
    return true;
}

static bool read_mark_id_style(z_settings *settings, const xmlNode *node)
{
    int style = 0;
    if (z_xml_get_required_attribute_value_as_int(style, node, "style"))
        z_settings_set_default_mark_id_style(settings, style);
    return true;
}

static void read_page_filter(z_page_filter_settings &page, const xmlNode *legend, const char *codeset_level,
                             const char *mark_level)
{
    using codeset = z_codeset_filter_level;
    using mark = z_mark_filter_level;
    read_choice(page.codeset_filter_level, legend, codeset_level, codeset_filter_levels,
                codeset::from_all_codesets, codeset::from_primary_codeset_only);
    read_choice(page.mark_filter_level, legend, mark_level, mark_filter_levels, mark::from_all_views,
                mark::from_all_views);
}

static void read_printout_part(z_printout_settings &printout, const xmlNode *node)
{
    if (z_xml_node_has_name(node, "identifier")) {
        read_choice(printout.identifier, node, "setting", printout_identifiers, z_printout_identifier::none,
                    printout.identifier);
    } else if (z_xml_node_has_name(node, "layout")) {
        read_text(printout.layout_file_name, node, "filename");
    } else if (z_xml_node_has_name(node, "paper")) {
        z_utf8_ptr orientation;
        read_text(printout.paper_name, node, "name");
        read_text(orientation, node, "orientation");
        if (orientation != nullptr)
            printout.is_landscape = std::strcmp(orientation.get(), "Landscape") == 0;
    } else if (z_xml_node_has_name(node, "details")) {
        read_flag(printout.text_page.shows_details, node, "show-on-text-page");
        read_flag(printout.view_page.shows_details, node, "show-on-view-pages");
    } else if (z_xml_node_has_name(node, "legend")) {
        read_flag(printout.text_page.shows_legend, node, "show-on-text-page");
        read_flag(printout.view_page.shows_legend, node, "show-on-view-pages");
        read_page_filter(printout.text_page, node, "text-page-codeset-filter-level",
                         "text-page-mark-filter-level");
        read_page_filter(printout.view_page, node, "view-page-codeset-filter-level",
                         "view-page-mark-filter-level");
    } else if (z_xml_node_has_name(node, "page-numbers")) {
        read_flag(printout.shows_page_numbers, node, "show");
    } else if (z_xml_node_has_name(node, "report-type")) {
        read_flag(printout.shows_report_type, node, "show");
    }
}

static bool read_default_printout(z_settings *settings, const xmlNode *node)
{
    for (const xmlNode *child = node->children; child != nullptr; child = child->next)
        if (child->type == XML_ELEMENT_NODE)
            read_printout_part(settings->default_printout, child);
    return true;
}

static bool read_export(z_settings *settings, const xmlNode *node)
{
    for (const xmlNode *child = node->children; child != nullptr; child = child->next)
        if (z_xml_node_has_name(child, "folder"))
            read_text(settings->export_folder_path, child, "path");
    return true;
}

static bool read_last_used_layout(z_settings *settings, const xmlNode *node)
{
    read_text(settings->last_used_layout_file_name, node, "filename");
    return true;
}

static bool read_last_used_paper(z_settings *settings, const xmlNode *node)
{
    read_text(settings->last_used_paper_id, node, "id");
    return true;
}

static bool read_left_handed(z_settings *settings, const xmlNode *node)
{
    read_flag(settings->is_left_handed, node, "active");
    return true;
}

static bool read_preferred_languages(z_settings *settings, const xmlNode *node)
{
    bool all_valid = true;
    z_settings_destroy_preferred_languages(settings);
    for (const xmlNode *child = node->children; child != nullptr; child = child->next) {
        if (!z_xml_node_has_name(child, "language"))
            continue;
        z_latin1_ptr tag;
        if (!z_xml_get_attribute_value_as_ascii(tag, child, "tag"))
            all_valid = false;
        else if (tag != nullptr)
            z_settings_add_preferred_language(settings, z_settings_language_new(tag.get()));
    }
    return all_valid;
}

static bool read_recent_remarks(z_settings *settings, const xmlNode *node)
{
    settings->recent_custom_remarks.destroy_all();
    for (const xmlNode *child = node->children; child != nullptr; child = child->next)
        if (z_xml_node_has_name(child, "remark"))
            if (z_remark_ptr remark = z_xml_parse_remark(child))
                z_remark_list_add_remark_last(&settings->recent_custom_remarks, std::move(remark));
    return true;
}

static bool read_remember_tool_choice(z_settings *settings, const xmlNode *node)
{
    read_flag(settings->remembers_tool_choice, node, "active");
    return true;
}

struct item_row {
    z_settings_item item;
    const char *name;
    bool (*read)(z_settings *settings, const xmlNode *node);
};

static constexpr item_row item_rows[] = {
    {Z_SETTINGS_ARCHIVE, "archive", read_archive},
    {Z_SETTINGS_AUTOMATICALLY_PLACE_ID, "automatically-place-id", read_automatically_place_id},
    {Z_SETTINGS_DEFAULT_MARK_ID_STYLE, "default-mark-id-style", read_mark_id_style},
    {Z_SETTINGS_DEFAULT_PRINTOUT, "default-printout-settings", read_default_printout},
    {Z_SETTINGS_EXPORT, "export", read_export},
    {Z_SETTINGS_LAST_USED_LAYOUT, "last-used-layout", read_last_used_layout},
    {Z_SETTINGS_LAST_USED_PAPER, "last-used-paper", read_last_used_paper},
    {Z_SETTINGS_LEFT_HANDED, "left-handed", read_left_handed},
    {Z_SETTINGS_PREFERRED_LANGUAGES, "preferred-languages", read_preferred_languages},
    {Z_SETTINGS_RECENT_CUSTOM_REMARKS, "recent-custom-remarks", read_recent_remarks},
    {Z_SETTINGS_REMEMBER_TOOL_CHOICE, "remember-tool-choice", read_remember_tool_choice},
};

static const item_row *find_item(const xmlNode *node, uint32_t items)
{
    for (const item_row &row : item_rows)
        if ((items & row.item) != 0 && z_xml_node_has_name(node, row.name))
            return &row;
    return nullptr;
}

bool z_settings_load(z_settings *settings, uint32_t items)
{
    z_xml_doc_ptr doc;
    if (!z_xml_parse_file_if_exists(doc, settings->file_path.get()))
        return false;
    if (doc == nullptr)
        return true;
    const xmlNode *root = z_xml_get_root_element(doc.get());
    if (root == nullptr)
        return false;
    if (!z_xml_node_has_name(root, "settings")) {
        z_error_set("Not a settings file.");
        return false;
    }
    bool all_read = true;
    for (const xmlNode *child = root->children; child != nullptr; child = child->next)
        if (const item_row *row = find_item(child, items); row != nullptr && !row->read(settings, child))
            all_read = false;
    return all_read;
}
