#pragma once

// Digests of files, by which an untouched copy of a known file is told from one that somebody has changed.

#include "common/base/handles.h"

// 32 lower-case hexadecimal digits; null, with the reason in z_error, if the file cannot be read. Regular
// files only.
[[nodiscard]] z_utf8_ptr z_util_get_file_md5sum(const char *path);

// Whether the file can be read and has this digest.
[[nodiscard]] bool z_util_verify_md5sum(const char *path, const char *digest);
