// Each item of the file is described once, and exchanged in either direction.

#include <cstring>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/xml.h"
#include "common/base/xml_attribute.h"
#include "common/base/xml_build.h"
#include "common/base/xml_read.h"
#include "common/model/xml_langstr.h"
#include "common/workspace/folder_lock.h"
#include "common/workspace/settings.h"

// The texts of each choice, in the order of its enumeration.
static constexpr const char *printout_identifiers[] = {"None", "Object ID", "Inventory ID",
                                                       "Inventory ID or Object ID"};
static constexpr const char *codeset_filter_levels[] = {"From all codesets", "From primary codeset only",
                                                        "From no codeset"};
static constexpr const char *mark_filter_levels[] = {"From all views", "From this view only", "From no view"};

static bool is_element(const xmlNode *node, const char *name)
{
    return node->type == XML_ELEMENT_NODE && z_xml_node_has_name(node, name);
}

static xmlNode *find_element(xmlNode *first, const char *name)
{
    while (first != nullptr && !is_element(first, name))
        first = first->next;
    return first;
}

static void remove_elements(xmlNode *first, const char *name)
{
    while ((first = find_element(first, name)) != nullptr) {
        const z_xml_node_ptr removed(first);
        first = first->next;
        xmlUnlinkNode(removed.get());
    }
}

// One way of the exchange between the record and the elements of the file. A null element is one that is not
// there: nothing is read from it, and making it has failed before.
class settings_exchange {
public:
    enum class direction { loading, saving };
    explicit settings_exchange(direction way) : is_saving(way == direction::saving) {}

    // An attribute that is missing leaves the setting as it was.
    void text(xmlNode *node, const char *attribute, z_utf8_ptr &text)
    {
        if (node == nullptr)
            return;
        if (is_saving) {
            require(z_xml_set_attribute(node, attribute, text.get()));
            return;
        }
        z_utf8_ptr value;
        if (z_xml_get_attribute_value_as_utf8(value, node, attribute) && value != nullptr)
            text = std::move(value);
    }

    void flag(xmlNode *node, const char *attribute, bool &flag, const char *true_text = "true",
              const char *false_text = "false")
    {
        z_utf8_ptr value(g_strdup(flag ? true_text : false_text));
        text(node, attribute, value);
        flag = std::strcmp(value.get(), true_text) == 0;
    }

    // Another text than the listed ones, the first of which stands for `first`, reads as `otherwise`.
    template <typename Choice, size_t count>
    void choice(xmlNode *node, const char *attribute, Choice &choice, const char *const (&texts)[count],
                Choice first, Choice otherwise)
    {
        const auto offset = static_cast<int>(first);
        z_utf8_ptr value(g_strdup(texts[static_cast<int>(choice) - offset]));
        text(node, attribute, value);
        choice = otherwise;
        for (int index = 0; index < static_cast<int>(count); ++index)
            if (std::strcmp(texts[index], value.get()) == 0)
                choice = static_cast<Choice>(index + offset);
    }

    // The first child element of this name; when saving it is the only one, and made if there is none.
    xmlNode *child(xmlNode *parent, const char *name)
    {
        if (parent == nullptr)
            return nullptr;
        xmlNode *node = find_element(parent->children, name);
        if (!is_saving)
            return node;
        if (node == nullptr)
            node = z_xml_add_child_element(parent, name);
        else
            remove_elements(node->next, name);
        require(node != nullptr);
        return node;
    }

    void require(bool step)
    {
        succeeded = succeeded && step;
    }

    const bool is_saving;
    bool succeeded = true;
};

static void exchange_archive(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    file.text(node, "path", settings.archive_path);
}

static void exchange_automatically_place_id(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    file.flag(node, "active", settings.automatically_places_id);
}

static void exchange_mark_id_style(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    int style = settings.default_mark_id_style;
    if (file.is_saving)
        file.require(z_xml_set_attribute_to_int(node, "style", style));
    else if (z_xml_get_required_attribute_value_as_int_in_range(style, node, "style", 0, 2))
        settings.default_mark_id_style = style;
}

static void exchange_page_filter(settings_exchange &file, z_page_filter_settings &page, xmlNode *legend,
                                 const char *codeset_level, const char *mark_level)
{
    using codeset = z_codeset_filter_level;
    using mark = z_mark_filter_level;
    file.choice(legend, codeset_level, page.codeset_filter_level, codeset_filter_levels,
                codeset::from_all_codesets, codeset::from_primary_codeset_only);
    file.choice(legend, mark_level, page.mark_filter_level, mark_filter_levels, mark::from_all_views,
                mark::from_all_views);
}

