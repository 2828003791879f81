#pragma once

// The spacifying entry's companion for texts of several lines: line feeds stay, all else is as in
// common/gui/spacifying_entry.h. Tab moves the keyboard focus on, as in an entry, and Shift+Tab moves it
// back.

#include <gtk/gtk.h>

#include "common/base/handles.h"
#include "common/gui/gui_form.h"

#define Z_TYPE_SPACIFYING_TEXT_VIEW (z_spacifying_text_view_get_type())
G_DECLARE_FINAL_TYPE(ZSpacifyingTextView, z_spacifying_text_view, Z, SPACIFYING_TEXT_VIEW, GtkTextView)

[[nodiscard]] GtkWidget *z_spacifying_text_view_new();

void z_spacifying_text_view_set_text(ZSpacifyingTextView *view, const char *latin1_text);

// Null if the text cannot be converted, with the reason in z_error.
[[nodiscard]] z_latin1_ptr z_spacifying_text_view_get_text(ZSpacifyingTextView *view);

GtkWidget *z_gui_create_spacifying_text_view();
inline constexpr auto z_gui_add_spacifying_text_view = z_gui_form<z_gui_create_spacifying_text_view>::add;
