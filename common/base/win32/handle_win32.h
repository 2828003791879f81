#pragma once

// The system's handles, and what its calls leave behind when they fail.

#include <cerrno>

#include <windows.h>

#include "common/base/handles.h"
#include "common/base/win32/path_win32.h"

using z_win32_handle_ptr = z_ptr<void, CloseHandle>;

// For files that lock nobody out.
inline constexpr DWORD z_win32_share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The result of a call that has failed: -1, with the reason in errno.
inline int z_win32_fail()
{
    errno = z_win32_get_last_errno();
    return -1;
}
