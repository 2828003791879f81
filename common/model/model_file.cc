#include "common/model/model_file.h"

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/output_stream.h"
#include "common/base/xml_write.h"

z_bytes_ptr z_model_file_print_to_memory(const z_model_file_printer &print, size_t &size)
{
    size = 0;
    const z_output_stream_ptr memory = z_output_stream_new_for_memory();
    return print(memory.get()) ? z_output_stream_get_memory_data(memory.get(), size) : nullptr;
}

// Returns false, for the caller to return in turn.
static bool fail(const char *sentence)
{
    z_error_append(sentence);
    return false;
}

static const char cannot_access_text[] = "Cannot access file.";
static const char cannot_create_text[] = "Cannot create file.";

bool z_model_file_print_to_path(const z_model_file_printer &print, const char *path)
{
    z_fs_target target;
    if (!z_fs_utils_delete_target(path, target))
        return fail(cannot_access_text);
    z_output_stream_ptr stream = z_output_stream_new_for_target(std::move(target));
    if (stream == nullptr)
        return fail(cannot_create_text);
    return print(stream.get()) && z_output_stream_destroy(std::move(stream));
}

bool z_model_file_put_at_path(const z_model_file_printer &print, const char *path)
{
    size_t size;
    const z_bytes_ptr data = z_model_file_print_to_memory(print, size);
    if (data == nullptr)
        return false;
    z_fs_target target;
    if (!z_fs_utils_find_target(path, target))
        return fail(cannot_access_text);
    z_fs_neighbour neighbour;
    if (!z_fs_utils_create_neighbour(target, neighbour))
        return fail(cannot_create_text);
    return z_fs_utils_put_neighbour(target, std::move(neighbour), data.get(), size, z_fs_existing::replace);
}

bool z_model_file_write_version(z_output_stream *stream, const char *version_latin1)
{
    if (version_latin1 == nullptr || version_latin1[0] == '\0')
        return true;
    return z_xml_write_markup(stream, "\t<version>") && z_xml_write_string(stream, version_latin1) &&
           z_xml_write_markup(stream, "</version>\n");
}
