#pragma once

// The system's file chooser itself: one function, which a test replaces to choose by itself. What a chooser
// is asked for and what becomes of the answer stands in file_dialog.h.

#include <span>
#include <string>
#include <vector>

#include <gtk/gtk.h>

#include "common/model/file_filter.h"

enum class z_native_chooser_action { open, open_several, save, choose_folder };

struct z_native_chooser_request {
    z_native_chooser_action action;
    GtkWidget *owner = nullptr; // The window that the chooser is modal over, or null.
    const char *title;
    const char *folder_path = nullptr; // Where it opens; null leaves that to the desktop.
    const char *file_name = nullptr;   // What is typed already when saving.
    std::span<const z_file_filter> filters = {};
};

struct z_native_chooser_answer {
    std::vector<std::string> paths = {}; // In GLib's encoding of file names; none when cancelled.
    size_t filter_index = 0;
    const char *failure = nullptr; // Why nothing could be chosen, for the user, unless it was cancelled.
};

extern z_native_chooser_answer (*z_native_chooser_run)(const z_native_chooser_request &request);
