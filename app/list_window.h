#pragma once

// A modal window in which one line of a list is chosen.

#include <functional>
#include <vector>

#include "common/base/handles.h"

struct z_window_stack;

struct z_list_window_options {
    const char *title;
    const char *label;
    const char *column;
    int list_width_px;
    int list_height_px;
};

// Shows the UTF-8 lines, none of them selected. OK, a double click or Return on a line calls `accept` with
// the line's index; the window closes when that returns true and stays otherwise. Returns whether a line was
// accepted.
[[nodiscard]] bool z_list_window_run(z_window_stack *window_stack, const z_list_window_options &options,
                                     const std::vector<z_utf8_ptr> &lines,
                                     const std::function<bool(int index)> &accept);
