#pragma once

// The widget factory: one line of a window's code makes one widget and puts it where it belongs, with the
// house's spacing and looks.
//
//     GtkWidget *window = z_gui_create_window("Add new");
//     GtkWidget *vbox = z_gui_add_vbox(window, z_spacing::normal);
//     z_gui_pack_label(vbox, "Enter new file name", 0, 0.5);
//     GtkWidget *entry = z_gui_pack_entry(vbox, z_expand::no, nullptr, z_activates_default::yes);
//
// The names below are the forms of gui_form.h for the creators of gui_create.h. Widgets of other modules name
// theirs in their own headers.

#include "common/gui/gui_create.h"
#include "common/gui/gui_form.h"
#include "common/gui/gui_notebook.h"
#include "common/gui/gui_set.h"
#include "common/gui/gui_window.h"

using z_gui_hbox = z_gui_form<z_gui_create_hbox>;
inline constexpr auto z_gui_add_hbox = z_gui_hbox::add;
inline constexpr auto z_gui_pack_hbox = z_gui_hbox::pack_expandable;
inline constexpr auto z_gui_attach_hbox = z_gui_hbox::attach_expandable;
inline constexpr auto z_gui_pack_hbox_in_alignment = z_gui_hbox::pack_in_alignment;
inline constexpr auto z_gui_pack_hbox_in_frame = z_gui_hbox::pack_in_frame;
inline constexpr auto z_gui_pack_hbox_in_frame_with_input_field_label =
    z_gui_hbox::pack_in_frame_with_input_field_label;
// The box below an expander of its own.
GtkWidget *z_gui_pack_hbox_in_expander(GtkWidget *box, z_expand expand, const char *label, z_spacing spacing);

using z_gui_vbox = z_gui_form<z_gui_create_vbox>;
inline constexpr auto z_gui_add_vbox = z_gui_vbox::add;
inline constexpr auto z_gui_pack_vbox = z_gui_vbox::pack_expandable;
inline constexpr auto z_gui_attach_vbox = z_gui_vbox::attach_expandable;
inline constexpr auto z_gui_attach_vbox_to_grid = z_gui_vbox::attach_to_grid;
inline constexpr auto z_gui_pack_vbox_in_alignment = z_gui_vbox::pack_in_alignment;
inline constexpr auto z_gui_pack_vbox_in_frame = z_gui_vbox::pack_in_frame;
inline constexpr auto z_gui_pack_vbox_in_frame_with_input_field_label =
    z_gui_vbox::pack_in_frame_with_input_field_label;

using z_gui_table = z_gui_form<z_gui_create_table>;
inline constexpr auto z_gui_add_table = z_gui_table::add;
inline constexpr auto z_gui_pack_table = z_gui_table::pack_expandable;
inline constexpr auto z_gui_pack_table_in_frame = z_gui_table::pack_in_frame;

using z_gui_alignment = z_gui_form<z_gui_create_alignment>;
inline constexpr auto z_gui_add_alignment = z_gui_alignment::add;
inline constexpr auto z_gui_pack_alignment = z_gui_alignment::pack_expandable;

using z_gui_alignment_for_widget = z_gui_form<z_gui_create_alignment_for_widget>;
inline constexpr auto z_gui_add_alignment_for_widget = z_gui_alignment_for_widget::add;
inline constexpr auto z_gui_pack_alignment_for_widget = z_gui_alignment_for_widget::pack_expandable;

using z_gui_label = z_gui_form<z_gui_create_label>;
inline constexpr auto z_gui_add_label = z_gui_label::add;
inline constexpr auto z_gui_attach_label = z_gui_label::attach;
inline constexpr auto z_gui_pack_label = z_gui_label::pack;

using z_gui_label_with_markup = z_gui_form<z_gui_create_label_with_markup>;
inline constexpr auto z_gui_pack_label_with_markup = z_gui_label_with_markup::pack;

