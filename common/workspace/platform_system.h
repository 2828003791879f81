#pragma once

// What the program asks of the operating system beside files: one table of calls, filled for each system.
// This floor's modules call these, and the program's start. A test replaces an entry to stand in for another
// system or to make it fail. Texts are UTF-8, and owned by GLib's allocator where they are not constant.

#include <cstdint>
#include <cstdio>
#include <span>

// A value that the environment had when the program started, or null where it had none.
struct z_platform_environment_value {
    const char *name;
    const char *value;
};
using z_platform_environment = std::span<const z_platform_environment_value>;

// A started process, in the system's own numbers. None while `id` is 0.
struct z_platform_process {
    intptr_t id = 0;
    intptr_t handle = -1;
};
enum class z_platform_wait { ended, running, failed };

// Entries of the table below, in files of their own.
intptr_t z_system_lock_folder(const char *path);
void z_system_unlock(intptr_t lock);
bool z_system_start_process(const char *command_line, z_platform_environment environment,
                            z_platform_process *process);
z_platform_wait z_system_wait_for_process(z_platform_process *process, int timeout_ms);
void z_system_terminate_process(z_platform_process *process);
void z_system_close_process(z_platform_process *process);
bool z_system_open_file(const char *path, z_platform_environment environment);

struct z_platform_calls {
    // The user's language by the rule for what the system knows of it, locale names or a number.
    int (*get_user_language_index)();
    // The running program's file; not every system resolves links in it. Null on failure.
    char *(*get_executable_path)();
    // The user's own folders, for documents and for what may go at any time. They need not exist. Null on
    // failure.
    char *(*get_documents_folder_path)();
    char *(*get_user_temp_folder_path)();

    // A valid date in the short form of the user's locale. Null on failure.
    char *(*format_date)(int year, int month, int day);
    uint32_t (*get_process_id)();
    // What this user may still write to the disk where programs put what they print.
    bool (*get_free_disk_space)(uint64_t *byte_count);
    // In milliseconds since some moment; never set back.
    int64_t (*get_monotonic_time_ms)();

    // Makes the folder if it is missing, and keeps others out of it. False unless it is then a real folder,
    // no link, of this user.
    bool (*make_private_folder)(const char *path);
    // Deletes the regular files of such a folder that are meant, as far as that is possible. False unless it
    // is a real folder of this user.
    bool (*delete_files)(const char *folder_path, bool (*is_meant)(const char *name));

    // The steps to a temporary file, each of which takes what the one before gave. On failure, null or a
    // negative number, the reason is in errno and what the step was given is closed; a descriptor is left
    // open.
    //
    // The folder, which all users may share; a path in it; a new file, open for reading and writing for this
    // program alone, that goes when it is closed; its descriptor; the stream, by the C library.
    char *(*get_system_temp_folder_path)();
    char *(*make_temp_file_path)(const char *folder_path);
    intptr_t (*create_temp_file)(const char *path);
    int (*get_file_descriptor)(intptr_t file);
    FILE *(*open_file_descriptor)(int descriptor, const char *mode);

    // One try at the lock of a folder, which ends with `unlock` or with the process and which a started
    // program does not inherit.
    intptr_t (*lock_folder)(const char *path) = z_system_lock_folder;
    void (*unlock)(intptr_t lock) = z_system_unlock;

    // Starts a program without a shell; nothing of ours is open in it. Null for a process that is not waited
    // for. False if it could not be started.
    bool (*start_process)(const char *command_line, z_platform_environment environment,
                          z_platform_process *process) = z_system_start_process;
    // Returns when the process ends or after the time; -1 stands for no limit, though it may return earlier.
    z_platform_wait (*wait_for_process)(z_platform_process *process,
                                        int timeout_ms) = z_system_wait_for_process;
    void (*terminate_process)(z_platform_process *process) = z_system_terminate_process;
    void (*close_process)(z_platform_process *process) = z_system_close_process;
    // Hands the file to the program that the user's desktop has chosen for its kind.
    bool (*open_file)(const char *path, z_platform_environment environment) = z_system_open_file;
};

// What a lock is when it is none.
inline constexpr intptr_t z_platform_lock_is_held = -1; // by another program
inline constexpr intptr_t z_platform_no_lock = -2;      // the file system has none

extern z_platform_calls z_platform;
