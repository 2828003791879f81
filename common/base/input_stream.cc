#include "common/base/input_stream.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <memory>
#include <variant>

#include "common/base/error.h"
#include "common/base/fs_system.h"
#include "common/base/fs_utils.h"
#include "common/base/zip.h"

// What each kind of stream reads from. The first pointer is what is read, null if it did not open; the handle
// beside it is set where the stream owns that.

struct file_input {
    FILE *file;
    z_file_ptr owned;
};

struct memory_input {
    const guint8 *data;
    size_t size;
    size_t position;
};

struct member_input {
    zip_file_t *member;
    z_zip_file_ptr owned;
};

struct source_input {
    zip_source_t *source;
    bool is_open;
    bool closes;
};

struct z_input_stream {
    std::variant<file_input, memory_input, member_input, source_input> input;
    guint8 buffer[4096] = {};
};

static bool read_some(file_input &input, void *buffer, size_t size, size_t &count)
{
    if (input.file == nullptr) {
        z_error_set("Opening input file failed.");
        return false;
    }
    count = z_fs.read(input.file, buffer, size);
    if (!z_fs.has_error(input.file))
        return true;
    z_error_set("File read error.");
    return false;
}

static bool read_some(memory_input &input, void *buffer, size_t size, size_t &count)
{
    count = std::min(size, input.size - input.position);
    if (count > 0)
        std::memcpy(buffer, input.data + input.position, count);
    input.position += count;
    return true;
}

static bool read_some(member_input &input, void *buffer, size_t size, size_t &count)
{
    if (input.member == nullptr) {
        z_error_set("Opening compressed input file failed.");
        return false;
    }
    if (z_zip_read_from_file(input.member, buffer, size, &count))
        return true;
    z_error_append("Compressed file read error.");
    return false;
}

static bool read_some(source_input &input, void *buffer, size_t size, size_t &count)
{
    if (!input.is_open && !z_zip_open_source(input.source)) {
        z_error_set("Opening compressed source failed.");
        return false;
    }
    input.is_open = true;
    if (z_zip_read_from_source(input.source, buffer, size, &count))
        return true;
    z_error_append("Compressed source read error.");
    return false;
}

static bool skip(file_input &input, uint64_t count)
{
    if (input.file == nullptr) {
        z_error_set("Opening input file failed.");
        return false;
    }
    const bool is_possible = count <= INT64_MAX;
    if (is_possible && z_fs.skip(input.file, static_cast<int64_t>(count)) == 0)
        return true;
    if (!is_possible)
        errno = EOVERFLOW;
    z_error_set_from_errno();
    return false;
}

static bool skip(memory_input &input, uint64_t count)
{
    if (count > input.size - input.position) {
        z_error_set("Memory buffer end reached prematurely.");
        return false;
    }
    input.position += static_cast<size_t>(count);
    return true;
}

// What is compressed can only be read through.
template <typename Input>
static bool skip(Input &input, uint64_t count)
{
    guint8 scratch[1024];
    while (count > 0) {
        size_t read;
        if (!read_some(input, scratch, static_cast<size_t>(std::min<uint64_t>(count, sizeof scratch)), read))
            return false;
        if (read == 0) {
            z_error_set("Premature end of data stream.");
            return false;
        }
        count -= read;
    }
    return true;
}

template <typename Input>
static z_input_stream_ptr make_stream(Input input)
{
    return z_input_stream_ptr(std::make_unique<z_input_stream>(z_input_stream{std::move(input)}).release());
}

void z_input_stream_destroy(z_input_stream *stream)
{
    const std::unique_ptr<z_input_stream> owned(stream);
    if (stream == nullptr)
        return;
    if (const auto *input = std::get_if<source_input>(&stream->input);
        input && input->closes && input->is_open)
        zip_source_close(input->source);
}

z_input_stream_ptr z_input_stream_new_for_file(FILE *file)
{
    return make_stream(file_input{file, nullptr});
}

z_input_stream_ptr z_input_stream_new_for_file_path(const char *path)
{
    z_file_ptr file = z_fs_utils_open_file(path, "rb");
    FILE *borrowed = file.get();
    return make_stream(file_input{borrowed, std::move(file)});
}

z_input_stream_ptr z_input_stream_new_for_memory(const void *data, size_t size)
{
    return make_stream(memory_input{static_cast<const guint8 *>(data), size, 0});
}

z_input_stream_ptr z_input_stream_new_for_zip_file(zip_file_t *member)
{
    return make_stream(member_input{member, nullptr});
}

z_input_stream_ptr z_input_stream_new_for_zip_file_path(zip_t *archive, const char *member_name)
{
    z_zip_file_ptr member = z_zip_open_file(archive, member_name);
    zip_file_t *borrowed = member.get();
    return make_stream(member_input{borrowed, std::move(member)});
}

z_input_stream_ptr z_input_stream_new_for_zip_source(zip_source_t *source, z_zip_source_state state)
{
    const bool is_open = state == z_zip_source_state::already_open;
    return make_stream(source_input{source, is_open, !is_open});
}

bool z_input_stream_read(z_input_stream *stream, void *buffer, size_t size, size_t &count)
{
    count = 0;
    return std::visit([&](auto &input) { return read_some(input, buffer, size, count); }, stream->input);
}

bool z_input_stream_get_some(z_input_stream *stream, const void *&data, size_t &count)
{
    if (auto *memory = std::get_if<memory_input>(&stream->input)) {
        data = memory->data + memory->position;
        count = memory->size - memory->position;
        memory->position = memory->size;
        return true;
    }
    data = stream->buffer;
    return z_input_stream_read(stream, stream->buffer, sizeof stream->buffer, count);
}

bool z_input_stream_skip(z_input_stream *stream, uint64_t count)
{
    return std::visit([&](auto &input) { return skip(input, count); }, stream->input);
}
