#pragma once

// Paths and names on their way to the system's wide-character calls and back.
//
// A path goes there in its literal form, \\?\C:\folder\file or \\?\UNC\server\share\file: it may then be
// longer than 260 units, and the system takes nothing off it. What would name something else in the ordinary
// form is refused, so that no file is made that other programs cannot reach.

#include <string>

#include "common/base/handles.h"

// Empty on failure, with the reason in errno: ENOENT for an empty path, EINVAL for one with the name of a
// device (also before an extension), of a server's pipe, a stream or a wildcard, or with a name that ends
// with a full stop or a space, ENAMETOOLONG for one with a name that is too long. A bare drive stands for its
// root folder; a slash is as good as a backslash.
[[nodiscard]] std::wstring z_win32_make_path(const char *path);

// The ordinary form of a literal path.
[[nodiscard]] z_utf8_ptr z_win32_path_to_utf8(const std::wstring &path);

// UTF-8, except that a surrogate without its partner becomes three bytes that are no UTF-8, so that the name
// is refused wherever texts are checked.
[[nodiscard]] std::string z_win32_name_to_bytes(const wchar_t *name);

// What the system's last error is to the C library.
[[nodiscard]] int z_win32_get_last_errno();
