#include "common/base/fs_system.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/base/fs_path.h"

const char z_fs_path_delimiter = '/';

bool z_fs_path_is_absolute(const char *path)
{
    return path[0] == '/';
}

struct z_folder {
    DIR *stream;
    const dirent *entry; // read last
};

// For errno to survive what tidies up after a failure.
static void close_descriptor(int descriptor)
{
    const int reason = errno;
    close(descriptor);
    errno = reason;
}

static bool is_regular_file(int descriptor)
{
    struct stat status;
    if (fstat(descriptor, &status) != 0)
        return false;
    if (S_ISREG(status.st_mode))
        return true;
    errno = S_ISDIR(status.st_mode) ? EISDIR : EOPNOTSUPP;
    return false;
}

static FILE *make_file(int descriptor, const char *mode)
{
    FILE *file = fdopen(descriptor, mode);
    if (file == nullptr)
        close_descriptor(descriptor);
    return file;
}

static int get_open_flags(const char *mode)
{
    const int access = std::strchr(mode, '+') != nullptr ? O_RDWR : mode[0] == 'r' ? O_RDONLY : O_WRONLY;
    const int creation = mode[0] == 'r' ? 0 : mode[0] == 'a' ? O_CREAT | O_APPEND : O_CREAT | O_TRUNC;
    return access | creation;
}

// Without O_NONBLOCK a FIFO would wait for its other end; a regular file does not notice it.
static FILE *open_file(const char *path, const char *mode)
{
    const int descriptor = open(path, get_open_flags(mode) | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, 0666);
    if (descriptor < 0)
        return nullptr;
    if (!is_regular_file(descriptor)) {
        close_descriptor(descriptor);
        return nullptr;
    }
    return make_file(descriptor, mode);
}

// Given permissions hold whatever the process masks, so they are set once the file exists.
static FILE *create_file(const char *path, int permissions)
{
    const bool has_permissions = permissions != z_fs_default_permissions;
    const int descriptor =
        open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, has_permissions ? 0600 : 0666);
    if (descriptor < 0)
        return nullptr;
    if (has_permissions && fchmod(descriptor, static_cast<mode_t>(permissions)) != 0) {
        close_descriptor(descriptor);
        const int reason = errno;
        unlink(path);
        errno = reason;
        return nullptr;
    }
    return make_file(descriptor, "wb");
}

static int skip_in_file(FILE *file, int64_t byte_count)
{
    return fseeko(file, byte_count, SEEK_CUR);
}

static int sync_file(FILE *file)
{
    return fsync(fileno(file));
}

static int64_t to_nanoseconds(const timespec &time)
{
    return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

static int get_status_in(int folder, const char *path, z_fs_status *result)
{
    struct stat status;
    if (fstatat(folder, path, &status, 0) != 0)
        return -1;
    *result = {.is_folder = S_ISDIR(status.st_mode),
               .is_file = S_ISREG(status.st_mode),
               .modification_time_ns = to_nanoseconds(status.st_mtim),
               .change_time_ns = to_nanoseconds(status.st_ctim),
               .size = status.st_size,
               .device = status.st_dev,
               .file_number = status.st_ino};
    return 0;
}

static int get_status(const char *path, z_fs_status *status)
{
    return get_status_in(AT_FDCWD, path, status);
}

static int check_replaceable(const char *path, int *permissions)
{
    struct stat status;
    if (stat(path, &status) != 0)
        return -1;
    if (!S_ISREG(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EOPNOTSUPP;
        return -1;
    }
    *permissions = static_cast<int>(status.st_mode & 0777);
    const z_utf8_ptr folder_path(g_path_get_dirname(path));
    const int result = faccessat(AT_FDCWD, path, W_OK, AT_EACCESS);
    return result == 0 ? faccessat(AT_FDCWD, folder_path.get(), W_OK, AT_EACCESS) : result;
}

// What `path` says if it is a link, seen from the link's own folder; null with errno EINVAL if it is none.
static char *read_link(const char *path)
{
    char text[PATH_MAX];
    const ssize_t length = readlink(path, text, sizeof text - 1);
    if (length < 0)
        return nullptr;
    text[length] = '\0';
    if (text[0] == '/')
        return g_strdup(text);
    const z_utf8_ptr folder(g_strdup(path));
    z_fs_utils_strip_entry_name_from_path(folder.get());
    return z_fs_utils_create_path_in_folder(folder.get(), text).release();
}

static char *follow_links(const char *path)
{
    const int most_links = 40; // as many as the system itself follows
    z_utf8_ptr place(g_strdup(path));
    for (int count = 0; count <= most_links; ++count) {
        z_utf8_ptr next(read_link(place.get()));
        if (next == nullptr)
            return errno == EINVAL || errno == ENOENT || errno == ENOTDIR ? place.release() : nullptr;
        place = std::move(next);
    }
    errno = ELOOP;
    return nullptr;
}

// File systems that cannot refuse by themselves say EINVAL. Looking first leaves a gap, but no better way.
static int rename_without_replacing(const char *old_path, const char *new_path)
{
    if (renameat2(AT_FDCWD, old_path, AT_FDCWD, new_path, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return -1;
    struct stat status;
    if (lstat(new_path, &status) == 0) {
        errno = EEXIST;
        return -1;
    }
    return rename(old_path, new_path);
}

static int create_folder(const char *path)
{
    return mkdir(path, 0777);
}

static z_folder *open_folder(const char *path)
{
    DIR *stream = opendir(path);
    return stream != nullptr ? std::make_unique<z_folder>(z_folder{stream, nullptr}).release() : nullptr;
}

static const char *read_folder(z_folder *folder)
{
    errno = 0;
    folder->entry = readdir(folder->stream);
    return folder->entry != nullptr ? folder->entry->d_name : nullptr;
}

static int get_entry_status(z_folder *folder, z_fs_status *status)
{
    return get_status_in(dirfd(folder->stream), folder->entry->d_name, status);
}

static int close_folder(z_folder *folder)
{
    return closedir(std::unique_ptr<z_folder>(folder)->stream);
}

z_fs_calls z_fs = {
    .open_file = open_file,
    .create_file = create_file,
    .skip = skip_in_file,
    .sync = sync_file,
    .get_status = get_status,
    .check_replaceable = check_replaceable,
    .follow_links = follow_links,
    .delete_file = unlink,
    .rename = rename_without_replacing,
    .replace = rename,
    .create_folder = create_folder,
    .delete_folder = rmdir,
    .open_folder = open_folder,
    .read_folder = read_folder,
    .get_entry_status = get_entry_status,
    .close_folder = close_folder,
};
