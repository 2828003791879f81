#include "common/gui/gui_create.h"

#include "common/base/handles.h"
#include "common/gui/gui_set.h"

static int get_pixels(z_spacing spacing)
{
    return spacing == z_spacing::normal ? z_gui_get_default_margin() : 0;
}

static GtkWidget *show(GtkWidget *widget)
{
    gtk_widget_show(widget);
    return widget;
}

GtkWidget *z_gui_create_window(const char *title)
{
    GtkWidget *window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    if (title != nullptr)
        gtk_window_set_title(GTK_WINDOW(window), title);
    z_gui_set_default_surrounding_margin(window);
    return window;
}

// Containers.

GtkWidget *z_gui_create_hbox(z_spacing spacing)
{
    return show(gtk_box_new(GTK_ORIENTATION_HORIZONTAL, get_pixels(spacing)));
}

GtkWidget *z_gui_create_vbox(z_spacing spacing)
{
    return show(gtk_box_new(GTK_ORIENTATION_VERTICAL, get_pixels(spacing)));
}

GtkWidget *z_gui_create_grid(z_spacing spacing)
{
    GtkWidget *grid = gtk_grid_new();
    gtk_grid_set_row_spacing(GTK_GRID(grid), static_cast<guint>(get_pixels(spacing)));
    gtk_grid_set_column_spacing(GTK_GRID(grid), static_cast<guint>(get_pixels(spacing)));
    return show(grid);
}

GtkWidget *z_gui_create_table()
{
    return z_gui_create_grid(z_spacing::none);
}

// The only child has the whole box to stand in, while the box itself expands only as far as it is told to.
static void add_to_alignment_callback(GtkContainer *box, GtkWidget *child, gpointer data) noexcept
{
    const int aligns = GPOINTER_TO_INT(data);
    z_gui_align(child, static_cast<GtkAlign>(aligns >> 8), static_cast<GtkAlign>(aligns & 0xff));
    gtk_box_set_child_packing(GTK_BOX(box), child, TRUE, TRUE, 0, GTK_PACK_START);
}

GtkWidget *z_gui_create_alignment(GtkAlign horizontal, GtkAlign vertical)
{
    GtkWidget *box = z_gui_create_hbox(z_spacing::none);
    g_signal_connect(box, "add", G_CALLBACK(add_to_alignment_callback),
                     GINT_TO_POINTER(static_cast<int>(horizontal) << 8 | static_cast<int>(vertical)));
    return box;
}

GtkWidget *z_gui_create_alignment_for_widget(GtkWidget *child, GtkAlign horizontal, GtkAlign vertical)
{
    GtkWidget *alignment = z_gui_create_alignment(horizontal, vertical);
    gtk_container_add(GTK_CONTAINER(alignment), child);
    return alignment;
}

GtkWidget *z_gui_create_frame(const char *label)
{
    return show(gtk_frame_new(label));
}

GtkWidget *z_gui_create_frame_with_markup_label(const char *markup)
{
    GtkWidget *frame = z_gui_create_frame(nullptr);
    z_gui_set_frame_label_markup(frame, markup);
    return frame;
}

GtkWidget *z_gui_create_frame_with_input_field_label(const char *name, z_required required)
{
    GtkWidget *frame = z_gui_create_frame(nullptr);
    gtk_frame_set_label_widget(GTK_FRAME(frame), z_gui_create_label_for_input_field(name, required));
    return frame;
}

GtkWidget *z_gui_create_sunken_frame()
{
    GtkWidget *frame = z_gui_create_frame(nullptr);
    gtk_frame_set_shadow_type(GTK_FRAME(frame), GTK_SHADOW_IN);
    return frame;
}

GtkWidget *z_gui_create_expander(const char *label)
{
    return show(gtk_expander_new(label));
}

GtkWidget *z_gui_create_notebook()
{
    GtkWidget *notebook = gtk_notebook_new();
    gtk_notebook_set_scrollable(GTK_NOTEBOOK(notebook), TRUE);
    gtk_notebook_popup_enable(GTK_NOTEBOOK(notebook));
    return show(notebook);
}

