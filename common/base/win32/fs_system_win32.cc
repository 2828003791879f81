#include "common/base/win32/fs_system_win32.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <io.h>

#include "common/base/fs_path.h"
#include "common/base/fs_system.h"
#include "common/base/win32/handle_win32.h"

const char z_fs_path_delimiter = '\\';

// A single delimiter in front stands for the current drive's root.
bool z_fs_path_is_absolute(const char *path)
{
    const auto is_delimiter = [](char byte) { return byte == '\\' || byte == '/'; };
    if (is_delimiter(path[0]))
        return is_delimiter(path[1]);
    return g_ascii_isalpha(path[0]) && path[1] == ':' && is_delimiter(path[2]);
}

// What a file written anew keeps of the one before. The system knows no permissions in the sense of the
// others; a file that may not be written is left alone anyway.
static constexpr DWORD kept_attributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

// Each call of the system takes as long as copying much more than the C library's own buffer holds.
static constexpr size_t file_buffer_size = 65'536;

decltype(&GetFileInformationByHandleEx) z_win32_list_entries = GetFileInformationByHandleEx;

struct folder_entry {
    std::wstring name;
    std::optional<z_fs_status> status; // where the system has told it with the name
};

struct z_folder {
    std::string path;
    std::vector<folder_entry> entries;
    size_t read_count;
    std::string name; // of the entry that was read last
};

static bool has_attribute(const std::wstring &path, DWORD attribute)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & attribute) != 0;
}

// The system does not tell a folder from a file that may not be touched.
static int fail_for_file(const std::wstring &path)
{
    z_win32_fail();
    if (errno == EACCES && has_attribute(path, FILE_ATTRIBUTE_DIRECTORY))
        errno = EISDIR;
    return -1;
}

// Null on failure, with the reason in errno. Nobody else is locked out, and started programs do not inherit
// the handle. A folder is opened only with FILE_FLAG_BACKUP_SEMANTICS.
static z_win32_handle_ptr open_handle(const char *path, DWORD access, DWORD creation, DWORD flags)
{
    const std::wstring wide = z_win32_make_path(path);
    if (wide.empty())
        return nullptr;
    const HANDLE handle =
        CreateFileW(wide.c_str(), access, z_win32_share_all, nullptr, creation, flags, nullptr);
    if (handle != INVALID_HANDLE_VALUE)
        return z_win32_handle_ptr(handle);
    if ((flags & FILE_FLAG_BACKUP_SEMANTICS) != 0)
        z_win32_fail();
    else
        fail_for_file(wide);
    return nullptr;
}

// `mode` is one of the C library's. Line ends are never translated.
static FILE *make_file(z_win32_handle_ptr handle, const char *mode)
{
    const bool is_updated = std::strchr(mode, '+') != nullptr;
    const char binary_mode[] = {mode[0], 'b', is_updated ? '+' : '\0', '\0'};
    const int flags = _O_BINARY | _O_NOINHERIT | (mode[0] == 'a' ? _O_APPEND : 0);
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle.get()), flags);
    if (descriptor < 0)
        return nullptr;
    static_cast<void>(handle.release());
    FILE *file = _fdopen(descriptor, binary_mode);
    if (file == nullptr)
        _close(descriptor);
    else
        static_cast<void>(std::setvbuf(file, nullptr, _IOFBF, file_buffer_size));
    return file;
}

// A link may lead to a pipe.
static bool is_regular_file(const z_win32_handle_ptr &handle)
{
    return GetFileType(handle.get()) == FILE_TYPE_DISK;
}

static DWORD get_access(const char *mode)
{
    if (std::strchr(mode, '+') != nullptr)
        return GENERIC_READ | GENERIC_WRITE;
    return mode[0] == 'r' ? GENERIC_READ : GENERIC_WRITE;
}

// A hidden file cannot be opened by the creation mode that would empty it, so that is a step of its own.
static FILE *open_file(const char *path, const char *mode)
{
    const DWORD creation = mode[0] == 'r' ? OPEN_EXISTING : OPEN_ALWAYS;
    z_win32_handle_ptr handle = open_handle(path, get_access(mode), creation, FILE_ATTRIBUTE_NORMAL);
    if (handle == nullptr)
        return nullptr;
    if (!is_regular_file(handle)) {
        errno = EOPNOTSUPP;
        return nullptr;
    }
    if (mode[0] == 'w' && !SetEndOfFile(handle.get())) {
        z_win32_fail();
        return nullptr;
    }
    return make_file(std::move(handle), mode);
}

