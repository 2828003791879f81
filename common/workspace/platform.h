#pragma once

// The operating system's own services, apart from files and folders. The rules stand here once for every
// system; what is asked of the system itself stands in platform_system.h. All texts are UTF-8, and paths have
// no trailing delimiter.

#include <cstdint>
#include <span>

#include "common/base/fs_utils.h"
#include "common/base/handles.h"
#include "common/base/utf8.h"

// The user's language as an index into the supported languages, or -1 if it is none of them.
[[nodiscard]] int z_platform_get_user_language_index();

// The same rule for a list of locale names such as "de_AT.UTF-8", most preferred first: the first whose
// dialect or at least whose language is supported.
[[nodiscard]] int z_platform_get_language_index_for_locales(std::span<const char *const> names);

// The same for a system that numbers languages: the primary language in the low 10 bits, the dialect above.
[[nodiscard]] int z_platform_get_language_index_for_identifier(uint16_t identifier);

// All zero is the empty date.
struct z_platform_date {
    int year = 0;
    int month = 0;
    int day = 0;
};

// In the short form of the user's locale. Null for an empty or impossible date.
[[nodiscard]] z_utf8_ptr z_platform_get_date_string(const z_platform_date &date);

// The folder that holds what was installed with the program: its own folder, or, where that is a "bin" folder
// shared with other programs, the "share/zanvel-templates-manager" beside it if there is one. Null on failure.
[[nodiscard]] z_utf8_ptr z_platform_get_install_folder_path();

// The user's documents folder, whether or not it exists. Null on failure.
[[nodiscard]] z_utf8_ptr z_platform_get_documents_folder_path();

// The program's own folder for temporary files, made when missing and readable by this user only. Null on
// failure, also if something that another user could have placed there is in the way.
[[nodiscard]] z_utf8_ptr z_platform_get_temp_files_folder_path();

// Where the report of this run is written that is then opened in another program. Null on failure.
[[nodiscard]] z_utf8_ptr z_platform_get_temp_legacy_printout_file_path();

// Deletes the files in the folder for temporary files whose names are meant; failing to delete one is no
// failure. False only if there is no such folder.
[[nodiscard]] bool z_platform_delete_temp_files(bool (*is_meant)(const char *name));

// An empty file for writing and reading that nobody else can open and that goes when it is closed. Null on
// failure.
[[nodiscard]] z_file_ptr z_platform_create_temp_file();

// False, with the message for the user, if too little is left where temporary files are written. A system
// that cannot tell has enough.
[[nodiscard]] bool z_platform_has_enough_disk_space_for_printing(bool smaller_need);

// Whether both paths lead to the same existing file or folder.
[[nodiscard]] bool z_platform_compare_file_system_paths(const char *a, const char *b);

// Texts that the programs of the family keep per user, by key path ("Software\Zanvel") and name. What does
// not exist reads as null and deletes with success.
[[nodiscard]] bool z_platform_read_string_from_registry(z_utf8_ptr &value, const char *key_path,
                                                        const char *value_name);
[[nodiscard]] bool z_platform_write_string_to_registry(const char *key_path, const char *value_name,
                                                       const char *text);
[[nodiscard]] bool z_platform_delete_value_in_registry(const char *key_path, const char *value_name);

// Command lines: a program and its arguments, apart by white space, except between double quotes. There only
// a backslash before a double quote is special, so that a text which ends in a backslash cannot be passed.
// No shell ever sees them.
[[nodiscard]] z_utf8_ptr z_platform_escape_string_for_command_line(const char *text);
// Null for one without a program or with an open quote.
[[nodiscard]] z_utf8_strv_ptr z_platform_split_command_line(const char *command_line);

// Changes the environment of this program only: those that it starts get back what there was at first. Null
// takes the value away.
void z_platform_set_own_environment_value(const char *name, const char *value);

// These start programs, found along the user's PATH, and set no message when that fails.
[[nodiscard]] bool z_platform_run_command_line(const char *command_line);

// What keeps the user interface alive while a process is waited for.
struct z_platform_wait_operations {
    void (*let_events_through)(gpointer data);
    void (*show_abort)(gpointer data);
    bool (*is_abort_requested)(gpointer data);
    gpointer data;
};

// Returns whether the process has ended by itself, with whatever status. With operations it runs until it
// ends, but after the timeout the user may abort it; a negative timeout never offers that. Without operations
// (null) the timeout ends it, 0 at once, and a negative one never.
[[nodiscard]] bool z_platform_run_and_wait(const char *command_line, int timeout_seconds,
                                           const z_platform_wait_operations *operations);

// Opens a document in the program that the user's desktop has chosen for its kind. Sets no message.
[[nodiscard]] bool z_platform_open_file_with_default_app(const char *path);
