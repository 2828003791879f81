#pragma once

// Copying between streams, files and memory.

#include <cstddef>

#include "common/base/fs_utils.h"
#include "common/base/input_stream.h"
#include "common/base/output_stream.h"
#include "common/base/zip_handles.h"

// To the end of the input.
[[nodiscard]] bool z_stream_copy(z_input_stream *input, z_output_stream *output);

// A NUL that does not count follows the data, so that a text can be used as it is.
[[nodiscard]] bool z_stream_copy_to_memory(z_input_stream *input, z_bytes_ptr &data, size_t &length);
[[nodiscard]] bool z_stream_copy_from_file_path_to_memory(const char *path, z_bytes_ptr &data,
                                                          size_t &length);
[[nodiscard]] bool z_stream_copy_from_zip_file_path_to_memory(zip_t *archive, const char *member_name,
                                                              z_bytes_ptr &data, size_t &length);
[[nodiscard]] bool z_stream_copy_from_zip_source_to_memory(zip_source_t *source, z_zip_source_state state,
                                                           z_bytes_ptr &data, size_t &length);

// Both read the source whole before they touch the destination; the same path twice succeeds and touches
// nothing. The first writes the destination anew, and a failure there leaves no file; the second puts the
// copy into place only when it is complete, and a failure leaves what was there.
[[nodiscard]] bool z_stream_copy_from_file_path_to_file_path(const char *source, const char *destination);
[[nodiscard]] bool z_stream_put_copy_of_file(const char *source, const char *destination,
                                             z_fs_existing existing);
