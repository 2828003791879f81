#pragma once

// What a busy node of the window stack shows: nothing, or an undecorated window with a message and, on
// request, a button that asks the running operation to stop. The window cannot be closed by its user.

#include <gtk/gtk.h>

#include "common/base/handles.h"

struct z_busy {
    z_busy() = default;
    z_busy(const z_busy &) = delete;
    z_busy &operator=(const z_busy &) = delete;
    ~z_busy();

    // All null until the window is made; the parts belong to it.
    GtkWidget *window = nullptr;
    GtkWidget *content_box = nullptr;
    GtkWidget *message_label = nullptr;
    GtkWidget *abort_box = nullptr;
    GtkWidget *abort_button = nullptr;
    bool is_abort_requested = false;
};

// Makes the window, hidden, over the parent, or for none (null) in the middle of the screen.
void z_busy_create_window(z_busy *busy, GtkWidget *parent);
// Returns when the window has been painted, or after the time in which that should have happened: the caller
// is about to keep the main loop from running.
void z_busy_wait_until_painted(z_busy *busy);

// These need the window. A null text stands for "Please wait".
void z_busy_set_message(z_busy *busy, const char *text);
void z_busy_show_abort_button(z_busy *busy);
void z_busy_hide_abort_button(z_busy *busy);
