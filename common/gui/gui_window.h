#pragma once

// Titles, sizes and keys of whole windows.

#include <gtk/gtk.h>

#include "common/base/handles.h"

// «Survey - Zanvel Templates Manager 3.2.3», or without a document (null) the part after the dash.
[[nodiscard]] z_utf8_ptr z_gui_generate_main_window_title(const char *application_name,
                                                          const char *document_name);

// What a window that lies wholly on the screen can be at most: the part that the desktop leaves to windows,
// without the frame that it puts around each.
struct z_gui_room {
    int width_px;
    int height_px;
};
[[nodiscard]] z_gui_room z_gui_get_room_for_window(GtkWidget *widget);

// For windows that are as small as their content allows; call it after the content has become smaller.
void z_gui_resize_window_to_minimum_unless_maximized(GtkWidget *window);
// For windows whose width the user may choose.
void z_gui_resize_window_to_minimum_height_unless_maximized(GtkWidget *window);

// For windows whose size the user may choose but whose content can force them to grow. Before the window is
// shown: it opens at the given size, or at what the screen has room for where that is smaller, and from
// then on the size chosen last is known. Afterwards, when content has become smaller: undoes the growth that
// content forced.
void z_gui_set_window_chosen_size(GtkWidget *window, int width_px, int height_px);
void z_gui_resize_window_to_chosen_size_unless_maximized(GtkWidget *window);

// Escape in the window presses this button.
void z_gui_set_window_cancel_button(GtkWidget *window, GtkWidget *button);
