#include "common/workspace/template_list.h"

#include <algorithm>
#include <vector>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/strnatcmp.h"
#include "common/base/utf8.h"
#include "common/model/file_type.h"
#include "common/model/template.h"
#include "common/model/template_io.h"
#include "common/workspace/settings.h"
#include "common/workspace/workspace.h"

z_template_list_ptr z_template_list_new()
{
    return z_template_list_ptr(new z_template_list);
}

void z_template_list_destroy(z_template_list *list)
{
    delete list;
}

z_template_list_entry_ptr z_template_list_entry_new()
{
    return z_template_list_entry_ptr(new z_template_list_entry);
}

z_template_list_entry_ptr z_template_list_entry_remove(z_template_list_entry *entry)
{
    z_link_remove(entry);
    return z_template_list_entry_ptr(entry);
}

void z_template_list_entry_destroy(z_template_list_entry *entry)
{
    if (entry != nullptr)
        z_link_remove(entry);
    delete entry;
}

void z_template_list_add_entry(z_template_list *list, z_template_list_entry_ptr entry)
{
    list->entries.add_last(std::move(entry));
}

z_template_list_entry *z_template_list_get_entry(const z_template_list *list, int index)
{
    for (z_template_list_entry *entry : list->entries)
        if (index-- == 0)
            return entry;
    return nullptr;
}

int z_template_list_compare(const char *text_a, const char *file_name_a, const char *text_b,
                            const char *file_name_b)
{
    const int order =
        strnatcmp_cascade(text_a != nullptr ? text_a : file_name_a, text_b != nullptr ? text_b : file_name_b);
    return order != 0 ? order : strnatcmp_cascade(file_name_a, file_name_b);
}

static bool comes_before(const z_template_list_entry_ptr &a, const z_template_list_entry_ptr &b)
{
    return z_template_list_compare(a->text.get(), z_fs_utils_find_entry_name_in_path(a->path.get()),
                                   b->text.get(), z_fs_utils_find_entry_name_in_path(b->path.get())) < 0;
}

// Null if the file is not listed.
static z_template_list_entry_ptr read_entry(const char *folder_path, const char *name,
                                            const z_settings *settings)
{
    const char *extension = z_file_type_get_default_file_name_extension_with_period(Z_FILE_TYPE_TEMPLATE);
    if (!z_utf8_has_suffix_case_insensitive_ascii(name, extension))
        return nullptr;
    z_template_list_entry_ptr entry = z_template_list_entry_new();
    entry->path = z_fs_utils_create_path_in_folder(folder_path, name);
    entry->text = z_template_io_get_ui_text(settings, entry->path.get());
    return entry->text != nullptr ? std::move(entry) : nullptr;
}

z_template_list_ptr z_template_list_load_folder(const char *folder_path, const z_settings *settings)
{
    const z_folder_ptr folder = z_fs_utils_open_folder(folder_path);
    if (folder == nullptr)
        return nullptr;
    std::vector<z_template_list_entry_ptr> entries;
    z_utf8_ptr name;
    while (true) {
        if (!z_fs_utils_next_folder_entry(folder.get(), name))
            return nullptr;
        if (name == nullptr)
            break;
        if (z_template_list_entry_ptr entry = read_entry(folder_path, name.get(), settings))
            entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), comes_before);
    z_template_list_ptr list = z_template_list_new();
    for (z_template_list_entry_ptr &entry : entries)
        z_template_list_add_entry(list.get(), std::move(entry));
    return list;
}

z_template_list_ptr z_template_list_load(const z_workspace *workspace)
{
    z_template_list_ptr list =
        z_template_list_load_folder(workspace->templates_folder_path.get(), workspace->settings.get());
    return list != nullptr ? std::move(list) : z_template_list_new();
}

z_utf8_ptr z_template_io_get_ui_text(const z_settings *settings, const char *path)
{
    const z_template_ptr tmpl = z_template_io_read_from_file(path);
    if (tmpl == nullptr)
        return nullptr;
    const char *author = z_util_get_langstr_string(settings, tmpl->author.get());
    const char *version = tmpl->version.get();
    const z_latin1_ptr line(g_strconcat(z_util_get_langstr_string(settings, tmpl->name.get()),
                                        author != nullptr ? " (" : "", author != nullptr ? author : "",
                                        author != nullptr ? ")" : "", version != nullptr ? " " : "",
                                        version != nullptr ? version : "", nullptr));
    return z_convert_latin1_to_utf8(line.get());
}
