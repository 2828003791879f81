#include "common/workspace/platform_system.h"

#include <cerrno>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "common/base/handles.h"
#include "common/workspace/platform.h"

static int get_user_language_index()
{
    const char *const *names = g_get_language_names();
    size_t count = 0;
    while (names[count] != nullptr)
        ++count;
    return z_platform_get_language_index_for_locales({names, count});
}

// Null for a path that is not UTF-8: nothing could be opened by it.
static char *copy_if_utf8(const char *path)
{
    return path != nullptr && g_utf8_validate(path, -1, nullptr) ? g_strdup(path) : nullptr;
}

static char *get_executable_path()
{
    char *path = g_file_read_link("/proc/self/exe", nullptr);
    char *valid = copy_if_utf8(path);
    g_free(path);
    return valid;
}

static char *get_documents_folder_path()
{
    const char *path = g_get_user_special_dir(G_USER_DIRECTORY_DOCUMENTS);
    return copy_if_utf8(path != nullptr ? path : g_get_home_dir());
}

// The system's folder for temporary files is not the user's own.
static char *get_user_temp_folder_path()
{
    return copy_if_utf8(g_get_user_cache_dir());
}

static char *format_date(int year, int month, int day)
{
    const z_ptr<GDateTime, g_date_time_unref> date(g_date_time_new_utc(year, month, day, 0, 0, 0));
    return date != nullptr ? g_date_time_format(date.get(), "%x") : nullptr;
}

static uint32_t get_process_id()
{
    return static_cast<uint32_t>(getpid());
}

static bool get_free_disk_space(uint64_t *byte_count)
{
    struct statvfs status;
    if (statvfs(g_get_user_cache_dir(), &status) != 0)
        return false;
    *byte_count = uint64_t{status.f_bavail} * status.f_frsize;
    return true;
}

static int64_t get_monotonic_time_ms()
{
    return g_get_monotonic_time() / 1000;
}

// Everything else works on the open folder, so that nobody can put another in its place meanwhile.
static int open_own_folder(const char *path, struct stat &status)
{
    const int descriptor = open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0 || (fstat(descriptor, &status) == 0 && status.st_uid == geteuid()))
        return descriptor;
    close(descriptor);
    return -1;
}

static bool make_private_folder(const char *path)
{
    if (mkdir(path, 0700) != 0 && errno != EEXIST)
        return false;
    struct stat status;
    const int descriptor = open_own_folder(path, status);
    if (descriptor < 0)
        return false;
    const bool is_private = (status.st_mode & 077) == 0 || fchmod(descriptor, 0700) == 0;
    close(descriptor);
    return is_private;
}

static bool delete_files(const char *folder_path, bool (*is_meant)(const char *name))
{
    struct stat status;
    const int descriptor = open_own_folder(folder_path, status);
    if (descriptor < 0)
        return false;
    DIR *folder = fdopendir(descriptor);
    if (folder == nullptr) {
        close(descriptor);
        return false;
    }
    while (const dirent *entry = readdir(folder)) {
        if (g_utf8_validate(entry->d_name, -1, nullptr) && is_meant(entry->d_name) &&
            fstatat(descriptor, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode))
            unlinkat(descriptor, entry->d_name, 0);
    }
    closedir(folder);
    return true;
}

static char *get_system_temp_folder_path()
{
    return copy_if_utf8(g_get_tmp_dir());
}

// A pattern: the name is found together with the file.
static char *make_temp_file_path(const char *folder_path)
{
    return g_build_filename(folder_path, "zanXXXXXX", nullptr);
}

// Nobody can find the file by its name once it is here.
static intptr_t create_temp_file(const char *path)
{
    const z_utf8_ptr found_path(g_strdup(path));
    const int descriptor = mkostemp(found_path.get(), O_CLOEXEC);
    if (descriptor >= 0)
        unlink(found_path.get());
    return descriptor;
}

static int get_file_descriptor(intptr_t file)
{
    return static_cast<int>(file);
}

z_platform_calls z_platform = {
    .get_user_language_index = get_user_language_index,
    .get_executable_path = get_executable_path,
    .get_documents_folder_path = get_documents_folder_path,
    .get_user_temp_folder_path = get_user_temp_folder_path,
    .format_date = format_date,
    .get_process_id = get_process_id,
    .get_free_disk_space = get_free_disk_space,
    .get_monotonic_time_ms = get_monotonic_time_ms,
    .make_private_folder = make_private_folder,
    .delete_files = delete_files,
    .get_system_temp_folder_path = get_system_temp_folder_path,
    .make_temp_file_path = make_temp_file_path,
    .create_temp_file = create_temp_file,
    .get_file_descriptor = get_file_descriptor,
    .open_file_descriptor = fdopen,
};
