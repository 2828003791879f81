#pragma once

// Reading bytes from a file, a block of memory, a member of a zip archive or a libzip source.
//
// A stream made from a path or member name always comes into being; if what it names did not open, every read
// fails ("Opening input file failed.", "Opening compressed input file failed."). Streams own what they opened
// themselves and borrow what they were given.

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "common/base/handles.h"
#include "common/base/zip_handles.h"

struct z_input_stream;

void z_input_stream_destroy(z_input_stream *stream);
using z_input_stream_ptr = z_ptr<z_input_stream, z_input_stream_destroy>;

[[nodiscard]] z_input_stream_ptr z_input_stream_new_for_file(FILE *file);
[[nodiscard]] z_input_stream_ptr z_input_stream_new_for_file_path(const char *path);
[[nodiscard]] z_input_stream_ptr z_input_stream_new_for_memory(const void *data, size_t size);
[[nodiscard]] z_input_stream_ptr z_input_stream_new_for_zip_file(zip_file_t *member);
[[nodiscard]] z_input_stream_ptr z_input_stream_new_for_zip_file_path(zip_t *archive,
                                                                      const char *member_name);

// `already_open`: the source is open and stays open. `open_and_close`: the stream opens it at the first read,
// again after a failure, and closes it at its end.
enum class z_zip_source_state { already_open, open_and_close };
[[nodiscard]] z_input_stream_ptr z_input_stream_new_for_zip_source(zip_source_t *source,
                                                                   z_zip_source_state state);

// Copies up to `size` bytes. Fewer mean the end of the data.
[[nodiscard]] bool z_input_stream_read(z_input_stream *stream, void *buffer, size_t size, size_t &count);

// Lends the next bytes, valid until the stream's next call: all that is left of a memory stream, up to 4096
// bytes of the others. A count of 0 means the end.
[[nodiscard]] bool z_input_stream_get_some(z_input_stream *stream, const void *&data, size_t &count);

// Past the end: a memory stream fails and stays where it is, a zip stream fails, a file notices nothing.
[[nodiscard]] bool z_input_stream_skip(z_input_stream *stream, uint64_t count);
