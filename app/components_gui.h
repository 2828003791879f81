#pragma once

// A window that lists the files of one kind in one folder of the workspace and offers what can be done with
// them. What the files are is the caller's business: it names their type, says what to show for one and how
// to edit one.

#include <vector>

#include "common/base/handles.h"
#include "common/model/file_type.h"
#include "common/workspace/item_list.h"

struct z_window_stack;
struct z_workspace;

struct z_components_gui {
    z_window_stack *window_stack;
    const z_workspace *workspace;
    const char *title;
    const char *sub_folder_name; // Of the workspace, and of the installation for bundled items.
    z_file_type file_type;
    bool has_bundled_items;

    // The line to show for a file, and what it depends on beside the file (see item_list.h).
    z_item_text_operation get_item_text;
    const char *item_text_context;

    // Edits a file; a path without a file makes a new one there.
    void (*edit)(const char *path_utf8, void *user_data);
    // Whether a file may be edited; null for all.
    bool (*is_editable)(const char *path_utf8, void *user_data);
    void *user_data;
};

// Runs the window until it is closed.
void z_components_gui_main_window_run(const z_components_gui *components);

// Asks for the name of a file that is not there yet. Returns its path in the workspace's folder, or none.
[[nodiscard]] z_utf8_ptr z_components_gui_get_new_file_path(const z_components_gui *components);

// Asks for one of the installation's files. Returns its path, or none.
[[nodiscard]] z_utf8_ptr z_components_gui_get_bundled_file_path(const z_components_gui *components);

// What the windows share. The workspace's folder, and the one of the installation (null if there is none).
[[nodiscard]] z_utf8_ptr components_get_folder_path(const z_components_gui *components);
[[nodiscard]] z_utf8_ptr components_get_bundled_folder_path(const z_components_gui *components);
// Reading may take long; then the user sees that the program is busy. A folder that cannot be listed has no
// items.
[[nodiscard]] std::vector<z_item> components_list_folder(const z_components_gui *components,
                                                         const char *folder_path);
// The line of one file, or its path if it cannot be read.
[[nodiscard]] z_utf8_ptr components_describe_file(const z_components_gui *components, const char *path);
