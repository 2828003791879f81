#pragma once

// What the program asks of the operating system beside files: one table of calls, filled for each system.
// Only this floor's modules call these. A test replaces an entry to stand in for another system or to make it
// fail. Texts are UTF-8, and owned by GLib's allocator where they are not constant.

struct z_platform_calls {
    // The user's locales for messages, most preferred first; ends with null.
    const char *const *(*get_locale_names)();
    // The running program's file, links resolved. Null on failure.
    char *(*get_executable_path)();
    // The user's folders. They need not exist. Null on failure.
    char *(*get_documents_folder_path)();
    char *(*get_cache_folder_path)();
    char *(*get_configuration_folder_path)();

    // Makes the folder if it is missing, and keeps others out of it. False unless it is then a real folder,
    // no link, of this user.
    bool (*make_private_folder)(const char *path);
    bool (*is_same_file)(const char *path_a, const char *path_b);

    // One try at an exclusive lock, which ends with unlock_folder or with the process and which a started
    // program does not inherit. A lock may be no_lock where the file system has none.
    int (*lock_folder)(const char *path);
    void (*unlock_folder)(int lock);
};

inline constexpr int z_platform_lock_is_held = -1; // by another program
inline constexpr int z_platform_no_lock = -2;

extern z_platform_calls z_platform;
