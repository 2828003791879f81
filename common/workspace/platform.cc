#include "common/workspace/platform.h"

#include <cstring>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/model/supported_languages.h"
#include "common/workspace/platform_system.h"

// "de_AT.UTF-8@euro" as the tag "de-at".
static z_latin1_ptr get_tag_for_locale(const char *name)
{
    z_latin1_ptr tag(g_ascii_strdown(name, static_cast<gssize>(std::strcspn(name, ".@"))));
    g_strdelimit(tag.get(), "_", '-');
    if (std::strcmp(tag.get(), "en-gb") == 0)
        tag.reset(g_strdup("en-uk"));
    return tag;
}

int z_platform_get_language_index_for_locales(std::span<const char *const> names)
{
    for (const char *name : names) {
        const z_latin1_ptr tag = get_tag_for_locale(name);
        int index = z_supported_languages_get_index_for_tag(tag.get());
        if (index < 0) {
            tag.get()[std::strcspn(tag.get(), "-")] = '\0';
            index = z_supported_languages_get_index_for_tag(tag.get());
        }
        if (index >= 0)
            return index;
    }
    return -1;
}

int z_platform_get_user_language_index()
{
    const char *const *names = z_platform.get_locale_names();
    size_t count = 0;
    while (names[count] != nullptr)
        ++count;
    return z_platform_get_language_index_for_locales({names, count});
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
    z_fs_utils_strip_entry_name_from_path(path.get());
    return z_fs_utils_create_path_in_folder(path.get(), "share", "zanvel-templates-manager");
}

z_utf8_ptr z_platform_get_documents_folder_path()
{
    z_utf8_ptr path(z_platform.get_documents_folder_path());
    if (path == nullptr)
        z_error_set("Error getting personal folder for user from the OS.");
    return path;
}

static bool make_temp_files_folder(const char *cache_folder_path, const char *path)
{
    z_fs_info info;
    if (!z_fs_utils_get_info(cache_folder_path, info))
        return false;
    if (!info.exists && !z_fs_utils_create_folder_recursively(cache_folder_path))
        return false;
    return z_platform.make_private_folder(path);
}

z_utf8_ptr z_platform_get_temp_files_folder_path()
{
    const z_utf8_ptr cache_folder_path(z_platform.get_cache_folder_path());
    if (cache_folder_path != nullptr) {
        z_utf8_ptr path = z_fs_utils_create_path_in_folder(cache_folder_path.get(), "Zanvel");
        if (make_temp_files_folder(cache_folder_path.get(), path.get()))
            return path;
    }
    z_error_set("Couldn't get system temp path.");
    return nullptr;
}

bool z_platform_compare_file_system_paths(const char *a, const char *b)
{
    return z_platform.is_same_file(a, b);
}
