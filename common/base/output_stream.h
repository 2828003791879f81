#pragma once

// Writing bytes to a file or to growing memory.
//
// A file that the stream has created stays only if z_output_stream_destroy says so: after a failed write,
// flush or close, and when the handle ends without that call, the file is removed again. So a caller that
// gives up halfway just returns.
//
// A stream made from a path always comes into being; if the file could not be created, writing fails.
//
// Few writes reach the file at once: what the stream gathers arrives at the latest when it is destroyed.

#include <cstddef>
#include <cstdio>

#include "common/base/handles.h"

struct z_fs_target;
struct z_output_stream;

void z_output_stream_abandon(z_output_stream *stream);
using z_output_stream_ptr = z_ptr<z_output_stream, z_output_stream_abandon>;

// Borrows the file.
[[nodiscard]] z_output_stream_ptr z_output_stream_new_for_file(FILE *file);
// Deletes what is there, as z_fs_utils_delete_target does, and creates it anew.
[[nodiscard]] z_output_stream_ptr z_output_stream_new_for_file_path(const char *path);
// For who has deleted it already and wants to know: none, with the reason, if the file cannot be created.
[[nodiscard]] z_output_stream_ptr z_output_stream_new_for_target(z_fs_target target);
[[nodiscard]] z_output_stream_ptr z_output_stream_new_for_memory();

// All bytes or failure. Nothing can fail to be written.
[[nodiscard]] bool z_output_stream_write(z_output_stream *stream, const void *data, size_t size);

// Takes the bytes out of a memory stream, which is empty afterwards. A NUL that does not count follows them;
// without any bytes there is just that.
[[nodiscard]] z_bytes_ptr z_output_stream_get_memory_data(z_output_stream *stream, size_t &length);

// Flushes and closes. True if every byte has reached the system since the stream was made; none succeeds.
// The failing step has left its text in z_error, an earlier failed write too.
[[nodiscard]] bool z_output_stream_destroy(z_output_stream_ptr stream);
