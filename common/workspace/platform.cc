#include "common/workspace/platform.h"

#include <cstring>

#include <glib/gstdio.h>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/model/file_type.h"
#include "common/workspace/platform_system.h"

z_utf8_ptr z_platform_get_date_string(const z_platform_date &date)
{
    const bool is_in_range =
        date.year >= 1 && date.year <= 9999 && date.month >= 1 && date.month <= 12 && date.day >= 1;
    if (!is_in_range || date.day > g_date_get_days_in_month(static_cast<GDateMonth>(date.month),
                                                            static_cast<GDateYear>(date.year)))
        return nullptr;
    return z_utf8_ptr(z_platform.format_date(date.year, date.month, date.day));
}

z_utf8_ptr z_platform_get_install_folder_path()
{
    z_utf8_ptr path(z_platform.get_executable_path());
    if (path == nullptr) {
        z_error_set("Error getting exe path from system.");
        return nullptr;
    }
    z_fs_utils_strip_entry_name_from_path(path.get());
    if (std::strcmp(z_fs_utils_find_entry_name_in_path(path.get()), "bin") != 0)
        return path;
    const z_utf8_ptr prefix(g_strdup(path.get()));
    z_fs_utils_strip_entry_name_from_path(prefix.get());
    z_utf8_ptr shared = z_fs_utils_create_path_in_folder(prefix.get(), "share", "zanvel-templates-manager");
    z_fs_info info;
    return z_fs_utils_get_info(shared.get(), info) && info.is_folder ? std::move(shared) : std::move(path);
}

z_utf8_ptr z_platform_get_documents_folder_path()
{
    z_utf8_ptr path(z_platform.get_documents_folder_path());
    if (path == nullptr)
        z_error_set("Error getting personal folder for user from the OS.");
    return path;
}

static const char no_temp_folder_text[] = "Couldn't get system temp path.";

static bool make_temp_files_folder(const char *user_temp_folder_path, const char *path)
{
    z_fs_info info;
    if (!z_fs_utils_get_info(user_temp_folder_path, info))
        return false;
    if (!info.exists && !z_fs_utils_create_folder_recursively(user_temp_folder_path))
        return false;
    return z_platform.make_private_folder(path);
}

z_utf8_ptr z_platform_get_temp_files_folder_path()
{
    const z_utf8_ptr user_temp_folder_path(z_platform.get_user_temp_folder_path());
    if (user_temp_folder_path != nullptr) {
        z_utf8_ptr path = z_fs_utils_create_path_in_folder(user_temp_folder_path.get(), "Zanvel");
        if (make_temp_files_folder(user_temp_folder_path.get(), path.get()))
            return path;
    }
    z_error_set(no_temp_folder_text);
    return nullptr;
}

z_utf8_ptr z_platform_get_temp_legacy_printout_file_path()
{
    const z_utf8_ptr folder_path = z_platform_get_temp_files_folder_path();
    if (folder_path == nullptr)
        return nullptr;
    const z_utf8_ptr name(g_strdup_printf(
        "temp%08x%s", z_platform.get_process_id(),
        z_file_type_get_default_file_name_extension_with_period(Z_FILE_TYPE_OPENDOCUMENT_TEXT)));
    return z_fs_utils_create_path_in_folder(folder_path.get(), name.get());
}

bool z_platform_delete_temp_files(bool (*is_meant)(const char *name))
{
    const z_utf8_ptr folder_path = z_platform_get_temp_files_folder_path();
    if (folder_path == nullptr)
        return false;
    if (z_platform.delete_files(folder_path.get(), is_meant))
        return true;
    z_error_set(no_temp_folder_text);
    return false;
}

static z_file_ptr fail_to_create_temp_file(const char *sentence)
{
    z_error_set_from_errno();
    z_error_append(sentence);
    return nullptr;
}

static z_file_ptr open_temp_file(const char *path)
{
    const intptr_t handle = z_platform.create_temp_file(path);
    if (handle < 0)
        return fail_to_create_temp_file("Error creating system temp file.");
    const int descriptor = z_platform.get_file_descriptor(handle);
    if (descriptor < 0)
        return fail_to_create_temp_file("Error translating temp file handle.");
    z_file_ptr file(z_platform.open_file_descriptor(descriptor, "w+b"));
    if (file != nullptr)
        return file;
    file = fail_to_create_temp_file("Error opening new temp file.");
    g_close(descriptor, nullptr);
    return file;
}

z_file_ptr z_platform_create_temp_file()
{
    const z_utf8_ptr folder_path(z_platform.get_system_temp_folder_path());
    if (folder_path == nullptr) {
        z_error_set("Error retrieving system temp path.");
        return nullptr;
    }
    const z_utf8_ptr path(z_platform.make_temp_file_path(folder_path.get()));
    if (path == nullptr)
        return fail_to_create_temp_file("Error generating temp file name.");
    return open_temp_file(path.get());
}

bool z_platform_has_enough_disk_space_for_printing(bool smaller_need)
{
    const uint64_t need = smaller_need ? 150'000'000 : 200'000'000;
    uint64_t byte_count = 0;
    if (!z_platform.get_free_disk_space(&byte_count) || byte_count >= need)
        return true;
    z_error_set_not_enough_diskspace();
    return false;
}

bool z_platform_compare_file_system_paths(const char *a, const char *b)
{
    return z_fs_utils_is_same_entry(a, b);
}
