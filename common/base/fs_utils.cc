#include "common/base/fs_utils.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/fs_system.h"

static int last_errno = 0;

static const char cannot_close_text[] = "Cannot close file.";
static const char cannot_open_text[] = "Cannot open file.";
static const char cannot_rename_text[] = "Cannot rename file/folder.";
static const char cannot_unlink_text[] = "Cannot unlink file.";

// Returns false, for the caller to return in turn.
static bool fail(const char *sentence)
{
    last_errno = errno;
    z_error_set_from_errno();
    z_error_append(sentence);
    return false;
}

// Other systems convert every path; where paths are bytes this is what is left of it.
static bool check_path(const char *path)
{
    if (g_utf8_validate(path, -1, nullptr) || z_convert_utf8_to_utf16(path) != nullptr)
        return true;
    last_errno = EILSEQ;
    return false;
}

static bool is_missing(int reason)
{
    return reason == ENOENT || reason == ENOTDIR;
}

// Keeps the reason of the failure that it tidies up after.
static void delete_quietly(const char *path)
{
    const int reason = errno;
    z_fs.delete_file(path);
    errno = reason;
}

void z_fs_utils_discard_file(FILE *file)
{
    const int reason = errno;
    z_fs.close(file);
    errno = reason;
}

void z_fs_utils_discard_folder(z_folder *folder)
{
    z_fs.close_folder(folder);
}

int z_fs_utils_get_last_errno()
{
    return last_errno;
}

z_file_ptr z_fs_utils_open_file(const char *path, const char *mode)
{
    if (!check_path(path))
        return nullptr;
    z_file_ptr file(z_fs.open_file(path, mode));
    if (file == nullptr)
        fail(cannot_open_text);
    return file;
}

bool z_fs_utils_close_file(z_file_ptr file)
{
    if (file == nullptr)
        return true;
    return z_fs.close(file.release()) == 0 || fail(cannot_close_text);
}

bool z_fs_utils_flush_file(FILE *file)
{
    return z_fs.flush(file) == 0 || fail(cannot_close_text);
}

z_folder_ptr z_fs_utils_open_folder(const char *path)
{
    if (!check_path(path))
        return nullptr;
    z_folder_ptr folder(z_fs.open_folder(path));
    if (folder == nullptr)
        fail("Cannot open folder.");
    return folder;
}

bool z_fs_utils_next_folder_entry(z_folder *folder, z_utf8_ptr &name)
{
    name.reset();
    while (const char *entry = z_fs.read_folder(folder)) {
        if (!g_utf8_validate(entry, -1, nullptr))
            continue;
        name.reset(g_strdup(entry));
        return true;
    }
    return errno == 0 || fail("Cannot read folder contents.");
}

bool z_fs_utils_close_folder(z_folder_ptr folder)
{
    if (folder == nullptr)
        return true;
    return z_fs.close_folder(folder.release()) == 0 || fail("Cannot close folder.");
}

bool z_fs_utils_create_folder(const char *path)
{
    return check_path(path) && (z_fs.create_folder(path) == 0 || fail("Cannot create folder."));
}

bool z_fs_utils_create_folder_recursively(const char *path)
{
    const z_utf8_ptr parent(g_strdup(path));
    z_fs_utils_strip_ending_path_delimiters(parent.get());
    z_fs_utils_strip_entry_name_from_path(parent.get());
    // Nothing is above a relative name or the root.
    const bool has_parent = parent.get()[0] != '\0' && std::strlen(parent.get()) < std::strlen(path);
    z_fs_info info;
    if (has_parent && z_fs_utils_get_info(parent.get(), info) && !info.exists &&
        !z_fs_utils_create_folder_recursively(parent.get()))
        return false;
    return z_fs_utils_create_folder(path);
}

bool z_fs_utils_delete_folder_if_exists(const char *path)
{
    return check_path(path) &&
           (z_fs.delete_folder(path) == 0 || is_missing(errno) || fail("Cannot delete folder."));
}

bool z_fs_utils_delete_file_if_exists(const char *path)
{
    return check_path(path) && (z_fs.delete_file(path) == 0 || is_missing(errno) || fail(cannot_unlink_text));
}

bool z_fs_utils_rename(const char *old_path, const char *new_path)
{
    return check_path(old_path) && check_path(new_path) &&
           (z_fs.rename(old_path, new_path) == 0 || fail(cannot_rename_text));
}

// A file's path may be written as if it were a folder's.
static int get_status(const char *path, z_fs_status *status)
{
    const z_utf8_ptr shorter(g_strdup(path));
    size_t length = std::strlen(path);
    int result = z_fs.get_status(path, status);
    while (result != 0 && is_missing(errno) && length > 0 &&
           shorter.get()[length - 1] == z_fs_path_delimiter) {
        shorter.get()[--length] = '\0';
        result = z_fs.get_status(shorter.get(), status);
    }
    return result;
}

bool z_fs_utils_get_info(const char *path, z_fs_info &info)
{
    info = z_fs_info{};
    if (!check_path(path))
        return false;
    z_fs_status status;
    if (get_status(path, &status) != 0)
        return is_missing(errno) || fail("Cannot get file status.");
    info = {true, status.is_folder, status.is_file, status.modification_time_ns / 1'000'000'000,
            static_cast<int32_t>(std::min<int64_t>(status.size, INT32_MAX))};
    return true;
}

