#include "common/model/file_filter.h"

#include "common/base/fs_path.h"

static void append_patterns(z_file_filter &filter, z_file_type type)
{
    filter.patterns.emplace_back(z_file_type_get_default_file_name_extension_wildcard_pattern(type));
    if (const char *pattern = z_file_type_get_alternative_file_name_extension_wildcard_pattern(type))
        filter.patterns.emplace_back(pattern);
}

static z_file_filter create_filter(z_file_type type)
{
    z_file_filter filter;
    filter.label = z_file_type_get_name(type);
    filter.label.append(" files (").append(z_file_type_get_default_file_name_extension_with_period(type));
    if (const char *extension = z_file_type_get_alternative_file_name_extension_with_period(type))
        filter.label.append(";").append(extension);
    filter.label += ')';
    append_patterns(filter, type);
    return filter;
}

std::vector<z_file_filter> z_file_filter_create_list(const char *combined_name,
                                                     std::span<const z_file_type> types)
{
    std::vector<z_file_filter> filters;
    if (types.size() >= 2) {
        z_file_filter combined;
        combined.label = combined_name != nullptr ? combined_name : "Matching files";
        for (const z_file_type type : types)
            append_patterns(combined, type);
        filters.push_back(std::move(combined));
    }
    for (const z_file_type type : types)
        filters.push_back(create_filter(type));
    filters.push_back({"All files (*.*)", {"*.*"}});
    return filters;
}

std::string z_file_filter_create_key(std::span<const z_file_type> types)
{
    std::string key;
    for (const z_file_type type : types)
        key.append(key.empty() ? "" : "#").append(z_file_type_get_name(type));
    return key;
}

std::string z_file_filter_create_caseless_pattern(std::string_view pattern)
{
    if (pattern == "*.*")
        return "*";
    std::string caseless;
    for (const char c : pattern) {
        if (g_ascii_isalpha(c))
            caseless.append({'[', g_ascii_tolower(c), g_ascii_toupper(c), ']'});
        else
            caseless += c;
    }
    return caseless;
}

static bool ends_with_extension(std::string_view name, const char *extension)
{
    if (extension == nullptr)
        return false;
    const std::string_view wanted(extension);
    return name.size() >= wanted.size() &&
           g_ascii_strncasecmp(name.substr(name.size() - wanted.size()).data(), extension, wanted.size()) ==
               0;
}

z_utf8_ptr z_file_filter_complete_path(const char *path, z_file_type type, z_shown_files shown)
{
    const std::string_view name = z_fs_utils_find_entry_name_in_path(path);
    const char *extension = z_file_type_get_default_file_name_extension_with_period(type);
    const bool is_complete =
        ends_with_extension(name, extension) ||
        ends_with_extension(name, z_file_type_get_alternative_file_name_extension_with_period(type)) ||
        (shown == z_shown_files::all && name.find('.') != std::string_view::npos);
    return z_utf8_ptr(is_complete ? g_strdup(path) : g_strconcat(path, extension, nullptr));
}
