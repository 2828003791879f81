#pragma once

// Zip archives, their members and data sources. These are libzip's own objects; what is added here is that a
// failure leaves libzip's reason and the operation's sentence in z_error.
//
// An archive takes over the source that it is opened from, and a source the file that it reads: both are gone
// with it, and also when the operation fails. Memory stays the caller's and must outlive the archive.

#include <cstddef>
#include <cstdint>

#include "common/base/fs_utils.h"
#include "common/base/zip_handles.h"

// `flags` are libzip's for zip_open.
[[nodiscard]] z_zip_archive_ptr z_zip_open_archive_for_reading(const char *path);
[[nodiscard]] z_zip_archive_ptr z_zip_open_archive_from_buffer(const void *data, size_t length, int flags);
[[nodiscard]] z_zip_archive_ptr z_zip_open_archive_for_reading_from_buffer(const void *data, size_t length);
[[nodiscard]] z_zip_archive_ptr z_zip_open_archive_from_source(z_zip_source_ptr source, int flags);
[[nodiscard]] z_zip_archive_ptr z_zip_open_archive_for_reading_from_source(z_zip_source_ptr source);
// Writes what was added. None is accepted.
[[nodiscard]] bool z_zip_close_archive(z_zip_archive_ptr archive);

[[nodiscard]] z_zip_source_ptr z_zip_create_buffer_source(const void *data, size_t length);
// `length` 0 reaches to the end of the file.
[[nodiscard]] z_zip_source_ptr z_zip_create_filep_source(z_file_ptr file, uint64_t start, int64_t length);
[[nodiscard]] z_zip_source_ptr z_zip_create_function_source(zip_source_callback callback, void *data);
void z_zip_free_source(z_zip_source_ptr source);

[[nodiscard]] bool z_zip_open_source(zip_source_t *source);
[[nodiscard]] bool z_zip_close_source(zip_source_t *source);
[[nodiscard]] bool z_zip_stat_source(zip_source_t *source, zip_stat_t *stat);

[[nodiscard]] z_zip_file_ptr z_zip_open_file(zip_t *archive, const char *member_name);
// None is accepted.
[[nodiscard]] bool z_zip_close_file(z_zip_file_ptr member);
[[nodiscard]] bool z_zip_stat_file(zip_t *archive, const char *member_name, zip_stat_t *stat);

// `count` may be null; it is 0 after a failure and at the end.
[[nodiscard]] bool z_zip_read_from_file(zip_file_t *member, void *buffer, size_t size, size_t *count);
[[nodiscard]] bool z_zip_read_from_source(zip_source_t *source, void *buffer, size_t size, size_t *count);

enum class z_zip_existing { overwrite, refuse };
[[nodiscard]] bool z_zip_add_file_to_archive_from_source(zip_t *archive, const char *name_utf8,
                                                         z_zip_existing existing, z_zip_source_ptr source);
[[nodiscard]] bool z_zip_add_file_to_archive_from_buffer(zip_t *archive, const char *name_utf8,
                                                         z_zip_existing existing, const void *data,
                                                         size_t length);
