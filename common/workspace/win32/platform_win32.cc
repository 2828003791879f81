#include "common/workspace/platform_system.h"

#include <string>

#include <fcntl.h>
#include <io.h>
#include <shlobj.h>

#include "common/base/fs_utils.h"
#include "common/base/win32/handle_win32.h"
#include "common/base/win32/wide_text.h"
#include "common/workspace/platform.h"

// The longest ordinary path, and the NUL.
static constexpr DWORD path_buffer_length = 261;

// Null with the reason in errno.
static char *fail_without_path()
{
    z_win32_fail();
    return nullptr;
}

static char *make_folder_path(const wchar_t *wide)
{
    z_utf8_ptr path = z_win32_wide_to_utf8(wide);
    if (path != nullptr)
        z_fs_utils_strip_ending_path_delimiters(path.get());
    return path.release();
}

static int get_user_language_index()
{
    return z_platform_get_language_index_for_identifier(GetUserDefaultLangID());
}

static char *get_executable_path()
{
    wchar_t path[path_buffer_length];
    const DWORD length = GetModuleFileNameW(nullptr, path, path_buffer_length);
    return length > 0 && length < path_buffer_length ? z_win32_wide_to_utf8(path).release() : nullptr;
}

static char *get_documents_folder_path()
{
    z_ptr<wchar_t, CoTaskMemFree> path;
    const HRESULT result =
        SHGetKnownFolderPath(FOLDERID_Documents, KF_FLAG_DONT_VERIFY, nullptr, z_out(path));
    return SUCCEEDED(result) ? make_folder_path(path.get()) : nullptr;
}

// The user's own, and the one for everything.
static char *get_temp_folder_path()
{
    wchar_t path[path_buffer_length + 1];
    const DWORD length = GetTempPathW(path_buffer_length + 1, path);
    return length > 0 && length <= path_buffer_length ? make_folder_path(path) : fail_without_path();
}

// How long it becomes is asked first.
static char *format_date(int year, int month, int day)
{
    SYSTEMTIME date = {};
    date.wYear = static_cast<WORD>(year);
    date.wMonth = static_cast<WORD>(month);
    date.wDay = static_cast<WORD>(day);
    const int length = GetDateFormatW(LOCALE_USER_DEFAULT, 0, &date, nullptr, nullptr, 0);
    std::wstring text(static_cast<size_t>(length), L'\0');
    if (length == 0 || GetDateFormatW(LOCALE_USER_DEFAULT, 0, &date, nullptr, text.data(), length) == 0)
        return nullptr;
    return z_win32_wide_to_utf8(text.c_str()).release();
}

static uint32_t get_process_id()
{
    return GetCurrentProcessId();
}

static bool get_free_disk_space(uint64_t *byte_count)
{
    ULARGE_INTEGER available;
    if (!GetDiskFreeSpaceExW(L"C:\\", &available, nullptr, nullptr))
        return false;
    *byte_count = available.QuadPart;
    return true;
}

static int64_t get_monotonic_time_ms()
{
    return static_cast<int64_t>(GetTickCount64());
}

// A link would lead whoever uses it as a folder to another place.
static bool is_real_folder(DWORD attributes)
{
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

// The folder above is the user's, and gives this one what keeps others out. As a template, a link would make
// it a link, too.
static bool make_private_folder(const char *path)
{
    const z_utf8_ptr parent(g_strdup(path));
    z_fs_utils_strip_entry_name_from_path(parent.get());
    const std::wstring wide = z_win32_make_path(path);
    const std::wstring wide_parent = z_win32_make_path(parent.get());
    if (wide.empty() || wide_parent.empty())
        return false;
    if (is_real_folder(GetFileAttributesW(wide_parent.c_str())))
        CreateDirectoryExW(wide_parent.c_str(), wide.c_str(), nullptr);
    else
        CreateDirectoryW(wide.c_str(), nullptr);
    return is_real_folder(GetFileAttributesW(wide.c_str()));
}

static bool is_regular_file(DWORD attributes)
{
    return (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DEVICE)) ==
           0;
}

static bool delete_files(const char *folder_path, bool (*is_meant)(const char *name))
{
    const std::wstring folder = z_win32_make_path(folder_path);
    if (folder.empty() || !is_real_folder(GetFileAttributesW(folder.c_str())))
        return false;
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    do {
        if (is_regular_file(entry.dwFileAttributes) &&
            is_meant(z_win32_name_to_bytes(entry.cFileName).c_str()))
            DeleteFileW((folder + L'\\' + entry.cFileName).c_str());
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    return true;
}

static char *make_temp_file_path(const char *folder_path)
{
    const z_utf16_ptr folder = z_convert_utf8_to_utf16(folder_path);
    wchar_t path[MAX_PATH];
    if (folder == nullptr || GetTempFileNameW(z_win32_get_wide(folder), L"zan", 0, path) == 0)
        return fail_without_path();
    return z_win32_wide_to_utf8(path).release();
}

// Takes the place of the empty file that came with the name, which goes in any case.
static intptr_t create_temp_file(const char *path)
{
    const std::wstring wide = z_win32_make_path(path);
    if (wide.empty())
        return -1;
    const HANDLE file =
        CreateFileW(wide.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, CREATE_ALWAYS,
                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        return reinterpret_cast<intptr_t>(file);
    z_win32_fail();
    DeleteFileW(wide.c_str());
    return -1;
}

static int get_file_descriptor(intptr_t file)
{
    const int descriptor = _open_osfhandle(file, _O_RDWR | _O_BINARY | _O_NOINHERIT);
    if (descriptor < 0)
        CloseHandle(reinterpret_cast<HANDLE>(file));
    return descriptor;
}

z_platform_calls z_platform = {
    .get_user_language_index = get_user_language_index,
    .get_executable_path = get_executable_path,
    .get_documents_folder_path = get_documents_folder_path,
    .get_user_temp_folder_path = get_temp_folder_path,
    .format_date = format_date,
    .get_process_id = get_process_id,
    .get_free_disk_space = get_free_disk_space,
    .get_monotonic_time_ms = get_monotonic_time_ms,
    .make_private_folder = make_private_folder,
    .delete_files = delete_files,
    .get_system_temp_folder_path = get_temp_folder_path,
    .make_temp_file_path = make_temp_file_path,
    .create_temp_file = create_temp_file,
    .get_file_descriptor = get_file_descriptor,
    .open_file_descriptor = _fdopen,
};