GtkWidget *z_gui_create_scrolled_window(int width_px, int height_px, GtkPolicyType horizontal_policy,
                                        GtkPolicyType vertical_policy, GtkShadowType shadow)
{
    GtkWidget *scrolled_window = gtk_scrolled_window_new(nullptr, nullptr);
    gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(scrolled_window), FALSE);
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scrolled_window), horizontal_policy, vertical_policy);
    gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(scrolled_window), shadow);
    gtk_widget_set_size_request(scrolled_window, width_px, height_px);
    return show(scrolled_window);
}

GtkWidget *z_gui_create_event_box()
{
    return show(gtk_event_box_new());
}

GtkWidget *z_gui_create_overlay()
{
    return show(gtk_overlay_new());
}

GtkWidget *z_gui_create_stack()
{
    return show(gtk_stack_new());
}

GtkWidget *z_gui_create_stack_sidebar(GtkWidget *stack)
{
    GtkWidget *sidebar = gtk_stack_sidebar_new();
    gtk_stack_sidebar_set_stack(GTK_STACK_SIDEBAR(sidebar), GTK_STACK(stack));
    return show(sidebar);
}

// Texts.

static GtkWidget *align_label(GtkWidget *label, double x_align, double y_align)
{
    gtk_label_set_xalign(GTK_LABEL(label), static_cast<float>(x_align));
    gtk_label_set_yalign(GTK_LABEL(label), static_cast<float>(y_align));
    return show(label);
}

GtkWidget *z_gui_create_label(const char *text, double x_align, double y_align)
{
    return align_label(gtk_label_new(text), x_align, y_align);
}

GtkWidget *z_gui_create_label_with_markup(const char *markup, double x_align, double y_align)
{
    GtkWidget *label = gtk_label_new(nullptr);
    gtk_label_set_markup(GTK_LABEL(label), markup);
    return align_label(label, x_align, y_align);
}

GtkWidget *z_gui_create_label_for_input_field(const char *name, z_required required)
{
    const char *note =
        required == z_required::yes ? " <span style=\"italic\" alpha=\"50%\">(Required)</span>" : "";
    const z_utf8_ptr name_markup(g_markup_escape_text(name, -1));
    const z_utf8_ptr markup(g_strdup_printf("%s:%s", name_markup.get(), note));
    return z_gui_create_label_with_markup(markup.get(), 0, 0.5);
}

// Fillers and pictures.

GtkWidget *z_gui_create_separator(GtkOrientation orientation)
{
    return show(gtk_separator_new(orientation));
}

GtkWidget *z_gui_create_space(int width_px, int height_px)
{
    GtkWidget *space = z_gui_create_hbox(z_spacing::none);
    gtk_widget_set_size_request(space, width_px, height_px);
    return space;
}

GtkWidget *z_gui_create_image_from_icon_name(const char *icon_name, GtkIconSize size)
{
    return show(gtk_image_new_from_icon_name(icon_name, size));
}

GtkWidget *z_gui_create_drawing_area()
{
    return show(gtk_drawing_area_new());
}

// Buttons.

GtkWidget *z_gui_create_button(const char *label)
{
    return show(label == nullptr ? gtk_button_new() : gtk_button_new_with_label(label));
}

static GtkWidget *set_active(GtkWidget *button, bool is_active)
{
    gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(button), is_active);
    return show(button);
}

GtkWidget *z_gui_create_check_button(const char *label, bool is_active)
{
    return set_active(label == nullptr ? gtk_check_button_new() : gtk_check_button_new_with_label(label),
                      is_active);
}

GtkWidget *z_gui_create_radio_button(const char *label, bool is_active)
{
    return z_gui_create_radio_button_from_widget(nullptr, label, is_active);
}

