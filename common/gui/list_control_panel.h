#pragma once

// The column of buttons beside a list by which its selected row is moved and removed:
//
//     [ Move up ]
//     [ Move down ]
//     [ Delete ]       if asked for
//
// A button can be pressed exactly when it has something to do. A moved row stays selected and in sight, and
// the neighbour of a removed one is selected next.

#include <gtk/gtk.h>

#include "common/gui/gui_form.h"

#define Z_TYPE_LIST_CONTROL_PANEL (z_list_control_panel_get_type())
G_DECLARE_FINAL_TYPE(ZListControlPanel, z_list_control_panel, Z, LIST_CONTROL_PANEL, GtkBox)

// Comes back shown. Needs: the view shows this store, which is not sorted, and selects one row at most.
[[nodiscard]] GtkWidget *z_list_control_panel_new(GtkListStore *list_store, GtkTreeView *tree_view);

// Whether the row may be removed. May ask the user, and so run a nested main loop.
using z_list_control_panel_confirm = bool (*)(ZListControlPanel *panel, GtkTreeIter *row, gpointer user_data);

// Only the first call has an effect. Without a callback (null) rows are removed unasked.
void z_list_control_panel_pack_remove_button(ZListControlPanel *panel, const char *label,
                                             z_list_control_panel_confirm confirm_callback,
                                             gpointer user_data);

inline constexpr auto z_gui_create_list_control_panel = z_list_control_panel_new;
inline constexpr auto g_gui_pack_list_control_panel = z_gui_form<z_list_control_panel_new>::pack;