// `result` is that of the call that has filled the status.
static bool make_identity(int result, const z_fs_status &status, z_fs_identity &identity)
{
    if (result != 0)
        return is_missing(errno) || fail("Cannot get file status.");
    if (status.is_file)
        identity = {true,
                    status.device,
                    status.file_number,
                    status.size,
                    status.modification_time_ns,
                    status.change_time_ns};
    return true;
}

bool z_fs_utils_get_identity(const char *path, z_fs_identity &identity)
{
    identity = z_fs_identity{};
    z_fs_status status;
    return check_path(path) && make_identity(z_fs.get_status(path, &status), status, identity);
}

bool z_fs_utils_get_entry_identity(z_folder *folder, z_fs_identity &identity)
{
    identity = z_fs_identity{};
    z_fs_status status;
    return make_identity(z_fs.get_entry_status(folder, &status), status, identity);
}

bool z_fs_utils_is_same_entry(const char *path_a, const char *path_b)
{
    z_fs_status a, b;
    return get_status(path_a, &a) == 0 && get_status(path_b, &b) == 0 && a.device == b.device &&
           a.file_number == b.file_number;
}

// Sets errno, no text.
static bool find_target(const char *path, z_fs_target &target)
{
    target = {z_utf8_ptr(z_fs.follow_links(path)), z_fs_default_permissions};
    if (target.path == nullptr)
        return false;
    target.exists = z_fs.check_replaceable(target.path.get(), &target.permissions) == 0;
    return target.exists || is_missing(errno);
}

bool z_fs_utils_find_target(const char *path, z_fs_target &target)
{
    return check_path(path) && (find_target(path, target) || fail(cannot_unlink_text));
}

bool z_fs_utils_delete_target(const char *path, z_fs_target &target)
{
    return z_fs_utils_find_target(path, target) &&
           (!target.exists || z_fs_utils_delete_file_if_exists(target.path.get()));
}

z_file_ptr z_fs_utils_create_target(const z_fs_target &target)
{
    z_file_ptr file(z_fs.create_file(target.path.get(), target.permissions));
    if (file == nullptr)
        fail(cannot_open_text);
    return file;
}

bool z_fs_utils_create_neighbour(const z_fs_target &target, z_fs_neighbour &neighbour)
{
    const z_utf8_ptr folder(g_strdup(target.path.get()));
    z_fs_utils_strip_entry_name_from_path(folder.get());
    do {
        const z_utf8_ptr name(g_strdup_printf(".zanvel-%08x", g_random_int()));
        neighbour.path = z_fs_utils_create_path_in_folder(folder.get(), name.get());
        neighbour.file.reset(z_fs.create_file(neighbour.path.get(), target.permissions));
    } while (neighbour.file == nullptr && errno == EEXIST);
    return neighbour.file != nullptr || fail(cannot_open_text);
}

static bool write_to_disk(z_file_ptr file, const void *data, size_t size)
{
    if (z_fs.write(file.get(), data, size) != size) {
        last_errno = errno;
        z_error_set("File write error.");
        return false;
    }
    if (!z_fs_utils_flush_file(file.get()))
        return false;
    if (z_fs.sync(file.get()) != 0)
        return fail(cannot_close_text);
    return z_fs_utils_close_file(std::move(file));
}

bool z_fs_utils_put_neighbour(const z_fs_target &target, z_fs_neighbour neighbour, const void *data,
                              size_t size, z_fs_existing existing)
{
    const auto move_into_place = existing == z_fs_existing::replace ? z_fs.replace : z_fs.rename;
    if (write_to_disk(std::move(neighbour.file), data, size)) {
        if (move_into_place(neighbour.path.get(), target.path.get()) == 0)
            return true;
        fail(cannot_rename_text);
    }
    delete_quietly(neighbour.path.get());
    return false;
}

bool z_fs_utils_put_file(const char *path, const void *data, size_t size, z_fs_existing existing)
{
    if (!check_path(path))
        return false;
    z_fs_target target{z_utf8_ptr(g_strdup(path)), z_fs_default_permissions};
    if (existing == z_fs_existing::replace && !find_target(path, target))
        return fail(cannot_open_text);
    z_fs_neighbour neighbour;
    return z_fs_utils_create_neighbour(target, neighbour) &&
           z_fs_utils_put_neighbour(target, std::move(neighbour), data, size, existing);
}

z_utf8_ptr z_fs_utils_convert_glibfsenc_to_utf8(const char *name)
{
    z_gerror_ptr error;
    z_utf8_ptr converted(g_filename_to_utf8(name, -1, nullptr, nullptr, z_out(error)));
    if (converted == nullptr) {
        z_error_set_from_gerror_and_free(std::move(error));
        z_error_append("Could not convert filename to unicode.");
    }
    return converted;
}

z_ptr<char, g_free> z_fs_utils_convert_utf8_to_glibfsenc(const char *name)
{
    z_gerror_ptr error;
    z_ptr<char, g_free> converted(g_filename_from_utf8(name, -1, nullptr, nullptr, z_out(error)));
    if (converted == nullptr) {
        z_error_set_from_gerror_and_free(std::move(error));
        z_error_append("Could not use filename.");
    }
    return converted;
}

z_ptr<char, g_free> z_fs_utils_convert_utf8_to_osfsenc(const char *name)
{
    z_ptr<char, g_free> converted(g_locale_from_utf8(name, -1, nullptr, nullptr, nullptr));
    if (converted == nullptr)
        z_error_set_utf8_printf(
            "Could not use filename because of unicode characters not representable in the "
            "system codepage:\n\n%s",
            name);
    return converted;
}
