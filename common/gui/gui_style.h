#pragma once

// The few fixed styles that more than one widget shares.

#include <gtk/gtk.h>

void z_gui_style_hscale(GtkWidget *scale);
void z_gui_style_selected_menu_item(GtkWidget *item);
void z_gui_style_transparent_image(GtkWidget *image);

// Brings the padding of a button with an image in line with that of the theme's plain buttons; a button
// without an image is left alone.
void z_gui_style_normalize_button_padding(GtkWidget *button);

// Releases the cached providers; a later call of the functions above makes them anew.
void z_gui_style_clean_up();