using z_gui_label_for_input_field = z_gui_form<z_gui_create_label_for_input_field>;
inline constexpr auto z_gui_pack_label_for_input_field = z_gui_label_for_input_field::pack;

using z_gui_frame = z_gui_form<z_gui_create_frame>;
inline constexpr auto z_gui_pack_frame = z_gui_frame::pack_expandable;

using z_gui_frame_with_markup_label = z_gui_form<z_gui_create_frame_with_markup_label>;
inline constexpr auto z_gui_pack_frame_with_markup_label = z_gui_frame_with_markup_label::pack_expandable;

using z_gui_frame_with_input_field_label = z_gui_form<z_gui_create_frame_with_input_field_label>;
inline constexpr auto z_gui_pack_frame_with_input_field_label =
    z_gui_frame_with_input_field_label::pack_expandable;

using z_gui_sunken_frame = z_gui_form<z_gui_create_sunken_frame>;
inline constexpr auto z_gui_attach_sunken_frame = z_gui_sunken_frame::attach_expandable;
inline constexpr auto z_gui_attach_sunken_frame_to_grid = z_gui_sunken_frame::attach_to_grid;
inline constexpr auto z_gui_pack_sunken_frame = z_gui_sunken_frame::pack_expandable;

using z_gui_expander = z_gui_form<z_gui_create_expander>;
inline constexpr auto z_gui_pack_expander = z_gui_expander::pack_expandable;

using z_gui_notebook = z_gui_form<z_gui_create_notebook>;
inline constexpr auto z_gui_pack_notebook = z_gui_notebook::pack_expandable;

using z_gui_scrolled_window = z_gui_form<z_gui_create_scrolled_window>;
inline constexpr auto z_gui_add_scrolled_window = z_gui_scrolled_window::add;
inline constexpr auto z_gui_pack_scrolled_window = z_gui_scrolled_window::pack_expandable;

using z_gui_separator = z_gui_form<z_gui_create_separator>;
inline constexpr auto z_gui_pack_separator = z_gui_separator::pack;

using z_gui_space = z_gui_form<z_gui_create_space>;
inline constexpr auto z_gui_attach_space = z_gui_space::attach_shrunk;
inline constexpr auto z_gui_attach_space_to_grid = z_gui_space::attach_to_grid;
inline constexpr auto z_gui_pack_space = z_gui_space::pack;

GtkWidget *z_gui_pack_default_margin_space(GtkWidget *box);

using z_gui_button = z_gui_form<z_gui_create_button>;
inline constexpr auto z_gui_add_button = z_gui_button::add;
inline constexpr auto z_gui_pack_button = z_gui_button::pack_button;
inline constexpr auto z_gui_pack_button_in_alignment = z_gui_button::pack_in_alignment;
// The row at the foot of a window: OK, which Return presses, and Cancel, which Escape presses and which
// closes the window. Returns OK.
GtkWidget *z_gui_pack_ok_and_cancel_buttons(GtkWidget *box, GtkWidget *window, const char *ok_label,
                                            void (*ok_callback)(GtkButton *, gpointer), gpointer data);

using z_gui_check_button = z_gui_form<z_gui_create_check_button>;
inline constexpr auto z_gui_add_check_button = z_gui_check_button::add;
inline constexpr auto z_gui_pack_check_button = z_gui_check_button::pack;
inline constexpr auto z_gui_pack_check_button_in_alignment = z_gui_check_button::pack_in_alignment;

using z_gui_radio_button = z_gui_form<z_gui_create_radio_button>;
inline constexpr auto z_gui_pack_radio_button = z_gui_radio_button::pack;

using z_gui_radio_button_from_widget = z_gui_form<z_gui_create_radio_button_from_widget>;
inline constexpr auto z_gui_pack_radio_button_from_widget = z_gui_radio_button_from_widget::pack;