static void exchange_default_printout(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    z_printout_settings &printout = settings.default_printout;
    file.choice(file.child(node, "identifier"), "setting", printout.identifier, printout_identifiers,
                z_printout_identifier::none, printout.identifier);
    if (file.is_saving && printout.layout_file_name == nullptr)
        remove_elements(node->children, "layout");
    else
        file.text(file.child(node, "layout"), "filename", printout.layout_file_name);
    xmlNode *paper = file.child(node, "paper");
    file.text(paper, "name", printout.paper_name);
    file.flag(paper, "orientation", printout.is_landscape, "Landscape", "Portrait");
    xmlNode *details = file.child(node, "details");
    file.flag(details, "show-on-text-page", printout.text_page.shows_details);
    file.flag(details, "show-on-view-pages", printout.view_page.shows_details);
    xmlNode *legend = file.child(node, "legend");
    file.flag(legend, "show-on-text-page", printout.text_page.shows_legend);
    file.flag(legend, "show-on-view-pages", printout.view_page.shows_legend);
    exchange_page_filter(file, printout.text_page, legend, "text-page-codeset-filter-level",
                         "text-page-mark-filter-level");
    exchange_page_filter(file, printout.view_page, legend, "view-page-codeset-filter-level",
                         "view-page-mark-filter-level");
    file.flag(file.child(node, "page-numbers"), "show", printout.shows_page_numbers);
    file.flag(file.child(node, "report-type"), "show", printout.shows_report_type);
}

static void exchange_export(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    file.text(file.child(node, "folder"), "path", settings.export_folder_path);
}

static void exchange_last_used_layout(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    file.text(node, "filename", settings.last_used_layout_file_name);
}

static void exchange_last_used_paper(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    file.text(node, "id", settings.last_used_paper_id);
}

static void exchange_left_handed(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    file.flag(node, "active", settings.is_left_handed);
}

static void save_preferred_languages(settings_exchange &file, const z_settings &settings, xmlNode *node)
{
    remove_elements(node->children, "language");
    for (const z_preferred_language *language : settings.preferred_languages) {
        xmlNode *child = z_xml_add_child_element(node, "language");
        file.require(child != nullptr &&
                     z_xml_set_attribute_with_ascii_content(child, "tag", language->tag.get()));
    }
}

static void exchange_preferred_languages(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    if (file.is_saving) {
        save_preferred_languages(file, settings, node);
        return;
    }
    settings.preferred_languages.destroy_all();
    xmlNode *child = node->children;
    for (; (child = find_element(child, "language")) != nullptr; child = child->next) {
        z_latin1_ptr tag;
        file.require(z_xml_get_attribute_value_as_ascii(tag, child, "tag"));
        if (tag != nullptr)
            settings.preferred_languages.add_last(z_settings_language_new(tag.get()));
    }
}

static void save_recent_remarks(settings_exchange &file, const z_settings &settings, xmlNode *node)
{
    remove_elements(node->children, "remark");
    for (const z_remark *remark : settings.recent_custom_remarks) {
        xmlNode *child = z_xml_add_child_element(node, "remark");
        file.require(child != nullptr &&
                     z_xml_add_child_element_with_latin1_text_content(child, "code", remark->code.get()) !=
                         nullptr &&
                     z_xml_add_langstr(child, "description", remark->description.get()));
    }
}

static void exchange_recent_remarks(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    if (file.is_saving) {
        save_recent_remarks(file, settings, node);
        return;
    }
    settings.recent_custom_remarks.destroy_all();
    xmlNode *child = node->children;
    for (; (child = find_element(child, "remark")) != nullptr; child = child->next)
        if (z_remark_ptr remark = z_xml_parse_remark(child))
            z_remark_list_add_remark_last(&settings.recent_custom_remarks, std::move(remark));
}

static void exchange_remember_tool_choice(settings_exchange &file, z_settings &settings, xmlNode *node)
{
    file.flag(node, "active", settings.remembers_tool_choice);
}

struct item_row {
    z_settings_item item;
    const char *name;
    void (*run)(settings_exchange &file, z_settings &settings, xmlNode *node);
};

