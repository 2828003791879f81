#pragma once

// The small modal window that asks for one langstr: a report type's name, a header, a checkbox's label.

#include "common/base/input_repair.h"
#include "common/base/list.h"
#include "common/model/langstr.h"

struct z_window_stack;

struct z_langstr_window_options {
    const char *title = nullptr;    // "Enter multilingual text" if null
    const char *label = nullptr;    // UTF-8, as all texts here; marked as required unless allow_empty
    const char *note = nullptr;     // shown under the editor while something in it cannot be changed
    const char *ok_label = nullptr; // "OK" if null
    const z_langstr *locked = nullptr;
    z_input_lines lines = z_input_lines::single;
    bool insensitive = false; // shows the texts only; OK then leaves the langstr as it is
    bool allow_empty = false;
};

// Whether the window was closed with OK; only then the langstr has been replaced.
[[nodiscard]] bool z_langstr_window_run(z_window_stack *window_stack,
                                        const z_list<z_preferred_language> &languages, z_langstr_ptr &langstr,
                                        const z_langstr_window_options &options);
