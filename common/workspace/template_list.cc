#include "common/workspace/template_list.h"

#include <vector>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/model/file_type.h"
#include "common/model/template.h"
#include "common/model/template_io.h"
#include "common/workspace/item_list.h"
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

static z_utf8_ptr get_text_callback(const char *path, void *settings)
{
    return z_template_io_get_ui_text(static_cast<const z_settings *>(settings), path);
}

z_utf8_ptr z_template_list_create_context(const z_settings *settings)
{
    z_utf8_ptr context(g_strdup(""));
    for (const z_preferred_language *language : settings->preferred_languages)
        context.reset(g_strconcat(context.get(), language->tag.get(), "\n", nullptr));
    return context;
}

z_template_list_ptr z_template_list_load_folder(const char *folder_path, const z_settings *settings)
{
    const char *extension = z_file_type_get_default_file_name_extension_with_period(Z_FILE_TYPE_TEMPLATE);
    const z_utf8_ptr context = z_template_list_create_context(settings);
    std::vector<z_item> items;
    if (!z_item_list_scan(items, folder_path, extension, context.get(), get_text_callback,
                          const_cast<z_settings *>(settings)))
        return nullptr;
    z_template_list_ptr list = z_template_list_new();
    for (const z_item &item : items) {
        if (item.line->text == nullptr)
            continue;
        z_template_list_entry_ptr entry = z_template_list_entry_new();
        entry->path = z_fs_utils_create_path_in_folder(folder_path, item.file_name.get());
        entry->text.reset(g_strdup(item.line->text.get()));
        z_template_list_add_entry(list.get(), std::move(entry));
    }
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
