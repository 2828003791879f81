// A folder itself cannot be locked, but a hidden file in it can, on network drives too. The file stays: one
// that came and went would sometimes seem locked.

#include "common/workspace/platform_system.h"

#include <string>

#include "common/base/fs_path.h"
#include "common/base/win32/handle_win32.h"

static HANDLE open_lock_file(const char *folder_path)
{
    const z_utf8_ptr path = z_fs_utils_create_path_in_folder(folder_path, ".zanvel.lock");
    const std::wstring wide = z_win32_make_path(path.get());
    if (wide.empty())
        return INVALID_HANDLE_VALUE;
    return CreateFileW(wide.c_str(), GENERIC_READ | GENERIC_WRITE, z_win32_share_all, nullptr, OPEN_ALWAYS,
                       FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
}

// What is locked is the first byte, which need not exist.
intptr_t z_system_lock_folder(const char *path)
{
    const HANDLE file = open_lock_file(path);
    if (file == INVALID_HANDLE_VALUE)
        return z_platform_no_lock;
    OVERLAPPED first_byte = {};
    if (LockFileEx(file, LOCKFILE_FAIL_IMMEDIATELY | LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &first_byte))
        return reinterpret_cast<intptr_t>(file);
    const bool is_held = GetLastError() == ERROR_LOCK_VIOLATION;
    CloseHandle(file);
    return is_held ? z_platform_lock_is_held : z_platform_no_lock;
}

void z_system_unlock(intptr_t lock)
{
    const HANDLE file = reinterpret_cast<HANDLE>(lock);
    UnlockFile(file, 0, 0, 1, 0);
    CloseHandle(file);
}