static constexpr item_row item_rows[] = {
    {Z_SETTINGS_ARCHIVE, "archive", exchange_archive},
    {Z_SETTINGS_AUTOMATICALLY_PLACE_ID, "automatically-place-id", exchange_automatically_place_id},
    {Z_SETTINGS_DEFAULT_MARK_ID_STYLE, "default-mark-id-style", exchange_mark_id_style},
    {Z_SETTINGS_DEFAULT_PRINTOUT, "default-printout-settings", exchange_default_printout},
    {Z_SETTINGS_EXPORT, "export", exchange_export},
    {Z_SETTINGS_LAST_USED_LAYOUT, "last-used-layout", exchange_last_used_layout},
    {Z_SETTINGS_LAST_USED_PAPER, "last-used-paper", exchange_last_used_paper},
    {Z_SETTINGS_LEFT_HANDED, "left-handed", exchange_left_handed},
    {Z_SETTINGS_PREFERRED_LANGUAGES, "preferred-languages", exchange_preferred_languages},
    {Z_SETTINGS_RECENT_CUSTOM_REMARKS, "recent-custom-remarks", exchange_recent_remarks},
    {Z_SETTINGS_REMEMBER_TOOL_CHOICE, "remember-tool-choice", exchange_remember_tool_choice},
};

// Far more than the programs write; reading a file without bounds could take all the memory.
static constexpr int32_t max_file_size = 4 << 20;

// Succeeds with no document for a missing file.
static bool parse(z_xml_doc_ptr &doc, const z_settings *settings)
{
    z_fs_info info;
    if (!z_fs_utils_get_info(settings->file_path.get(), info))
        return false;
    if (info.size > max_file_size) {
        z_error_set("Not a settings file.");
        return false;
    }
    if (!z_xml_parse_file_if_exists(doc, settings->file_path.get()))
        return false;
    if (doc == nullptr)
        return true;
    const xmlNode *root = z_xml_get_root_element(doc.get());
    if (root != nullptr && is_element(root, "settings"))
        return true;
    if (root != nullptr)
        z_error_set("Not a settings file.");
    return false;
}

bool z_settings_load(z_settings *settings, uint32_t items)
{
    z_xml_doc_ptr doc;
    if (!parse(doc, settings))
        return false;
    if (doc == nullptr)
        return true;
    settings_exchange file(settings_exchange::direction::loading);
    for (xmlNode *child = z_xml_get_root_element(doc.get())->children; child != nullptr; child = child->next)
        for (const item_row &row : item_rows)
            if ((items & row.item) != 0 && is_element(child, row.name))
                row.run(file, *settings, child);
    return file.succeeded;
}

static bool is_blank(const xmlNode *node)
{
    return node->type == XML_TEXT_NODE && xmlIsBlankNode(node) == 1;
}

// Whether the white space among the children only lays them out, and does not belong to a text.
static bool is_layout_only(const xmlNode *parent)
{
    bool has_element = false;
    for (const xmlNode *node = parent->children; node != nullptr; node = node->next) {
        if (node->type == XML_ELEMENT_NODE)
            has_element = true;
        else if (node->type != XML_COMMENT_NODE && !is_blank(node))
            return false;
    }
    return has_element && xmlNodeGetSpacePreserve(parent) != 1;
}

// Saving indents anew what has no white space of its own.
static void remove_layout(xmlNode *parent)
{
    const bool removes_blanks = is_layout_only(parent);
    for (xmlNode *node = parent->children, *next; node != nullptr; node = next) {
        next = node->next;
        if (node->type == XML_ELEMENT_NODE) {
            remove_layout(node);
        } else if (removes_blanks && is_blank(node)) {
            xmlUnlinkNode(node);
            const z_xml_node_ptr removed(node);
        }
    }
}

static bool acquire_lock(z_folder_lock &lock, const z_settings *settings)
{
    const z_utf8_ptr folder_path(g_strdup(settings->file_path.get()));
    z_fs_utils_strip_entry_name_from_path(folder_path.get());
    return lock.acquire(folder_path.get());
}

bool z_settings_save(z_settings *settings, uint32_t items)
{
    z_folder_lock lock;
    z_xml_doc_ptr doc;
    if (!acquire_lock(lock, settings) || !parse(doc, settings))
        return false;
    xmlNode *root = nullptr;
    if (doc != nullptr) {
        root = z_xml_get_root_element(doc.get());
    } else {
        doc = z_xml_new_doc();
        root = doc != nullptr ? z_xml_add_root_element(doc.get(), "settings") : nullptr;
    }
    if (root == nullptr)
        return false;

    settings_exchange file(settings_exchange::direction::saving);
    for (const item_row &row : item_rows)
        if ((items & row.item) != 0)
            if (xmlNode *node = file.child(root, row.name))
                row.run(file, *settings, node);
    if (!file.succeeded)
        return false;
    remove_layout(root);
    if (!z_xml_write_to_file(doc.get(), settings->file_path.get(), "UTF-8"))
        return false;
    settings->changed_items &= ~items;
    return true;
}
