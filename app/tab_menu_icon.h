#pragma once

// The three bars on a report type's tab that open its menu. Emits "clicked" when the left button is released
// over it; the press goes on to the notebook, which selects the tab first.

#include <gtk/gtk.h>

#define TYPE_TAB_MENU_ICON (tab_menu_icon_get_type())
G_DECLARE_FINAL_TYPE(TabMenuIcon, tab_menu_icon, TAB, MENU_ICON, GtkWidget)

[[nodiscard]] GtkWidget *tab_menu_icon_new();
