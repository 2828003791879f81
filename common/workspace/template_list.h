#pragma once

// The templates in a folder, each with the line that stands for it in a list.

#include "common/base/handles.h"
#include "common/base/list.h"

struct z_settings;
struct z_template_list;
struct z_template_list_entry;
struct z_workspace;

void z_template_list_destroy(z_template_list *list);
void z_template_list_entry_destroy(z_template_list_entry *entry);
using z_template_list_ptr = z_ptr<z_template_list, z_template_list_destroy>;
using z_template_list_entry_ptr = z_ptr<z_template_list_entry, z_template_list_entry_destroy>;

struct z_template_list_entry : z_link {
    z_utf8_ptr path;
    z_utf8_ptr text;
};

struct z_template_list {
    z_list<z_template_list_entry> entries;
};

[[nodiscard]] z_template_list_ptr z_template_list_new();
[[nodiscard]] z_template_list_entry_ptr z_template_list_entry_new();
[[nodiscard]] z_template_list_entry_ptr z_template_list_entry_remove(z_template_list_entry *entry);
void z_template_list_add_entry(z_template_list *list, z_template_list_entry_ptr entry);

// Null past the end.
[[nodiscard]] z_template_list_entry *z_template_list_get_entry(const z_template_list *list, int index);

// Every template that can be read, in the order of item_list.h; others are left out. A workspace
// whose folder cannot be listed has none; for a folder by itself that is a failure, and null.
[[nodiscard]] z_template_list_ptr z_template_list_load(const z_workspace *workspace);
[[nodiscard]] z_template_list_ptr z_template_list_load_folder(const char *folder_path,
                                                              const z_settings *settings);

// "Inspection (author) 2.0" in the user's language. Null, with the reader's error, if the file is no
// template.
[[nodiscard]] z_utf8_ptr z_template_io_get_ui_text(const z_settings *settings, const char *path);

// What the lines of templates depend on beside the files: the context of item_list.h.
[[nodiscard]] z_utf8_ptr z_template_list_create_context(const z_settings *settings);
