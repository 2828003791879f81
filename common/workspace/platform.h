#pragma once

// The operating system's own services, apart from files and folders. The rules stand here once for every
// system; what is asked of the system itself stands in platform_system.h. All texts are UTF-8, and paths have
// no trailing delimiter.

#include <span>

#include "common/base/handles.h"

// The user's language as an index into the supported languages, or -1 if it is none of them.
[[nodiscard]] int z_platform_get_user_language_index();

// The same rule for a list of locale names such as "de_AT.UTF-8", most preferred first: the first whose
// dialect or at least whose language is supported.
[[nodiscard]] int z_platform_get_language_index_for_locales(std::span<const char *const> names);

// The folder that holds what was installed with the program: its own folder, or, where that is a "bin" folder
// shared with other programs, the "share/zanvel-templates-manager" beside it. Null on failure.
[[nodiscard]] z_utf8_ptr z_platform_get_install_folder_path();

// The user's documents folder, whether or not it exists. Null on failure.
[[nodiscard]] z_utf8_ptr z_platform_get_documents_folder_path();

// The program's own folder for temporary files, made when missing and readable by this user only. Null on
// failure, also if something that another user could have placed there is in the way.
[[nodiscard]] z_utf8_ptr z_platform_get_temp_files_folder_path();

// Whether both paths lead to the same existing file or folder.
[[nodiscard]] bool z_platform_compare_file_system_paths(const char *a, const char *b);

// Texts that the programs of the family keep per user, by key path ("Software\Zanvel") and name. What does
// not exist reads as null and deletes with success.
[[nodiscard]] bool z_platform_read_string_from_registry(z_utf8_ptr &value, const char *key_path,
                                                        const char *value_name);
[[nodiscard]] bool z_platform_write_string_to_registry(const char *key_path, const char *value_name,
                                                       const char *text);
[[nodiscard]] bool z_platform_delete_value_in_registry(const char *key_path, const char *value_name);
