#pragma once

// What the writers of the model's files have in common.

#include <cstddef>
#include <functional>

#include "common/base/handles.h"

struct z_output_stream;

// Prints a whole file in many small writes.
using z_model_file_printer = std::function<bool(z_output_stream *stream)>;

// Null if the printer fails.
[[nodiscard]] z_bytes_ptr z_model_file_print_to_memory(const z_model_file_printer &print, size_t &size);

// Deletes the file and creates it anew. After a failure there is no file, except where the old one could not
// be deleted.
[[nodiscard]] bool z_model_file_print_to_path(const z_model_file_printer &print, const char *path);

// Says the same where it fails, but then the old file is still there: the new one takes its place only when
// it is complete.
[[nodiscard]] bool z_model_file_put_at_path(const z_model_file_printer &print, const char *path);

// The version's line, for a printer. None and the empty one print nothing.
[[nodiscard]] bool z_model_file_write_version(z_output_stream *stream, const char *version_latin1);
