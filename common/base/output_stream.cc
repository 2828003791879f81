#include "common/base/output_stream.h"

#include <cstring>
#include <memory>
#include <utility>

#include "common/base/error.h"
#include "common/base/fs_system.h"
#include "common/base/fs_utils.h"

using byte_array_ptr = z_ptr<GByteArray, g_byte_array_unref>;

// As many bytes go to a file at once: each call of the system takes as long as copying thousands.
static constexpr size_t block_size = 65'536;

struct z_output_stream {
    FILE *file = nullptr;    // what a file stream writes to; null if it could not be created
    z_file_ptr owned;        // the same, if the stream has created it,
    z_utf8_ptr created_path; // here
    z_bytes_ptr block;       // what waits to be written to the file
    size_t block_length = 0; // how much of it is filled
    byte_array_ptr memory;   // what a memory stream has got
    bool has_failed = false;
};

static z_output_stream_ptr make_stream()
{
    return z_output_stream_ptr(std::make_unique<z_output_stream>().release());
}

static z_output_stream_ptr make_created_file_stream(z_file_ptr file, z_utf8_ptr path)
{
    z_output_stream_ptr stream = z_output_stream_new_for_file(file.get());
    stream->owned = std::move(file);
    stream->created_path = std::move(path);
    return stream;
}

void z_output_stream_abandon(z_output_stream *stream)
{
    const std::unique_ptr<z_output_stream> owned(stream);
    if (stream == nullptr)
        return;
    stream->owned.reset();
    if (stream->created_path != nullptr)
        z_fs.delete_file(stream->created_path.get());
}

z_output_stream_ptr z_output_stream_new_for_file(FILE *file)
{
    z_output_stream_ptr stream = make_stream();
    stream->file = file;
    stream->block.reset(static_cast<guint8 *>(g_malloc(block_size)));
    return stream;
}

z_output_stream_ptr z_output_stream_new_for_file_path(const char *path)
{
    z_fs_target target;
    z_output_stream_ptr stream;
    if (z_fs_utils_delete_target(path, target))
        stream = z_output_stream_new_for_target(std::move(target));
    return stream != nullptr ? std::move(stream) : make_stream();
}

z_output_stream_ptr z_output_stream_new_for_target(z_fs_target target)
{
    z_file_ptr file = z_fs_utils_create_target(target);
    return file != nullptr ? make_created_file_stream(std::move(file), std::move(target.path)) : nullptr;
}

z_output_stream_ptr z_output_stream_new_for_memory()
{
    z_output_stream_ptr stream = make_stream();
    stream->memory.reset(g_byte_array_new());
    return stream;
}

// Returns false, for the caller to return in turn.
static bool fail(z_output_stream *stream, const char *text)
{
    stream->has_failed = true;
    z_error_set(text);
    return false;
}

static bool append_to_memory(z_output_stream *stream, const void *data, size_t size)
{
    if (size > G_MAXUINT - 1 - stream->memory->len) {
        stream->has_failed = true;
        z_error_set_out_of_memory();
        return false;
    }
    g_byte_array_append(stream->memory.get(), static_cast<const guint8 *>(data), static_cast<guint>(size));
    return true;
}

static bool write_to_file(z_output_stream *stream, const void *data, size_t size)
{
    return z_fs.write(stream->file, data, size) == size || fail(stream, "File write error.");
}

static bool write_block(z_output_stream *stream)
{
    const size_t length = std::exchange(stream->block_length, 0);
    return length == 0 || write_to_file(stream, stream->block.get(), length);
}

bool z_output_stream_write(z_output_stream *stream, const void *data, size_t size)
{
    if (size == 0)
        return true;
    if (stream->memory != nullptr)
        return append_to_memory(stream, data, size);
    if (stream->file == nullptr)
        return fail(stream, "Creating file failed.");
    if (size > block_size - stream->block_length && !write_block(stream))
        return false;
    if (size >= block_size)
        return write_to_file(stream, data, size);
    memcpy(stream->block.get() + stream->block_length, data, size);
    stream->block_length += size;
    return true;
}

z_bytes_ptr z_output_stream_get_memory_data(z_output_stream *stream, size_t &length)
{
    length = 0;
    if (stream->memory == nullptr)
        return z_bytes_ptr(static_cast<guint8 *>(g_malloc0(1)));
    length = stream->memory->len;
    const guint8 terminator = 0;
    g_byte_array_append(stream->memory.get(), &terminator, 1);
    z_bytes_ptr data(g_byte_array_free(stream->memory.release(), FALSE));
    stream->memory.reset(g_byte_array_new());
    return data;
}

// Whether all that was written has arrived. On a full disk a small file shows it only here.
static bool finish_file(z_output_stream *stream)
{
    if (stream->has_failed)
        return false;
    if (stream->file == nullptr)
        return fail(stream, "Creating file failed.");
    if (!write_block(stream))
        return false;
    if (z_fs.has_error(stream->file))
        return fail(stream, "File write error.");
    return z_fs_utils_flush_file(stream->file) && z_fs_utils_close_file(std::move(stream->owned));
}

bool z_output_stream_destroy(z_output_stream_ptr stream)
{
    if (stream == nullptr)
        return true;
    if (stream->memory != nullptr)
        return !stream->has_failed;
    if (!finish_file(stream.get()))
        return false;
    stream->created_path.reset();
    return true;
}
