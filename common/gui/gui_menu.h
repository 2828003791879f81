#pragma once

// Pop-up menus that are built, run to their end and thrown away within one function.
//
//     GtkWidget *menu = gtk_menu_new();
//     z_gui_menu_append_item_with_activate_callback(menu, "Rename", code_rename, z_menu_item::sensitive,
//                                                   activate_callback, &record);
//     z_gui_menu_run_and_destroy(menu, nullptr);
//     // Here the callback has run, if an item was chosen.
//
// Every item carries an integer of its maker's choice. Labels are UTF-8 where the name does not say Latin-1.

#include <gtk/gtk.h>

enum class z_menu_item { sensitive, insensitive };
enum class z_check { off, on };
using z_menu_activate_callback = void (*)(GtkMenuItem *item, gpointer data);
using z_menu_toggled_callback = void (*)(GtkCheckMenuItem *item, gpointer data);

GtkWidget *z_gui_menu_create_item(const char *label, int item_data, z_menu_item state);
GtkWidget *z_gui_menu_create_item_with_activate_callback(const char *label, int item_data, z_menu_item state,
                                                         z_menu_activate_callback callback, gpointer data);
GtkWidget *z_gui_menu_append_item(GtkWidget *menu, const char *label, int item_data, z_menu_item state);
GtkWidget *z_gui_menu_append_item_with_activate_callback(GtkWidget *menu, const char *label, int item_data,
                                                         z_menu_item state, z_menu_activate_callback callback,
                                                         gpointer data);
GtkWidget *z_gui_menu_append_latin1_item(GtkWidget *menu, const char *latin1_label, int item_data,
                                         z_menu_item state);
GtkWidget *z_gui_menu_append_latin1_item_with_activate_callback(GtkWidget *menu, const char *latin1_label,
                                                                int item_data, z_menu_item state,
                                                                z_menu_activate_callback callback,
                                                                gpointer data);
GtkWidget *z_gui_menu_append_check_item(GtkWidget *menu, const char *label, int item_data, z_menu_item state,
                                        z_check check);
GtkWidget *z_gui_menu_append_check_item_with_toggled_callback(GtkWidget *menu, const char *label,
                                                              int item_data, z_menu_item state, z_check check,
                                                              z_menu_toggled_callback callback,
                                                              gpointer data);
GtkWidget *z_gui_menu_create_separator();
GtkWidget *z_gui_menu_append_separator(GtkWidget *menu);
[[nodiscard]] int z_gui_menu_get_item_data(GtkMenuItem *item);

// Pops the menu up below the anchor and at least as wide, or without one (null) at the pointer, and returns
// when it has closed and the callbacks are through. Takes the menu over. A menu that cannot pop up, because
// another program holds the pointer, is dropped at once.
void z_gui_menu_run_and_destroy(GtkWidget *menu, GtkWidget *anchor);
