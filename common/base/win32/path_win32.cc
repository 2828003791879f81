#include "common/base/win32/path_win32.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <string_view>

#include <windows.h>

#include "common/base/win32/wide_text.h"

static constexpr std::wstring_view literal_prefix = L"\\\\?\\";
static constexpr std::wstring_view literal_network_prefix = L"\\\\?\\UNC\\";
static constexpr std::wstring_view delimiters = L"\\/";
static constexpr size_t max_name_length = 255; // Beyond it the system only says that there is no such file.

static bool is_delimiter(wchar_t unit)
{
    return delimiters.find(unit) != std::wstring_view::npos;
}

static wchar_t to_ascii_upper(wchar_t unit)
{
    return unit >= L'a' && unit <= L'z' ? static_cast<wchar_t>(unit - L'a' + L'A') : unit;
}

static std::wstring to_ascii_upper(std::wstring_view text)
{
    std::wstring upper(text);
    for (wchar_t &unit : upper)
        unit = to_ascii_upper(unit);
    return upper;
}

// The system knows them in every folder, in either case, and before any extension.
static bool is_device_name(std::wstring_view name)
{
    std::wstring stem = to_ascii_upper(name.substr(0, name.find(L'.')));
    stem.resize(stem.find_last_not_of(L' ') + 1);
    for (const std::wstring_view device : {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"})
        if (stem == device)
            return true;
    static constexpr std::wstring_view numbers = L"0123456789\u00B9\u00B2\u00B3";
    return stem.size() == 4 && (stem.starts_with(L"COM") || stem.starts_with(L"LPT")) &&
           numbers.find(stem[3]) != std::wstring_view::npos;
}

// 0, or the number of the reason why it is refused.
static int check_name(std::wstring_view name)
{
    if (name.empty() || name == L"." || name == L"..")
        return 0;
    const auto is_forbidden = [](wchar_t unit) {
        return unit < L' ' || std::wstring_view(L"<>:\"|?*").find(unit) != std::wstring_view::npos;
    };
    if (std::any_of(name.begin(), name.end(), is_forbidden) || name.back() == L'.' || name.back() == L' ' ||
        is_device_name(name))
        return EINVAL;
    return name.size() <= max_name_length ? 0 : ENAMETOOLONG;
}

static bool has_drive(std::wstring_view path)
{
    if (path.size() < 2 || path[1] != L':' || (path.size() > 2 && !is_delimiter(path[2])))
        return false;
    const wchar_t letter = to_ascii_upper(path[0]);
    return letter >= L'A' && letter <= L'Z';
}

// Two delimiters and a full stop begin the path of a device, and what looks like a share of these names is
// where a server has its pipes. Opening one would wait for whoever serves it.
static bool is_device_path(std::wstring_view path)
{
    if (path.size() < 3 || !is_delimiter(path[0]) || !is_delimiter(path[1]))
        return false;
    if (path[2] == L'.')
        return true;
    path.remove_prefix(std::min(path.find_first_of(delimiters, 2), path.size()));
    path.remove_prefix(std::min(path.find_first_not_of(delimiters), path.size()));
    const std::wstring share = to_ascii_upper(path.substr(0, path.find_first_of(delimiters)));
    return share == L"PIPE" || share == L"MAILSLOT" || share == L"IPC$";
}

// As for a name.
static int check_path(std::wstring_view path)
{
    if (is_device_path(path))
        return EINVAL;
    if (has_drive(path))
        path.remove_prefix(2);
    while (!path.empty()) {
        const size_t length = std::min(path.find_first_of(delimiters), path.size());
        if (const int reason = check_name(path.substr(0, length)); reason != 0)
            return reason;
        path.remove_prefix(std::min(length + 1, path.size()));
    }
    return 0;
}

static std::wstring make_absolute(const std::wstring &path)
{
    std::wstring absolute(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    absolute.resize(
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr));
    return absolute;
}

std::wstring z_win32_make_path(const char *path)
{
    const z_utf16_ptr utf16 = z_convert_utf8_to_utf16(path);
    std::wstring wide = utf16 != nullptr ? z_win32_get_wide(utf16) : L"";
    const int reason = *path == '\0' ? ENOENT : wide.empty() ? EINVAL : check_path(wide);
    if (reason != 0) {
        errno = reason;
        return {};
    }
    if (has_drive(wide) && wide.size() == 2)
        wide += L'\\';
    const std::wstring absolute = make_absolute(wide);
    if (absolute.empty()) {
        errno = z_win32_get_last_errno();
        return {};
    }
    if (absolute.starts_with(L"\\\\"))
        return std::wstring(literal_network_prefix).append(absolute, 2);
    return std::wstring(literal_prefix).append(absolute);
}

z_utf8_ptr z_win32_path_to_utf8(const std::wstring &path)
{
    std::wstring ordinary = path;
    if (path.starts_with(literal_network_prefix))
        ordinary.replace(0, literal_network_prefix.size(), L"\\\\");
    else if (path.starts_with(literal_prefix))
        ordinary.erase(0, literal_prefix.size());
    return z_utf8_ptr(g_strdup(z_win32_name_to_bytes(ordinary.c_str()).c_str()));
}

std::string z_win32_name_to_bytes(const wchar_t *name)
{
    std::string bytes;
    for (const wchar_t *unit = name; *unit != L'\0'; ++unit) {
        gunichar character = *unit;
        if (IS_SURROGATE_PAIR(unit[0], unit[1])) {
            character = 0x10000 + ((unit[0] - 0xD800U) << 10) + (unit[1] - 0xDC00U);
            ++unit;
        }
        char buffer[6];
        bytes.append(buffer, static_cast<size_t>(g_unichar_to_utf8(character, buffer)));
    }
    return bytes;
}

int z_win32_get_last_errno()
{
    static const struct {
        DWORD error;
        int number;
    } table[] = {
        {ERROR_FILE_NOT_FOUND, ENOENT},
        {ERROR_PATH_NOT_FOUND, ENOENT},
        {ERROR_INVALID_DRIVE, ENOENT},
        {ERROR_BAD_NETPATH, ENOENT},
        {ERROR_BAD_NET_NAME, ENOENT},
        {ERROR_BAD_PATHNAME, ENOENT},
        {ERROR_INVALID_NAME, ENOENT}, // also of a file whose path ends with a delimiter
        {ERROR_DIRECTORY, ENOTDIR},
        {ERROR_ACCESS_DENIED, EACCES},
        {ERROR_SHARING_VIOLATION, EACCES},
        {ERROR_LOCK_VIOLATION, EACCES},
        {ERROR_USER_MAPPED_FILE, EACCES},
        {ERROR_DELETE_PENDING, EACCES},
        {ERROR_WRITE_PROTECT, EROFS},
        {ERROR_FILE_EXISTS, EEXIST},
        {ERROR_ALREADY_EXISTS, EEXIST},
        {ERROR_DIR_NOT_EMPTY, ENOTEMPTY},
        {ERROR_NOT_SAME_DEVICE, EXDEV},
        {ERROR_DISK_FULL, ENOSPC},
        {ERROR_HANDLE_DISK_FULL, ENOSPC},
        {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
        {ERROR_BUFFER_OVERFLOW, ENAMETOOLONG},
        {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
        {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
        {ERROR_OUTOFMEMORY, ENOMEM},
        {ERROR_NOT_READY, ENXIO},
        {ERROR_CANT_RESOLVE_FILENAME, ELOOP},
    };
    const DWORD error = GetLastError();
    const auto *entry = std::find_if(std::begin(table), std::end(table),
                                     [&](const auto &each) { return each.error == error; });
    return entry != std::end(table) ? entry->number : EIO;
}
