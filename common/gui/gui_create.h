#pragma once

// Creates widgets with the house settings. Every widget comes back shown (windows and dialogs are shown by
// whoever runs them) and floating, to be taken over by its container. Texts are UTF-8; a text that is called
// optional may be null. gui.h names the forms that create and place in one go.

#include <gtk/gtk.h>

#include "common/gui/gui_form.h"

enum class z_spacing { none, normal };
enum class z_activates_default { no, yes };
enum class z_editable { no, yes };

// The margin and spacing of the whole user interface, in pixels.
[[nodiscard]] constexpr int z_gui_get_default_margin()
{
    return 8;
}

// Windows. The title is optional.
GtkWidget *z_gui_create_window(const char *title);

enum class z_dialog_buttons { none, ok, close, yes_no };
// No and Yes stand in the order that the platform prefers. A dialog without buttons is one whose caller adds
// its own.
GtkWidget *z_gui_create_dialog(const char *title, z_dialog_buttons buttons);

// Containers.
GtkWidget *z_gui_create_hbox(z_spacing spacing);
GtkWidget *z_gui_create_vbox(z_spacing spacing);
GtkWidget *z_gui_create_grid(z_spacing spacing);
GtkWidget *z_gui_create_table();
// Places the child that is added to it within the room that the alignment itself gets.
GtkWidget *z_gui_create_alignment(GtkAlign horizontal, GtkAlign vertical);
GtkWidget *z_gui_create_alignment_for_widget(GtkWidget *child, GtkAlign horizontal, GtkAlign vertical);
GtkWidget *z_gui_create_frame(const char *label);
GtkWidget *z_gui_create_frame_with_markup_label(const char *markup);
GtkWidget *z_gui_create_frame_with_input_field_label(const char *name, z_required required);
GtkWidget *z_gui_create_sunken_frame();
GtkWidget *z_gui_create_expander(const char *label);
GtkWidget *z_gui_create_notebook();
// The bars always take room of their own. Width and height are the least size in pixels, -1 for the child's.
GtkWidget *z_gui_create_scrolled_window(int width_px, int height_px, GtkPolicyType horizontal_policy,
                                        GtkPolicyType vertical_policy, GtkShadowType shadow);
GtkWidget *z_gui_create_event_box();
GtkWidget *z_gui_create_overlay();
GtkWidget *z_gui_create_stack();
GtkWidget *z_gui_create_stack_sidebar(GtkWidget *stack);

// Texts, with x and y alignment from 0 (left, top) to 1.
GtkWidget *z_gui_create_label(const char *text, double x_align, double y_align);
GtkWidget *z_gui_create_label_with_markup(const char *markup, double x_align, double y_align);
// «Name:», or «Name: (Required)» with the note in pale italics; the name is plain text.
GtkWidget *z_gui_create_label_for_input_field(const char *name, z_required required);

// Fillers and pictures.
GtkWidget *z_gui_create_separator(GtkOrientation orientation);
GtkWidget *z_gui_create_space(int width_px, int height_px);
GtkWidget *z_gui_create_image_from_icon_name(const char *icon_name, GtkIconSize size);
GtkWidget *z_gui_create_drawing_area();

// Buttons, with optional labels. A radio button begins a group or joins that of another one.
GtkWidget *z_gui_create_button(const char *label);
GtkWidget *z_gui_create_check_button(const char *label, bool is_active);
GtkWidget *z_gui_create_radio_button(const char *label, bool is_active);
GtkWidget *z_gui_create_radio_button_from_widget(GtkWidget *member, const char *label, bool is_active);
GtkWidget *z_gui_create_toggle_button(const char *label);
GtkWidget *z_gui_create_switch();

// Inputs.
GtkWidget *z_gui_create_combo_box(GtkTreeModel *model);
GtkWidget *z_gui_create_combo_box_text();
// The initial text is optional. Return in the entry presses the window's default button if asked for.
GtkWidget *z_gui_create_entry(const char *text, z_activates_default activates_default);
GtkWidget *z_gui_create_text_view(z_editable editable);
void z_gui_disable_emojis_in_entry(GtkWidget *entry);
void z_gui_disable_emojis_in_text_view(GtkWidget *text_view);

// Lists. Fixed height asks for columns of fixed width and pays in long lists.
enum class z_tree_view_headers { hidden, visible };
enum class z_tree_view_height { by_row, fixed };
enum class z_tree_view_selection { single, multiple };
GtkWidget *z_gui_create_tree_view(GtkTreeModel *model, z_tree_view_headers headers, z_tree_view_height height,
                                  z_tree_view_selection selection);
GtkWidget *z_gui_create_hscrollbar(GtkAdjustment *adjustment);
GtkWidget *z_gui_create_vscrollbar(GtkAdjustment *adjustment);
