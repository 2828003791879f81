#include "common/workspace/template_list.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
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

// Letter case must not count even where the user's locale goes by bytes.
static z_ptr<char, g_free> create_collation_key(const char *text)
{
    const z_utf8_ptr folded(g_utf8_casefold(text, -1));
    return z_ptr<char, g_free>(g_utf8_collate_key_for_filename(folded.get(), -1));
}

z_ptr<char, g_free> z_template_list_create_sort_key(const char *text, const char *file_name)
{
    const z_ptr<char, g_free> text_key = create_collation_key(text != nullptr ? text : "");
    const z_ptr<char, g_free> file_name_key = create_collation_key(file_name);
    // No key holds a lower byte than the one between the two.
    return z_ptr<char, g_free>(
        g_strconcat(text != nullptr ? "1" : "0", text_key.get(), "\1", file_name_key.get(), nullptr));
}

struct keyed_entry {
    z_ptr<char, g_free> key;
    z_template_list_entry_ptr entry;
};

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
    std::vector<keyed_entry> entries;
    z_utf8_ptr name;
    while (true) {
        if (!z_fs_utils_next_folder_entry(folder.get(), name))
            return nullptr;
        if (name == nullptr)
            break;
        if (z_template_list_entry_ptr entry = read_entry(folder_path, name.get(), settings))
            entries.push_back(
                {z_template_list_create_sort_key(entry->text.get(), name.get()), std::move(entry)});
    }
    std::sort(entries.begin(), entries.end(), [](const keyed_entry &a, const keyed_entry &b) {
        return std::strcmp(a.key.get(), b.key.get()) < 0;
    });
    z_template_list_ptr list = z_template_list_new();
    for (keyed_entry &each : entries)
        z_template_list_add_entry(list.get(), std::move(each.entry));
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