static FILE *create_file(const char *path, int permissions)
{
    const DWORD attributes =
        permissions != z_fs_default_permissions ? static_cast<DWORD>(permissions) : FILE_ATTRIBUTE_NORMAL;
    z_win32_handle_ptr handle =
        open_handle(path, GENERIC_WRITE, CREATE_NEW, attributes | FILE_FLAG_OPEN_REPARSE_POINT);
    return handle != nullptr ? make_file(std::move(handle), "w") : nullptr;
}

static int skip_in_file(FILE *file, int64_t byte_count)
{
    return _fseeki64(file, byte_count, SEEK_CUR);
}

static int sync_file(FILE *file)
{
    return _commit(_fileno(file));
}

// The system counts tenths of a microsecond since 1601.
static int64_t to_nanoseconds(const LARGE_INTEGER &time)
{
    return (time.QuadPart - 116'444'736'000'000'000) * 100;
}

static uint64_t join(DWORD high, DWORD low)
{
    return uint64_t{high} << 32 | low;
}

static int get_status(const char *path, z_fs_status *result)
{
    const z_win32_handle_ptr handle =
        open_handle(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (handle == nullptr)
        return -1;
    BY_HANDLE_FILE_INFORMATION status;
    FILE_BASIC_INFO times;
    if (!GetFileInformationByHandle(handle.get(), &status) ||
        !GetFileInformationByHandleEx(handle.get(), FileBasicInfo, &times, sizeof times))
        return z_win32_fail();
    const bool is_folder = (status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    *result = {.is_folder = is_folder,
               .is_file = !is_folder && is_regular_file(handle),
               .modification_time_ns = to_nanoseconds(times.LastWriteTime),
               .change_time_ns = to_nanoseconds(times.ChangeTime),
               .size = static_cast<int64_t>(join(status.nFileSizeHigh, status.nFileSizeLow)),
               .device = status.dwVolumeSerialNumber,
               .file_number = join(status.nFileIndexHigh, status.nFileIndexLow)};
    return 0;
}

// Asks for all that writing a file anew needs, so that one which somebody else holds is left alone. Not every
// file system refuses to open what is marked as read-only. Asking for the marks by the path is cheaper than by
// the handle.
static int check_replaceable(const char *path, int *permissions)
{
    const std::wstring wide = z_win32_make_path(path);
    if (wide.empty())
        return -1;
    const DWORD attributes = GetFileAttributesW(wide.c_str());
    if (open_handle(path, GENERIC_WRITE | DELETE, OPEN_EXISTING, 0) == nullptr)
        return -1;
    // The answer that there are no marks has all of them: the file has only just come.
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        errno = EACCES;
        return -1;
    }
    *permissions = static_cast<int>(attributes & kept_attributes);
    return 0;
}

static char *follow_links(const char *path)
{
    const std::wstring wide = z_win32_make_path(path);
    if (wide.empty())
        return nullptr;
    if (!has_attribute(wide, FILE_ATTRIBUTE_REPARSE_POINT))
        return g_strdup(path);
    const z_win32_handle_ptr handle =
        open_handle(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (handle == nullptr)
        return nullptr;
    std::wstring target(32768, L'\0'); // no path is longer
    target.resize(GetFinalPathNameByHandleW(handle.get(), target.data(), static_cast<DWORD>(target.size()),
                                            FILE_NAME_NORMALIZED | VOLUME_NAME_DOS));
    if (target.empty()) {
        z_win32_fail();
        return nullptr;
    }
    return z_win32_path_to_utf8(target).release();
}

static int delete_file(const char *path)
{
    const std::wstring wide = z_win32_make_path(path);
    if (wide.empty())
        return -1;
    return DeleteFileW(wide.c_str()) ? 0 : fail_for_file(wide);
}

static int move(const char *old_path, const char *new_path, DWORD flags)
{
    const std::wstring old_wide = z_win32_make_path(old_path);
    const std::wstring new_wide = z_win32_make_path(new_path);
    if (old_wide.empty() || new_wide.empty())
        return -1;
    return MoveFileExW(old_wide.c_str(), new_wide.c_str(), flags) ? 0 : z_win32_fail();
}

static int rename_without_replacing(const char *old_path, const char *new_path)
{
    return move(old_path, new_path, 0);
}

// One step of the file system: unlike ReplaceFileW it leaves the target in place whatever fails.
static int replace(const char *old_path, const char *new_path)
{
    return move(old_path, new_path, MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

static int create_folder(const char *path)
{
    const std::wstring wide = z_win32_make_path(path);
    if (wide.empty())
        return -1;
    return CreateDirectoryW(wide.c_str(), nullptr) ? 0 : z_win32_fail();
}

static int delete_folder(const char *path)
{
    const std::wstring wide = z_win32_make_path(path);
    if (wide.empty())
        return -1;
    return RemoveDirectoryW(wide.c_str()) ? 0 : z_win32_fail();
}

// The system does not tell a file from nothing when it looks for what lies in it.
static void fail_for_folder(const std::wstring &path)
{
    z_win32_fail();
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        errno = ENOTDIR;
}

static z_fs_status make_status(const FILE_ID_BOTH_DIR_INFO &entry, uint64_t device)
{
    const bool is_folder = (entry.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    return {.is_folder = is_folder,
            .is_file = !is_folder,
            .modification_time_ns = to_nanoseconds(entry.LastWriteTime),
            .change_time_ns = to_nanoseconds(entry.ChangeTime),
            .size = entry.EndOfFile.QuadPart,
            .device = device,
            .file_number = static_cast<uint64_t>(entry.FileId.QuadPart)};
}

// Adds the entries of one answer, each of which says how far it is to the next. A link's status would be
// its own.
static void add_entries(z_folder *folder, const FILE_ID_BOTH_DIR_INFO *entry, uint64_t device)
{
    while (true) {
        folder->entries.push_back({{entry->FileName, entry->FileNameLength / sizeof(wchar_t)}, {}});
        if ((entry->FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
            folder->entries.back().status = make_status(*entry, device);
        if (entry->NextEntryOffset == 0)
            return;
        const auto *bytes = reinterpret_cast<const char *>(entry) + entry->NextEntryOffset;
        entry = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO *>(bytes);
    }
}

// Asking for every status by itself takes many times as long. Not every file system knows this way.
static bool list_with_statuses(z_folder *folder)
{
    const z_win32_handle_ptr handle =
        open_handle(folder->path.c_str(), FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS);
    BY_HANDLE_FILE_INFORMATION status;
    if (handle == nullptr || !GetFileInformationByHandle(handle.get(), &status))
        return false;
    std::vector<FILE_ID_BOTH_DIR_INFO> buffer(500);
    const auto byte_count = static_cast<DWORD>(buffer.size() * sizeof buffer[0]);
    while (z_win32_list_entries(handle.get(), FileIdBothDirectoryInfo, buffer.data(), byte_count))
        add_entries(folder, buffer.data(), status.dwVolumeSerialNumber);
    return GetLastError() == ERROR_NO_MORE_FILES;
}

// The root of an empty drive has no entry at all, so that there is nothing to begin a search with.
static bool list_names(z_folder *folder)
{
    folder->entries.clear();
    const std::wstring wide = z_win32_make_path(folder->path.c_str());
    if (wide.empty())
        return false;
    const std::wstring pattern = wide + (wide.ends_with(L'\\') ? L"*" : L"\\*");
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch,
                                           nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        if (GetLastError() == ERROR_FILE_NOT_FOUND && has_attribute(wide, FILE_ATTRIBUTE_DIRECTORY))
            return true;
        fail_for_folder(wide);
        return false;
    }
    do
        folder->entries.push_back({entry.cFileName, {}});
    while (FindNextFileW(search, &entry));
    const bool is_whole = GetLastError() == ERROR_NO_MORE_FILES;
    if (!is_whole)
        z_win32_fail();
    FindClose(search);
    return is_whole;
}

static z_folder *open_folder(const char *path)
{
    auto folder =
        std::make_unique<z_folder>(z_folder{.path = path, .entries = {}, .read_count = 0, .name = {}});
    return list_with_statuses(folder.get()) || list_names(folder.get()) ? folder.release() : nullptr;
}

static const char *read_folder(z_folder *folder)
{
    errno = 0;
    if (folder->read_count == folder->entries.size())
        return nullptr;
    folder->name = z_win32_name_to_bytes(folder->entries[folder->read_count++].name.c_str());
    return folder->name.c_str();
}

static int get_entry_status(z_folder *folder, z_fs_status *status)
{
    const folder_entry &entry = folder->entries[folder->read_count - 1];
    if (!entry.status)
        return get_status((folder->path + z_fs_path_delimiter + folder->name).c_str(), status);
    *status = *entry.status;
    return 0;
}

static int close_folder(z_folder *folder)
{
    const std::unique_ptr<z_folder> owned(folder);
    return 0;
}

z_fs_calls z_fs = {
    .open_file = open_file,
    .create_file = create_file,
    .skip = skip_in_file,
    .sync = sync_file,
    .get_status = get_status,
    .check_replaceable = check_replaceable,
    .follow_links = follow_links,
    .delete_file = delete_file,
    .rename = rename_without_replacing,
    .replace = replace,
    .create_folder = create_folder,
    .delete_folder = delete_folder,
    .open_folder = open_folder,
    .read_folder = read_folder,
    .get_entry_status = get_entry_status,
    .close_folder = close_folder,
};
