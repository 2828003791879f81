#pragma once

// What the program asks of the operating system about files and folders: one table of calls, filled for each
// system. Only the foundation's file and stream modules call these; everything else goes through them. A test
// replaces an entry to make the system fail at that point.
//
// As the C library does, the calls answer with null, -1 or a short count on failure and leave the reason in
// errno. Paths are UTF-8 and valid as such.

#include <cstddef>
#include <cstdint>
#include <cstdio>

struct z_folder;

struct z_fs_status {
    bool is_folder;
    bool is_file;                 // a regular one
    int64_t modification_time_ns; // nanoseconds since 1970-01-01 UTC
    int64_t change_time_ns;       // of the file or of what the system says about it
    int64_t size;
    uint64_t device; // The two name a file for as long as it exists.
    uint64_t file_number;
};

// For create_file: whatever the system gives a new file.
inline constexpr int z_fs_default_permissions = -1;

struct z_fs_calls {
    // Opens regular files only, never waits for another process, and hides the file from started programs.
    // `mode` is one of the C library's.
    FILE *(*open_file)(const char *path, const char *mode);
    // Makes a file that must not exist, links included, and opens it for writing.
    FILE *(*create_file)(const char *path, int permissions);
    int (*skip)(FILE *file, int64_t byte_count);
    int (*sync)(FILE *file); // from the system to the disk

    // The C library's own, alike on every system.
    size_t (*read)(FILE *file, void *buffer, size_t size) = [](FILE *file, void *buffer, size_t size) {
        return fread(buffer, 1, size, file);
    };
    size_t (*write)(FILE *file, const void *data, size_t size) =
        [](FILE *file, const void *data, size_t size) { return fwrite(data, 1, size, file); };
    bool (*has_error)(FILE *file) = [](FILE *file) { return ferror(file) != 0; };
    int (*flush)(FILE *file) = fflush;
    int (*close)(FILE *file) = fclose;

    // Follows links.
    int (*get_status)(const char *path, z_fs_status *status);
    // Whether this user may change the contents of the regular file there and put another file in its place,
    // and the permissions that the other is to have. Follows links.
    int (*check_replaceable)(const char *path, int *permissions);
    // The path that a link at `path` leads to, where the system can tell also if nothing is there; else a
    // copy of `path`. Of GLib's allocator.
    char *(*follow_links)(const char *path);

    int (*delete_file)(const char *path);
    int (*rename)(const char *old_path, const char *new_path);  // refuses an existing target
    int (*replace)(const char *old_path, const char *new_path); // takes an existing target's place
    int (*create_folder)(const char *path);
    int (*delete_folder)(const char *path);

    z_folder *(*open_folder)(const char *path);
    // Null at the end, with errno 0. The bytes of the name are as the system stores them.
    const char *(*read_folder)(z_folder *folder);
    // Of the entry that was read last. Follows links.
    int (*get_entry_status)(z_folder *folder, z_fs_status *status);
    int (*close_folder)(z_folder *folder);
};

extern z_fs_calls z_fs;