GtkWidget *z_gui_create_radio_button_from_widget(GtkWidget *member, const char *label, bool is_active)
{
    GtkRadioButton *group = member == nullptr ? nullptr : GTK_RADIO_BUTTON(member);
    GtkWidget *button = label == nullptr ? gtk_radio_button_new_from_widget(group)
                                         : gtk_radio_button_new_with_label_from_widget(group, label);
    return set_active(button, is_active);
}

GtkWidget *z_gui_create_toggle_button(const char *label)
{
    return show(label == nullptr ? gtk_toggle_button_new() : gtk_toggle_button_new_with_label(label));
}

GtkWidget *z_gui_create_switch()
{
    return show(gtk_switch_new());
}

// Inputs.

GtkWidget *z_gui_create_combo_box(GtkTreeModel *model)
{
    return show(gtk_combo_box_new_with_model(model));
}

GtkWidget *z_gui_create_combo_box_text()
{
    return show(gtk_combo_box_text_new());
}

static GtkInputHints without_emojis(GtkInputHints hints)
{
    return static_cast<GtkInputHints>((hints & ~GTK_INPUT_HINT_EMOJI) | GTK_INPUT_HINT_NO_EMOJI);
}

void z_gui_disable_emojis_in_entry(GtkWidget *entry)
{
    g_object_set(entry, "show-emoji-icon", FALSE, nullptr);
    gtk_entry_set_input_hints(GTK_ENTRY(entry), without_emojis(gtk_entry_get_input_hints(GTK_ENTRY(entry))));
}

void z_gui_disable_emojis_in_text_view(GtkWidget *text_view)
{
    GtkTextView *view = GTK_TEXT_VIEW(text_view);
    gtk_text_view_set_input_hints(view, without_emojis(gtk_text_view_get_input_hints(view)));
}

GtkWidget *z_gui_create_entry(const char *text, z_activates_default activates_default)
{
    GtkWidget *entry = gtk_entry_new();
    if (text != nullptr)
        gtk_entry_set_text(GTK_ENTRY(entry), text);
    gtk_entry_set_activates_default(GTK_ENTRY(entry), activates_default == z_activates_default::yes);
    z_gui_disable_emojis_in_entry(entry);
    return show(entry);
}

GtkWidget *z_gui_create_text_view(z_editable editable)
{
    GtkWidget *text_view = gtk_text_view_new();
    gtk_text_view_set_wrap_mode(GTK_TEXT_VIEW(text_view), GTK_WRAP_WORD);
    gtk_text_view_set_editable(GTK_TEXT_VIEW(text_view), editable == z_editable::yes);
    gtk_text_view_set_cursor_visible(GTK_TEXT_VIEW(text_view), editable == z_editable::yes);
    return show(text_view);
}

// Lists.

GtkWidget *z_gui_create_tree_view(GtkTreeModel *model, z_tree_view_headers headers, z_tree_view_height height,
                                  z_tree_view_selection selection)
{
    GtkWidget *tree_view = model == nullptr ? gtk_tree_view_new() : gtk_tree_view_new_with_model(model);
    GtkTreeView *view = GTK_TREE_VIEW(tree_view);
    gtk_tree_view_set_headers_visible(view, headers == z_tree_view_headers::visible);
    gtk_tree_view_set_fixed_height_mode(view, height == z_tree_view_height::fixed);
    gtk_tree_selection_set_mode(gtk_tree_view_get_selection(view),
                                selection == z_tree_view_selection::multiple ? GTK_SELECTION_MULTIPLE
                                                                             : GTK_SELECTION_SINGLE);
    return show(tree_view);
}

GtkWidget *z_gui_create_hscrollbar(GtkAdjustment *adjustment)
{
    return show(gtk_scrollbar_new(GTK_ORIENTATION_HORIZONTAL, adjustment));
}

GtkWidget *z_gui_create_vscrollbar(GtkAdjustment *adjustment)
{
    return show(gtk_scrollbar_new(GTK_ORIENTATION_VERTICAL, adjustment));
}
