#pragma once

// Paths as texts: composing them and taking them apart. Nothing here looks at the disk.
//
// There is one delimiter, the system's. Where that is the slash, a path of nothing but delimiters names the
// root folder, and stays "/" whatever is taken off it; where it is the backslash, such a path names nothing
// and becomes empty. Components are not examined for delimiters of their own. Texts are UTF-8.

#include <cstddef>

#include "common/base/handles.h"

// Defined for each system.
extern const char z_fs_path_delimiter;

// Defined for each system: whether it names the same place whatever folder, or drive, the program is on.
[[nodiscard]] bool z_fs_path_is_absolute(const char *path);

// The folder without its trailing delimiters, then each component that is not empty, each after one delimiter
// unless nothing stands before it.
[[nodiscard]] z_utf8_ptr z_fs_utils_create_path_in_folder_(const char *folder, const char *const *components,
                                                           size_t count);

template <typename... Components>
[[nodiscard]] z_utf8_ptr z_fs_utils_create_path_in_folder(const char *folder, Components... components)
{
    const char *const array[] = {components..., nullptr};
    return z_fs_utils_create_path_in_folder_(folder, array, sizeof...(components));
}

// An empty path stays empty.
[[nodiscard]] z_utf8_ptr z_fs_utils_end_folder_path_with_a_single_delimiter(const char *path);

// In place.
void z_fs_utils_strip_ending_path_delimiters(char *path);

// In place: leaves the parent folder, without ending delimiters; "" when the path names none.
void z_fs_utils_strip_entry_name_from_path(char *path);

// What follows the last delimiter: a place within `path`, which may be its terminating NUL.
[[nodiscard]] const char *z_fs_utils_find_entry_name_in_path(const char *path);

// Whether the path is `name` or ends with a delimiter and `name`, byte by byte.
[[nodiscard]] bool z_fs_utils_is_file_name_in_path(const char *path, const char *name);