using z_gui_toggle_button = z_gui_form<z_gui_create_toggle_button>;
inline constexpr auto z_gui_add_toggle_button = z_gui_toggle_button::add;
inline constexpr auto z_gui_pack_toggle_button_in_alignment = z_gui_toggle_button::pack_in_alignment;

using z_gui_switch = z_gui_form<z_gui_create_switch>;
inline constexpr auto z_gui_pack_switch = z_gui_switch::pack;

using z_gui_combo_box = z_gui_form<z_gui_create_combo_box>;
inline constexpr auto z_gui_add_combo_box = z_gui_combo_box::add;
inline constexpr auto z_gui_attach_combo_box = z_gui_combo_box::attach_wide;
inline constexpr auto z_gui_pack_combo_box = z_gui_combo_box::pack_expandable;
inline constexpr auto z_gui_pack_combo_box_in_alignment = z_gui_combo_box::pack_in_alignment;

using z_gui_combo_box_text = z_gui_form<z_gui_create_combo_box_text>;
inline constexpr auto z_gui_add_combo_box_text = z_gui_combo_box_text::add;
inline constexpr auto z_gui_attach_combo_box_text = z_gui_combo_box_text::attach_wide;
inline constexpr auto z_gui_pack_combo_box_text = z_gui_combo_box_text::pack_expandable;
inline constexpr auto z_gui_pack_combo_box_text_in_alignment = z_gui_combo_box_text::pack_in_alignment;

using z_gui_entry = z_gui_form<z_gui_create_entry>;
inline constexpr auto z_gui_attach_entry = z_gui_entry::attach_wide;
inline constexpr auto z_gui_pack_entry = z_gui_entry::pack_expandable;

using z_gui_text_view = z_gui_form<z_gui_create_text_view>;
inline constexpr auto z_gui_add_text_view = z_gui_text_view::add;

using z_gui_tree_view = z_gui_form<z_gui_create_tree_view>;
inline constexpr auto z_gui_add_tree_view = z_gui_tree_view::add;

using z_gui_image_from_icon_name = z_gui_form<z_gui_create_image_from_icon_name>;
inline constexpr auto z_gui_add_image_from_icon_name = z_gui_image_from_icon_name::add;
inline constexpr auto z_gui_pack_image_from_icon_name = z_gui_image_from_icon_name::pack;
inline constexpr auto z_gui_pack_image_from_icon_name_in_alignment =
    z_gui_image_from_icon_name::pack_in_alignment;

using z_gui_drawing_area = z_gui_form<z_gui_create_drawing_area>;
inline constexpr auto z_gui_add_drawing_area = z_gui_drawing_area::add;

using z_gui_event_box = z_gui_form<z_gui_create_event_box>;
inline constexpr auto z_gui_add_event_box = z_gui_event_box::add;

using z_gui_overlay = z_gui_form<z_gui_create_overlay>;
inline constexpr auto z_gui_add_overlay = z_gui_overlay::add;
inline constexpr auto z_gui_pack_overlay_in_frame = z_gui_overlay::pack_in_frame;

using z_gui_stack = z_gui_form<z_gui_create_stack>;
inline constexpr auto z_gui_pack_stack = z_gui_stack::pack_expandable;

using z_gui_stack_sidebar = z_gui_form<z_gui_create_stack_sidebar>;
inline constexpr auto z_gui_pack_stack_sidebar = z_gui_stack_sidebar::pack_expandable;

using z_gui_hscrollbar = z_gui_form<z_gui_create_hscrollbar>;
inline constexpr auto z_gui_attach_hscrollbar = z_gui_hscrollbar::attach_expandable;

using z_gui_vscrollbar = z_gui_form<z_gui_create_vscrollbar>;
inline constexpr auto z_gui_attach_vscrollbar = z_gui_vscrollbar::attach_expandable;
inline constexpr auto z_gui_pack_vscrollbar = z_gui_vscrollbar::pack_expandable;
