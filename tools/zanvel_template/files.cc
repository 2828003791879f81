#include "tools/zanvel_template/files.h"

#include "common/base/fs_utils.h"
#include "common/base/output_stream.h"
#include "common/base/utf8.h"
#include "common/model/codeset_io.h"
#include "common/model/template_io.h"

z_file_type z_tool_get_file_type(const char *path)
{
    const char *extension = z_file_type_get_default_file_name_extension_with_period(Z_FILE_TYPE_CODESET);
    return z_utf8_has_suffix_case_insensitive_ascii(path, extension) ? Z_FILE_TYPE_CODESET
                                                                     : Z_FILE_TYPE_TEMPLATE;
}

bool z_tool_read_file(z_tool_file &file, const char *path)
{
    file.type = z_tool_get_file_type(path);
    if (file.type == Z_FILE_TYPE_CODESET)
        file.codeset = z_codeset_io_read_from_file(path);
    else
        file.tmpl = z_template_io_read_from_file(path);
    return file.codeset != nullptr || file.tmpl != nullptr;
}

static bool check_and_serialise(const z_tool_file &file, z_output_stream *stream)
{
    if (file.type == Z_FILE_TYPE_CODESET)
        return z_codeset_io_check_readable(file.codeset.get()) &&
               z_codeset_io_write_to_stream(file.codeset.get(), stream);
    return z_template_io_check_readable(file.tmpl.get()) &&
           z_template_io_write_to_stream(file.tmpl.get(), stream);
}

bool z_tool_write_file(const z_tool_file &file, const char *path)
{
    const z_output_stream_ptr stream = z_output_stream_new_for_memory();
    if (!check_and_serialise(file, stream.get()))
        return false;
    size_t size = 0;
    const z_bytes_ptr data = z_output_stream_get_memory_data(stream.get(), size);
    return z_fs_utils_put_file(path, data.get(), size, z_fs_existing::replace);
}
