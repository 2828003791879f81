#pragma once

// Notices that the user has gone to another program and come back. Windows hand the focus to each other all
// the time, so only an absence of half a second without any of the program's windows having it counts.

#include <cstdint>
#include <optional>

#include <glib.h>

#include "common/base/handles.h"

struct z_focus_watch {
    // Whether one of the program's windows has the focus now.
    bool (*has_focus)(gpointer data) = nullptr;
    gpointer data = nullptr;

    bool is_focus_lost = false;
    int64_t focus_lost_us = 0;
    z_source timer;
};

// For every window that loses the focus.
void z_focus_watch_note_loss(z_focus_watch *watch);

// For every window that gets the focus: the whole seconds of the absence that ends with it, if there was one.
[[nodiscard]] std::optional<int64_t> z_focus_watch_note_gain(z_focus_watch *watch);
