#pragma once

// Files and folders by UTF-8 paths.
//
// A failing operation leaves the system's reason and its own sentence in z_error, and the reason's number
// where z_fs_utils_get_last_errno finds it. A path that is not UTF-8 fails with the reason of its conversion
// alone. "Does not exist" covers a path that leads through a file as if it were a folder.

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "common/base/fs_path.h"
#include "common/base/handles.h"

struct z_folder;

// Handles that end without z_fs_utils_close_file or z_fs_utils_close_folder close in silence.
void z_fs_utils_discard_file(FILE *file);
void z_fs_utils_discard_folder(z_folder *folder);
using z_file_ptr = z_ptr<FILE, z_fs_utils_discard_file>;
using z_folder_ptr = z_ptr<z_folder, z_fs_utils_discard_folder>;

struct z_fs_info {
    bool exists = false;
    bool is_folder = false;
    bool is_file = false;          // a regular one
    int64_t modification_time = 0; // seconds since 1970-01-01 UTC
    int32_t size = 0;              // bytes; the greatest value also stands for everything beyond it
};

// The standard library's number of the last failure in this module.
[[nodiscard]] int z_fs_utils_get_last_errno();

// Only regular files open, so that reading one never waits and never starts on a folder.
[[nodiscard]] z_file_ptr z_fs_utils_open_file(const char *path, const char *mode);
// None is accepted and succeeds. A failing close has closed the file all the same.
[[nodiscard]] bool z_fs_utils_close_file(z_file_ptr file);
// Hands what the library holds back to the system; fails as closing does.
[[nodiscard]] bool z_fs_utils_flush_file(FILE *file);

[[nodiscard]] z_folder_ptr z_fs_utils_open_folder(const char *path);
// Succeeds with none at the end. The entries "." and ".." are passed on; a name that is not UTF-8 is left
// out, as no path could open it.
[[nodiscard]] bool z_fs_utils_next_folder_entry(z_folder *folder, z_utf8_ptr &name);
[[nodiscard]] bool z_fs_utils_close_folder(z_folder_ptr folder);

// An existing folder is a failure, with EEXIST as its number.
[[nodiscard]] bool z_fs_utils_create_folder(const char *path);
// Creates what is missing above it, too.
[[nodiscard]] bool z_fs_utils_create_folder_recursively(const char *path);

// What does not exist is deleted already. Only an empty folder goes; a link goes itself, not what it leads
// to.
[[nodiscard]] bool z_fs_utils_delete_folder_if_exists(const char *path);
[[nodiscard]] bool z_fs_utils_delete_file_if_exists(const char *path);

// Never onto something that exists: that is EEXIST.
[[nodiscard]] bool z_fs_utils_rename(const char *old_path, const char *new_path);

// A path that does not exist gives a cleared record and succeeds. Ending delimiters do not matter.
[[nodiscard]] bool z_fs_utils_get_info(const char *path, z_fs_info &info);

// Tells a file, and each state that it was in, from every other. Equal identities mean that nobody has
// touched the file in between. What is no regular file, or does not exist, has the empty one.
struct z_fs_identity {
    bool is_file = false;
    uint64_t device = 0;
    uint64_t file_number = 0;
    int64_t size = 0;
    int64_t modification_time_ns = 0; // nanoseconds since 1970-01-01 UTC
    int64_t change_time_ns = 0;

    bool operator==(const z_fs_identity &) const = default;
};
[[nodiscard]] bool z_fs_utils_get_identity(const char *path, z_fs_identity &identity);
// Of the folder's entry that was read last, which for a whole folder takes less.
[[nodiscard]] bool z_fs_utils_get_entry_identity(z_folder *folder, z_fs_identity &identity);

// Whether both paths lead to the same existing file or folder. Sets no message.
[[nodiscard]] bool z_fs_utils_is_same_entry(const char *path_a, const char *path_b);

// Where writing to a path really goes, through a link to the file it leads to, and what a new file there is
// to have of the old one.
struct z_fs_target {
    z_utf8_ptr path;
    int permissions = 0;
    bool exists = false;
};

// Fails if there is something that is not a regular file or that this user may not write.
[[nodiscard]] bool z_fs_utils_find_target(const char *path, z_fs_target &target);

// Writing a file anew by deleting it, once it is found, and creating it again. The two steps stand apart
// because a writer names them apart.
[[nodiscard]] bool z_fs_utils_delete_target(const char *path, z_fs_target &target);
[[nodiscard]] z_file_ptr z_fs_utils_create_target(const z_fs_target &target);

// Puts a whole file into place: first beside it under a hidden name, on the disk and closed, then by one
// rename, so that whoever looks sees the old file or the new one. A failure leaves the old one and nothing
// else. Links and permissions are treated as above.
enum class z_fs_existing { replace, refuse };
[[nodiscard]] bool z_fs_utils_put_file(const char *path, const void *data, size_t size,
                                       z_fs_existing existing);

// The same onto a target that was found, in two steps for such a writer. Once made, the neighbour has to be
// put.
struct z_fs_neighbour {
    z_utf8_ptr path;
    z_file_ptr file;
};
[[nodiscard]] bool z_fs_utils_create_neighbour(const z_fs_target &target, z_fs_neighbour &neighbour);
[[nodiscard]] bool z_fs_utils_put_neighbour(const z_fs_target &target, z_fs_neighbour neighbour,
                                            const void *data, size_t size, z_fs_existing existing);

// The encodings that GLib and interfaces with 8-bit paths want file names in.
[[nodiscard]] z_utf8_ptr z_fs_utils_convert_glibfsenc_to_utf8(const char *name);
[[nodiscard]] z_ptr<char, g_free> z_fs_utils_convert_utf8_to_glibfsenc(const char *name);
[[nodiscard]] z_ptr<char, g_free> z_fs_utils_convert_utf8_to_osfsenc(const char *name);
