#pragma once

// A window without decorations that drops down at the pointer, such as a calendar or a choice of colours.
// While it is open it takes all presses of the pointer and the keys of its parent window; a press outside of
// it and Escape close it, which destroys it.

#include <gtk/gtk.h>

struct z_window_stack;

#define Z_TYPE_DROPDOWN_PANEL (z_dropdown_panel_get_type())
G_DECLARE_FINAL_TYPE(ZDropdownPanel, z_dropdown_panel, Z, DROPDOWN_PANEL, GtkWindow)

enum class z_panel_margin { none, normal };

// Comes back hidden and empty. The window stack, on which the parent lies, shows the panel's error.
[[nodiscard]] GtkWidget *z_dropdown_panel_new(z_window_stack *window_stack, GtkWindow *parent,
                                              z_panel_margin margin);

// Returns at once. If the pointer cannot be had the panel is destroyed and the user is told.
void z_dropdown_panel_open(ZDropdownPanel *panel);
