#pragma once

// The user's personal settings, kept in "settings.xml" in the workspace folder.
//
// The file is shared with the other programs of the family, so each item can be loaded by itself. A new
// record holds the defaults; loading replaces those that the file names. What matters to every window is the
// ordered list of preferred languages: it decides in which language multilingual texts are shown.

#include <cstdint>

#include "common/base/handles.h"
#include "common/base/list.h"
#include "common/model/langstr.h"
#include "common/model/remark.h"

struct z_settings;
void z_settings_destroy(z_settings *settings);
void z_settings_language_destroy(z_preferred_language *language);
using z_settings_ptr = z_ptr<z_settings, z_settings_destroy>;
using z_settings_language_ptr = z_ptr<z_preferred_language, z_settings_language_destroy>;

// The items of the file, as bits of a mask.
enum z_settings_item : uint32_t {
    Z_SETTINGS_ARCHIVE = 1 << 0,
    Z_SETTINGS_AUTOMATICALLY_PLACE_ID = 1 << 1,
    Z_SETTINGS_DEFAULT_MARK_ID_STYLE = 1 << 2,
    Z_SETTINGS_DEFAULT_PRINTOUT = 1 << 3,
    Z_SETTINGS_EXPORT = 1 << 4,
    Z_SETTINGS_LAST_USED_LAYOUT = 1 << 5,
    Z_SETTINGS_LAST_USED_PAPER = 1 << 6,
    Z_SETTINGS_LEFT_HANDED = 1 << 7,
    Z_SETTINGS_PREFERRED_LANGUAGES = 1 << 8,
    Z_SETTINGS_RECENT_CUSTOM_REMARKS = 1 << 9,
    Z_SETTINGS_REMEMBER_TOOL_CHOICE = 1 << 10,
};
inline constexpr uint32_t Z_SETTINGS_EVERYTHING = UINT32_MAX;

enum class z_printout_identifier { none, object_id, inventory_id, inventory_id_or_object_id };
enum class z_codeset_filter_level { from_all_codesets = 1, from_primary_codeset_only, from_no_codeset };
enum class z_mark_filter_level { from_all_views = 1, from_this_view_only, from_no_view };

// What a printout shows on one kind of its pages.
struct z_page_filter_settings {
    bool shows_details;
    bool shows_legend;
    z_codeset_filter_level codeset_filter_level = z_codeset_filter_level::from_primary_codeset_only;
    z_mark_filter_level mark_filter_level = z_mark_filter_level::from_all_views;
};

struct z_printout_settings {
    z_printout_identifier identifier = z_printout_identifier::object_id;
    z_utf8_ptr layout_file_name; // Null when none was chosen.
    z_utf8_ptr paper_name;
    bool is_landscape = false;
    z_page_filter_settings text_page = {.shows_details = true, .shows_legend = false};
    z_page_filter_settings view_page = {.shows_details = false, .shows_legend = true};
    bool shows_page_numbers = true;
    bool shows_report_type = true;
};

// No text is null unless its comment says so.
struct z_settings {
    z_utf8_ptr file_path;
    z_utf8_ptr archive_path;
    bool automatically_places_id = false;
    int default_mark_id_style = 0; // 0 to 2
    z_printout_settings default_printout;
    z_utf8_ptr export_folder_path;
    z_utf8_ptr last_used_layout_file_name;
    z_utf8_ptr last_used_paper_id;
    bool is_left_handed = false;
    z_list<z_preferred_language> preferred_languages; // Most preferred first.
    z_remark_list recent_custom_remarks;              // Newest first, at most five.
    bool remembers_tool_choice = false;
    uint32_t changed_items = 0; // Set by the setters, and not yet saved.
};

// The defaults for the user of this computer.
[[nodiscard]] z_settings_ptr z_settings_new(const char *workspace_folder_path);

// Reads the items of the mask. A missing file leaves the defaults and succeeds. On failure what was read
// stays and the rest is as before.
[[nodiscard]] bool z_settings_load(z_settings *settings, uint32_t items);

// Writes the items of the mask into the file, which another program may be doing at the same time. On failure
// the file stays as it was; one that cannot be loaded is never written.
[[nodiscard]] bool z_settings_save(z_settings *settings, uint32_t items);

// The setters copy what they are given.
void z_settings_set_archive_path(z_settings *settings, const char *path);
void z_settings_set_automatically_place_id(z_settings *settings, bool active);
void z_settings_set_default_mark_id_style(z_settings *settings, int style); // Ignores what is no style.
void z_settings_set_export_folder_path(z_settings *settings, const char *path);
void z_settings_set_last_used_legacy_layout_file_name(z_settings *settings, const char *file_name);
void z_settings_set_last_used_legacy_paper_id(z_settings *settings, const char *id);
void z_settings_set_left_handed(z_settings *settings, bool active);
void z_settings_set_remember_tool_choice(z_settings *settings, bool active);

[[nodiscard]] z_settings_language_ptr z_settings_language_new(const char *tag);
// Knows no settings and so notes no change.
[[nodiscard]] z_settings_language_ptr z_settings_language_remove(z_preferred_language *language);
void z_settings_add_preferred_language(z_settings *settings, z_settings_language_ptr language);
void z_settings_destroy_preferred_languages(z_settings *settings);

// Moves the remark with this code and exactly this description to the front, or adds it there.
void z_settings_set_most_recent_custom_remark(z_settings *settings, const char *code_latin1,
                                              const z_langstr *description);

// The text of the langstr to show this user, in Latin-1. Borrowed; null for the empty langstr.
[[nodiscard]] const char *z_util_get_langstr_string(const z_settings *settings, const z_langstr *langstr);
