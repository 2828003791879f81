#pragma once

// The workspace: the personal folder with everything that the user works with.
//
//     workspace  -> codesets, documents, layouts, templates   made when missing
//                -> fonts                                     optional
//                -> settings.xml
//
// Its path is kept among the user's own strings (see platform.h). A new workspace gets what the installation
// brings along, and one that is opened gets newer versions of bundled layouts (bundled_components.h).

#include "common/base/handles.h"
#include "common/workspace/settings.h"

struct z_workspace;
void z_workspace_close(z_workspace *workspace);
using z_workspace_ptr = z_ptr<z_workspace, z_workspace_close>;

// The paths have no trailing delimiter.
struct z_workspace {
    z_utf8_ptr folder_path;
    z_utf8_ptr codesets_folder_path;
    z_utf8_ptr documents_folder_path;
    z_utf8_ptr fonts_folder_path; // Need not exist.
    z_utf8_ptr layouts_folder_path;
    z_utf8_ptr templates_folder_path;
    z_settings_ptr settings; // The defaults, until they are loaded.
};

// Opens the saved workspace, or the one at the default place when none is saved. Null if there is none: with
// an empty error when the place is merely empty, with the reason when something is in the way.
[[nodiscard]] z_workspace_ptr z_workspace_open();

// Makes a new workspace at a path where nothing is yet, with the components that the installation brings
// along, and saves the path. A failure leaves neither folders nor a saved path behind.
[[nodiscard]] bool z_workspace_create(const char *path);

// Without trailing delimiters; null, with success, if none was saved. Something that is no absolute path
// counts as none.
[[nodiscard]] bool z_workspace_get_saved_folder_path(z_utf8_ptr &path);
[[nodiscard]] bool z_workspace_save_folder_path(const char *path); // Null forgets the saved one.

extern const char z_workspace_folder_name[]; // "Zanvel Workspace"

// That name in the user's documents folder, which need not exist. Null on failure.
[[nodiscard]] z_utf8_ptr z_workspace_get_default_folder_path();
