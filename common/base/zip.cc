#include "common/base/zip.h"

#include "common/base/error.h"

// libzip's record of a failure that no archive or source keeps.
struct zip_failure {
    zip_error_t error;

    zip_failure()
    {
        zip_error_init(&error);
    }
    zip_failure(const zip_failure &) = delete;
    zip_failure &operator=(const zip_failure &) = delete;
    ~zip_failure()
    {
        zip_error_fini(&error);
    }
};

// Returns false, for the caller to return in turn.
static bool fail(zip_error_t *error, const char *sentence)
{
    z_error_set_from_zip_error(error);
    z_error_append(sentence);
    return false;
}

z_zip_archive_ptr z_zip_open_archive_for_reading(const char *path)
{
    z_file_ptr file = z_fs_utils_open_file(path, "rb");
    if (file == nullptr)
        return nullptr;
    z_zip_source_ptr source = z_zip_create_filep_source(std::move(file), 0, 0);
    if (source == nullptr) {
        z_error_append("Could not open file.");
        return nullptr;
    }
    zip_failure failure;
    z_zip_archive_ptr archive(zip_open_from_source(source.get(), ZIP_RDONLY, &failure.error));
    if (archive == nullptr)
        fail(&failure.error, "Could not open file.");
    else
        (void)source.release();
    return archive;
}

z_zip_archive_ptr z_zip_open_archive_from_buffer(const void *data, size_t length, int flags)
{
    z_zip_source_ptr source = z_zip_create_buffer_source(data, length);
    return source != nullptr ? z_zip_open_archive_from_source(std::move(source), flags) : nullptr;
}

z_zip_archive_ptr z_zip_open_archive_for_reading_from_buffer(const void *data, size_t length)
{
    return z_zip_open_archive_from_buffer(data, length, ZIP_RDONLY);
}

z_zip_archive_ptr z_zip_open_archive_from_source(z_zip_source_ptr source, int flags)
{
    zip_failure failure;
    z_zip_archive_ptr archive(zip_open_from_source(source.get(), flags, &failure.error));
    if (archive == nullptr)
        fail(&failure.error, "Could not open data from source.");
    else
        (void)source.release();
    return archive;
}

z_zip_archive_ptr z_zip_open_archive_for_reading_from_source(z_zip_source_ptr source)
{
    return z_zip_open_archive_from_source(std::move(source), ZIP_RDONLY);
}

bool z_zip_close_archive(z_zip_archive_ptr archive)
{
    if (archive == nullptr)
        return true;
    if (zip_close(archive.get()) != 0) {
        z_error_set_from_zip_error(zip_get_error(archive.get()));
        return false;
    }
    (void)archive.release();
    return true;
}

z_zip_source_ptr z_zip_create_buffer_source(const void *data, size_t length)
{
    zip_failure failure;
    z_zip_source_ptr source(zip_source_buffer_create(data, length, 0, &failure.error));
    if (source == nullptr)
        fail(&failure.error, "Could not create buffer data source.");
    return source;
}

z_zip_source_ptr z_zip_create_filep_source(z_file_ptr file, uint64_t start, int64_t length)
{
    zip_failure failure;
    z_zip_source_ptr source(zip_source_filep_create(file.get(), start, length, &failure.error));
    if (source == nullptr)
        fail(&failure.error, "Could not create file data source.");
    else
        (void)file.release();
    return source;
}

z_zip_source_ptr z_zip_create_function_source(zip_source_callback callback, void *data)
{
    zip_failure failure;
    z_zip_source_ptr source(zip_source_function_create(callback, data, &failure.error));
    if (source == nullptr)
        fail(&failure.error, "Could not create function data source.");
    return source;
}

void z_zip_free_source(z_zip_source_ptr source)
{
    source.reset();
}

bool z_zip_open_source(zip_source_t *source)
{
    return zip_source_open(source) == 0 || fail(zip_source_error(source), "Could not open source.");
}

bool z_zip_close_source(zip_source_t *source)
{
    return zip_source_close(source) == 0 || fail(zip_source_error(source), "Could not close source.");
}

bool z_zip_stat_source(zip_source_t *source, zip_stat_t *stat)
{
    return zip_source_stat(source, stat) == 0 || fail(zip_source_error(source), "Could not stat source.");
}

z_zip_file_ptr z_zip_open_file(zip_t *archive, const char *member_name)
{
    z_zip_file_ptr member(zip_fopen(archive, member_name, 0));
    if (member == nullptr)
        fail(zip_get_error(archive), "Could not open compressed file.");
    return member;
}

bool z_zip_close_file(z_zip_file_ptr member)
{
    const int code = member != nullptr ? zip_fclose(member.release()) : 0;
    if (code != 0)
        z_error_set_from_zip_error_code(code);
    return code == 0;
}

bool z_zip_stat_file(zip_t *archive, const char *member_name, zip_stat_t *stat)
{
    return zip_stat(archive, member_name, 0, stat) == 0 ||
           fail(zip_get_error(archive), "Could not stat compressed file.");
}

static void set_count(size_t *count, zip_int64_t result)
{
    if (count != nullptr)
        *count = result > 0 ? static_cast<size_t>(result) : 0;
}

bool z_zip_read_from_file(zip_file_t *member, void *buffer, size_t size, size_t *count)
{
    const zip_int64_t result = zip_fread(member, buffer, size);
    set_count(count, result);
    return result >= 0 || fail(zip_file_get_error(member), "Error reading compressed file.");
}

bool z_zip_read_from_source(zip_source_t *source, void *buffer, size_t size, size_t *count)
{
    const zip_int64_t result = zip_source_read(source, buffer, size);
    set_count(count, result);
    return result >= 0 || fail(zip_source_error(source), "Error reading source data.");
}

// libzip keeps the source only if it succeeds.
static bool add_file(zip_t *archive, const char *name, z_zip_existing existing, z_zip_source_ptr source,
                     const char *sentence)
{
    const zip_flags_t flags =
        ZIP_FL_ENC_UTF_8 | (existing == z_zip_existing::overwrite ? ZIP_FL_OVERWRITE : 0U);
    if (zip_file_add(archive, name, source.get(), flags) < 0)
        return fail(zip_get_error(archive), sentence);
    (void)source.release();
    return true;
}

bool z_zip_add_file_to_archive_from_source(zip_t *archive, const char *name_utf8, z_zip_existing existing,
                                           z_zip_source_ptr source)
{
    return add_file(archive, name_utf8, existing, std::move(source), "Could not add file from source.");
}

bool z_zip_add_file_to_archive_from_buffer(zip_t *archive, const char *name_utf8, z_zip_existing existing,
                                           const void *data, size_t length)
{
    z_zip_source_ptr source = z_zip_create_buffer_source(data, length);
    return source != nullptr &&
           add_file(archive, name_utf8, existing, std::move(source), "Could not add file from buffer.");
}
