#pragma once

// Shows all texts of a langstr, to be read and copied but not changed:
//
//     English [en]        in bold
//
//     Door
//
//     Swedish [sv]
//     ...

#include <gtk/gtk.h>

#include "common/gui/gui_form.h"
#include "common/model/langstr.h"

#define Z_TYPE_LANGSTR_DISPLAY (z_langstr_display_get_type())
G_DECLARE_FINAL_TYPE(ZLangstrDisplay, z_langstr_display, Z, LANGSTR_DISPLAY, GtkTextView)

// Comes back shown and empty.
[[nodiscard]] GtkWidget *z_langstr_display_new();
void z_langstr_display_set_text(ZLangstrDisplay *display, const z_langstr *langstr);

inline constexpr auto z_gui_create_langstr_display = z_langstr_display_new;
inline constexpr auto z_gui_pack_langstr_display = z_gui_form<z_langstr_display_new>::pack_expandable;
