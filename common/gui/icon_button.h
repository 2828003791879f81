#pragma once

// A button with an image of the program's own resources, beside its label or instead of one.

#include <gtk/gtk.h>

#include "common/gui/gui_form.h"

#define Z_TYPE_ICON_BUTTON (z_icon_button_get_type())
G_DECLARE_FINAL_TYPE(ZIconButton, z_icon_button, Z, ICON_BUTTON, GtkButton)

// Comes back shown. `member_name` is the image's name in the resource archive ("save.png"); an image that
// does not load is left out. The label is UTF-8 and optional.
[[nodiscard]] GtkWidget *z_icon_button_new(const char *member_name, const char *label);

inline constexpr auto z_gui_create_icon_button = z_icon_button_new;
inline constexpr auto z_gui_add_icon_button = z_gui_form<z_icon_button_new>::add;
inline constexpr auto z_gui_pack_icon_button = z_gui_form<z_icon_button_new>::pack_button;
inline constexpr auto z_gui_pack_icon_button_in_alignment = z_gui_form<z_icon_button_new>::pack_in_alignment;
