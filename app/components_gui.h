#pragma once

// A window that lists the files of one kind in one folder of the workspace and offers what can be done with
// them. What the files are is the caller's business: it names their type, says what to show for one and how
// to edit one.

#include "common/base/handles.h"
#include "common/model/file_type.h"

struct z_window_stack;
struct z_workspace;

struct z_components_gui {
    z_window_stack *window_stack;
    z_workspace *workspace;
    const char *title;
    const char *sub_folder_name; // Of the workspace, and of the installation for bundled items.
    z_file_type file_type;

    // The line to show for a file; none for a file that is not of the kind, with the reason in z_error.
    z_utf8_ptr (*get_item_text)(const char *path_utf8, void *user_data);
    // Edits a file; a path without a file makes a new one there.
    void (*edit)(const char *path_utf8, void *user_data);
    void *user_data;
};

// Runs the window until it is closed.
void z_components_gui_main_window_run(const z_components_gui *components);

// Asks for the name of a file that is not there yet. Returns its path in the workspace's folder, or none.
[[nodiscard]] z_utf8_ptr z_components_gui_get_new_file_path(const z_components_gui *components);
