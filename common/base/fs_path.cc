#include "common/base/fs_path.h"

#include <cstring>
#include <string>
#include <string_view>

// How much of the start no stripping takes away: the delimiter that names the root folder.
static size_t get_root_length(std::string_view path)
{
    return z_fs_path_delimiter == '/' && path.starts_with('/') ? 1 : 0;
}

static std::string_view without_ending_delimiters(std::string_view path)
{
    size_t length = path.size();
    while (length > get_root_length(path) && path[length - 1] == z_fs_path_delimiter)
        --length;
    return path.substr(0, length);
}

static z_utf8_ptr copy_text(std::string_view text)
{
    return z_utf8_ptr(g_strndup(text.data(), text.size()));
}

z_utf8_ptr z_fs_utils_create_path_in_folder_(const char *folder, const char *const *components, size_t count)
{
    std::string path;
    path.reserve(std::strlen(folder) + 256); // Listing makes many; few names are so long that it has to grow.
    path = without_ending_delimiters(folder);
    for (size_t i = 0; i < count; ++i) {
        if (*components[i] == '\0')
            continue;
        if (path.size() > get_root_length(path))
            path += z_fs_path_delimiter;
        path += components[i];
    }
    return copy_text(path);
}

z_utf8_ptr z_fs_utils_end_folder_path_with_a_single_delimiter(const char *path)
{
    std::string folder(without_ending_delimiters(path));
    if (*path != '\0' && !folder.ends_with(z_fs_path_delimiter))
        folder += z_fs_path_delimiter;
    return copy_text(folder);
}

void z_fs_utils_strip_ending_path_delimiters(char *path)
{
    path[without_ending_delimiters(path).size()] = '\0';
}

void z_fs_utils_strip_entry_name_from_path(char *path)
{
    const std::string_view whole(path);
    const size_t last_delimiter = whole.rfind(z_fs_path_delimiter);
    if (last_delimiter == std::string_view::npos)
        path[0] = '\0';
    else
        path[without_ending_delimiters(whole.substr(0, last_delimiter + 1)).size()] = '\0';
}

const char *z_fs_utils_find_entry_name_in_path(const char *path)
{
    const char *last_delimiter = std::strrchr(path, z_fs_path_delimiter);
    return last_delimiter != nullptr ? last_delimiter + 1 : path;
}

bool z_fs_utils_is_file_name_in_path(const char *path, const char *name)
{
    const std::string_view whole(path);
    if (!whole.ends_with(name))
        return false;
    const std::string_view before = whole.substr(0, whole.size() - std::strlen(name));
    return before.empty() || before.ends_with(z_fs_path_delimiter);
}
