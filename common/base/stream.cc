#include "common/base/stream.h"

#include <cstring>

bool z_stream_copy(z_input_stream *input, z_output_stream *output)
{
    for (;;) {
        const void *data;
        size_t count;
        if (!z_input_stream_get_some(input, data, count))
            return false;
        if (count == 0)
            return true;
        if (!z_output_stream_write(output, data, count))
            return false;
    }
}

bool z_stream_copy_to_memory(z_input_stream *input, z_bytes_ptr &data, size_t &length)
{
    const z_output_stream_ptr output = z_output_stream_new_for_memory();
    if (!z_stream_copy(input, output.get()))
        return false;
    data = z_output_stream_get_memory_data(output.get(), length);
    return true;
}

bool z_stream_copy_from_file_path_to_memory(const char *path, z_bytes_ptr &data, size_t &length)
{
    return z_stream_copy_to_memory(z_input_stream_new_for_file_path(path).get(), data, length);
}

bool z_stream_copy_from_zip_file_path_to_memory(zip_t *archive, const char *member_name, z_bytes_ptr &data,
                                                size_t &length)
{
    const z_input_stream_ptr input = z_input_stream_new_for_zip_file_path(archive, member_name);
    return z_stream_copy_to_memory(input.get(), data, length);
}

bool z_stream_copy_from_zip_source_to_memory(zip_source_t *source, z_zip_source_state state,
                                             z_bytes_ptr &data, size_t &length)
{
    return z_stream_copy_to_memory(z_input_stream_new_for_zip_source(source, state).get(), data, length);
}

// Unlike a stream made from the path, it says why the file does not open.
static bool read_file(const char *path, z_bytes_ptr &data, size_t &length)
{
    const z_file_ptr file = z_fs_utils_open_file(path, "rb");
    return file != nullptr &&
           z_stream_copy_to_memory(z_input_stream_new_for_file(file.get()).get(), data, length);
}

bool z_stream_copy_from_file_path_to_file_path(const char *source, const char *destination)
{
    if (std::strcmp(source, destination) == 0)
        return true;
    z_bytes_ptr data;
    size_t length;
    z_fs_target target;
    if (!read_file(source, data, length) || !z_fs_utils_delete_target(destination, target))
        return false;
    z_output_stream_ptr output = z_output_stream_new_for_target(std::move(target));
    return output != nullptr && z_output_stream_write(output.get(), data.get(), length) &&
           z_output_stream_destroy(std::move(output));
}

bool z_stream_put_copy_of_file(const char *source, const char *destination, z_fs_existing existing)
{
    if (std::strcmp(source, destination) == 0)
        return true;
    z_bytes_ptr data;
    size_t length;
    return read_file(source, data, length) && z_fs_utils_put_file(destination, data.get(), length, existing);
}
