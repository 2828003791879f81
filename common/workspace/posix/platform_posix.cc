#include "common/workspace/platform_system.h"

#include <cerrno>

#include <fcntl.h>
#include <glib.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

static const char *const *get_locale_names()
{
    return g_get_language_names();
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

static char *get_cache_folder_path()
{
    return copy_if_utf8(g_get_user_cache_dir());
}

static char *get_configuration_folder_path()
{
    return copy_if_utf8(g_get_user_config_dir());
}

// Everything but the creation works on the open folder, so that nobody can put another in its place
// meanwhile.
static bool make_private_folder(const char *path)
{
    if (mkdir(path, 0700) != 0 && errno != EEXIST)
        return false;
    const int descriptor = open(path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    struct stat status;
    const bool is_private = fstat(descriptor, &status) == 0 && status.st_uid == geteuid() &&
                            ((status.st_mode & 077) == 0 || fchmod(descriptor, 0700) == 0);
    close(descriptor);
    return is_private;
}

static bool is_same_file(const char *path_a, const char *path_b)
{
    struct stat a, b;
    return stat(path_a, &a) == 0 && stat(path_b, &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

static int lock_folder(const char *path)
{
    const int descriptor = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return z_platform_no_lock;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return descriptor;
    const bool is_held = errno == EWOULDBLOCK || errno == EINTR;
    close(descriptor);
    return is_held ? z_platform_lock_is_held : z_platform_no_lock;
}

static void unlock_folder(int lock)
{
    close(lock);
}

z_platform_calls z_platform = {
    .get_locale_names = get_locale_names,
    .get_executable_path = get_executable_path,
    .get_documents_folder_path = get_documents_folder_path,
    .get_cache_folder_path = get_cache_folder_path,
    .get_configuration_folder_path = get_configuration_folder_path,
    .make_private_folder = make_private_folder,
    .is_same_file = is_same_file,
    .lock_folder = lock_folder,
    .unlock_folder = unlock_folder,
};
