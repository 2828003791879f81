#pragma once

// The desktop's own dialogs for choosing files and folders, modal on the window stack (which may be null).
//
// A dialog offers the given types of files, in their order, and all files. As long as the program runs it
// opens in the folder that was last used for the same types in the same order, and at first in the user's
// documents folder. Paths are UTF-8 and absolute, and none is a cancelled dialog. A chosen name that cannot
// be written in UTF-8 is told to the user and counts as cancelled.

#include <span>
#include <vector>

#include "common/base/handles.h"
#include "common/model/file_type.h"

struct z_window_stack;

// `filter_name` names the filter for all types together, which comes first when there are two or more; null
// is "Matching files".
[[nodiscard]] z_utf8_ptr z_file_dialog_get_file_path_for_reading(z_window_stack *stack, const char *title,
                                                                 const char *filter_name,
                                                                 std::span<const z_file_type> types);
// In the dialog's order.
[[nodiscard]] std::vector<z_utf8_ptr> z_file_dialog_get_multiple_file_paths_for_reading(
    z_window_stack *stack, const char *title, const char *filter_name, std::span<const z_file_type> types);

// A place for a file of the type, with an extension. If a file is there, the user has agreed to lose it; what
// is there when the caller writes may be something else again. `suggested_name` may be a path; null is
// "untitled" with the type's extension.
[[nodiscard]] z_utf8_ptr
z_file_dialog_get_file_path_for_writing(z_window_stack *stack, const char *suggested_name, z_file_type type);

// A folder without ending delimiters, which the root folder keeps.
[[nodiscard]] z_utf8_ptr z_file_dialog_get_folder_path(z_window_stack *stack, const char *prompt);

// Forgets the folders last used.
void z_file_dialog_clean_up();
