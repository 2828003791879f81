#pragma once

// Setters and getters on widgets that exist already. Texts are UTF-8; a text that is got is borrowed from the
// widget.

#include <cstdint>

#include <gtk/gtk.h>

#include "common/gui/gui_create.h"

void z_gui_set_label_text(GtkWidget *label, const char *text);
void z_gui_set_label_markup(GtkWidget *label, const char *markup);
void z_gui_set_frame_label(GtkWidget *frame, const char *text);
void z_gui_set_frame_label_markup(GtkWidget *frame, const char *markup);
// The label of the nearest frame around the widget; false when there is none.
bool z_gui_set_widget_frame_label(GtkWidget *widget, const char *text);
// The label widget of the nearest frame around the widget, to tie an input to; null when there is none.
[[nodiscard]] GtkWidget *z_gui_get_widget_frame_label(GtkWidget *widget);
void z_gui_set_button_label(GtkWidget *button, const char *text);
void z_gui_set_entry_text(GtkWidget *entry, const char *text);
[[nodiscard]] const char *z_gui_get_entry_text(GtkWidget *entry);
void z_gui_set_sensitivity(GtkWidget *widget, bool is_sensitive);
[[nodiscard]] bool z_gui_get_sensitivity(GtkWidget *widget);

void z_gui_set_box_spacing(GtkWidget *box, z_spacing spacing);
void z_gui_set_margins(GtkWidget *widget, int top_px, int right_px, int bottom_px, int left_px);
// A container gets the margin within its border, any other widget outside of it.
void z_gui_set_surrounding_margin(GtkWidget *widget, int margin_px);
void z_gui_set_default_surrounding_margin(GtkWidget *widget);

// Text and background colour in every state, 0xRRGGBB. Setting a colour again replaces the old one.
void z_gui_set_widget_fg(GtkWidget *widget, uint32_t rgb);
void z_gui_set_widget_bg(GtkWidget *widget, uint32_t rgb);

// Whether column 0 of some row holds exactly this text.
[[nodiscard]] bool z_gui_does_text_exist_in_list_store(GtkListStore *store, const char *text);
void z_gui_remove_all_from_combo_box_text(GtkWidget *combo);

// A list that gets the focus selects its first row, which nobody chose. This drops the selection of a
// single-selection list now and once more when the main loop comes round, after the focus has been given and
// before anything is drawn; the focus stays.
void z_gui_unselect_when_idle(GtkWidget *tree_view);
