#include "common/workspace/settings.h"

#include <cstring>

#include "common/base/fs_path.h"
#include "common/model/supported_languages.h"
#include "common/workspace/platform.h"

static constexpr int mark_id_style_count = 3;
static constexpr int recent_remark_limit = 5;

static void add_language(z_settings *settings, const char *tag)
{
    settings->preferred_languages.add_last(z_settings_language_new(tag));
}

// The user's own dialect and its language, then English, which most templates have.
static void add_default_languages(z_settings *settings)
{
    const int index = z_platform_get_user_language_index();
    if (index >= 0) {
        const char *dialect = z_supported_languages_get_default_dialect_tag(index);
        const char *tag = dialect != nullptr ? dialect : z_supported_languages_get_tag(index);
        add_language(settings, tag);
        if (const char *hyphen = std::strchr(tag, '-')) {
            const z_latin1_ptr language(g_strndup(tag, static_cast<gsize>(hyphen - tag)));
            add_language(settings, language.get());
        }
        if (g_str_has_prefix(tag, "en"))
            return;
    }
    add_language(settings, "en-uk");
    add_language(settings, "en");
}

z_settings_ptr z_settings_new(const char *workspace_folder_path)
{
    z_settings_ptr settings(new z_settings);
    settings->file_path = z_fs_utils_create_path_in_folder(workspace_folder_path, "settings.xml");
    settings->archive_path.reset(g_strdup(""));
    settings->default_printout.paper_name.reset(g_strdup("A4"));
    settings->export_folder_path.reset(g_strdup(""));
    settings->last_used_layout_file_name.reset(g_strdup(""));
    settings->last_used_paper_id.reset(g_strdup("A4_P"));
    add_default_languages(settings.get());
    return settings;
}

void z_settings_destroy(z_settings *settings)
{
    delete settings;
}

void z_settings_set_archive_path(z_settings *settings, const char *path)
{
    settings->archive_path.reset(g_strdup(path));
    settings->changed_items |= Z_SETTINGS_ARCHIVE;
}

void z_settings_set_automatically_place_id(z_settings *settings, bool active)
{
    settings->automatically_places_id = active;
    settings->changed_items |= Z_SETTINGS_AUTOMATICALLY_PLACE_ID;
}

void z_settings_set_default_mark_id_style(z_settings *settings, int style)
{
    if (style < 0 || style >= mark_id_style_count)
        return;
    settings->default_mark_id_style = style;
    settings->changed_items |= Z_SETTINGS_DEFAULT_MARK_ID_STYLE;
}

void z_settings_set_export_folder_path(z_settings *settings, const char *path)
{
    settings->export_folder_path.reset(g_strdup(path));
    settings->changed_items |= Z_SETTINGS_EXPORT;
}

void z_settings_set_last_used_legacy_layout_file_name(z_settings *settings, const char *file_name)
{
    settings->last_used_layout_file_name.reset(g_strdup(file_name));
    settings->changed_items |= Z_SETTINGS_LAST_USED_LAYOUT;
}

void z_settings_set_last_used_legacy_paper_id(z_settings *settings, const char *id)
{
    settings->last_used_paper_id.reset(g_strdup(id));
    settings->changed_items |= Z_SETTINGS_LAST_USED_PAPER;
}

void z_settings_set_left_handed(z_settings *settings, bool active)
{
    settings->is_left_handed = active;
    settings->changed_items |= Z_SETTINGS_LEFT_HANDED;
}

void z_settings_set_remember_tool_choice(z_settings *settings, bool active)
{
    settings->remembers_tool_choice = active;
    settings->changed_items |= Z_SETTINGS_REMEMBER_TOOL_CHOICE;
}

z_settings_language_ptr z_settings_language_new(const char *tag)
{
    z_settings_language_ptr language(new z_preferred_language);
    language->tag.reset(g_strdup(tag));
    return language;
}

z_settings_language_ptr z_settings_language_remove(z_preferred_language *language)
{
    z_link_remove(language);
    return z_settings_language_ptr(language);
}

void z_settings_language_destroy(z_preferred_language *language)
{
    if (language != nullptr)
        z_link_remove(language);
    delete language;
}

void z_settings_add_preferred_language(z_settings *settings, z_settings_language_ptr language)
{
    settings->preferred_languages.add_last(std::move(language));
    settings->changed_items |= Z_SETTINGS_PREFERRED_LANGUAGES;
}

void z_settings_destroy_preferred_languages(z_settings *settings)
{
    settings->preferred_languages.destroy_all();
    settings->changed_items |= Z_SETTINGS_PREFERRED_LANGUAGES;
}

static z_remark_ptr take_recent_remark(z_settings *settings, const char *code, const z_langstr *description)
{
    for (z_remark *remark : settings->recent_custom_remarks)
        if (std::strcmp(remark->code.get(), code) == 0 &&
            z_langstr_is_identical(remark->description.get(), description))
            return z_remark_remove(remark);
    z_remark_ptr remark = z_remark_new();
    remark->code.reset(g_strdup(code));
    remark->description = z_langstr_clone(description);
    return remark;
}

void z_settings_set_most_recent_custom_remark(z_settings *settings, const char *code_latin1,
                                              const z_langstr *description)
{
    z_remark_list &remarks = settings->recent_custom_remarks;
    remarks.add_first(take_recent_remark(settings, code_latin1, description));
    while (z_remark_get_index(remarks.get_last()) >= recent_remark_limit)
        z_remark_destroy(remarks.get_last());
    settings->changed_items |= Z_SETTINGS_RECENT_CUSTOM_REMARKS;
}

const char *z_util_get_langstr_string(const z_settings *settings, const z_langstr *langstr)
{
    return z_langstr_get_preferred_string(langstr, settings->preferred_languages);
}
