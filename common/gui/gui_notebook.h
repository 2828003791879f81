#pragma once

// Notebook pages and their labels. A page shows its name on the tab and in the menu of pages that a right
// click on the tabs opens. A scrollable notebook is never narrower than its widest tab, so long names are cut
// on the tab, where a tooltip tells the whole, and stand in full in the menu. Texts are UTF-8.

#include <gtk/gtk.h>

enum class z_page_margin { none, normal };

// Returns the page's index. On failure negative, with the reason in z_error. Without a label (null) the page
// has the toolkit's own.
[[nodiscard]] int z_gui_append_notebook_page(GtkWidget *notebook, GtkWidget *page, const char *label,
                                             z_page_margin margin);

void z_gui_set_notebook_tab_label_text(GtkWidget *notebook, GtkWidget *page, const char *text);
void z_gui_set_notebook_tab_label_markup(GtkWidget *notebook, GtkWidget *page, const char *markup);
void z_gui_set_notebook_menu_label_text(GtkWidget *notebook, GtkWidget *page, const char *text);
void z_gui_set_notebook_menu_label_markup(GtkWidget *notebook, GtkWidget *page, const char *markup);
// On the tab and in the menu.
void z_gui_set_notebook_label_text(GtkWidget *notebook, GtkWidget *page, const char *text);
void z_gui_set_notebook_label_markup(GtkWidget *notebook, GtkWidget *page, const char *markup);

// The label for tabs that hold more than a label.
GtkWidget *z_gui_create_tab_label(const char *text);
void z_gui_set_tab_label_text(GtkWidget *label, const char *text);
