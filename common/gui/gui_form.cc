#include "common/gui/gui_form.h"

#include "common/gui/gui.h"

GtkWidget *z_gui_place_in_container(GtkWidget *container, GtkWidget *widget)
{
    gtk_container_add(GTK_CONTAINER(container), widget);
    return widget;
}

GtkWidget *z_gui_place_in_box(GtkWidget *box, z_expand expand, GtkWidget *widget)
{
    gtk_box_pack_start(GTK_BOX(box), widget, expand == z_expand::yes, expand == z_expand::yes, 0);
    return widget;
}

GtkWidget *z_gui_place_in_table(GtkWidget *table, int left, int right, int top, int bottom,
                                z_expand horizontal, z_expand vertical, GtkWidget *widget)
{
    gtk_widget_set_hexpand(widget, horizontal == z_expand::yes);
    gtk_widget_set_vexpand(widget, vertical == z_expand::yes);
    z_gui_align(widget, horizontal == z_expand::yes ? GTK_ALIGN_FILL : GTK_ALIGN_CENTER,
                vertical == z_expand::yes ? GTK_ALIGN_FILL : GTK_ALIGN_CENTER);
    return z_gui_place_in_grid(table, left, top, right - left, bottom - top, widget);
}

GtkWidget *z_gui_place_in_grid(GtkWidget *grid, int left, int top, int width, int height, GtkWidget *widget)
{
    gtk_grid_attach(GTK_GRID(grid), widget, left, top, width, height);
    return widget;
}

static GtkWidget *place_in_given_frame(GtkWidget *frame, GtkWidget *widget)
{
    z_gui_set_default_surrounding_margin(widget);
    return z_gui_place_in_container(frame, widget);
}

GtkWidget *z_gui_place_in_frame(GtkWidget *box, z_expand expand, const char *label, GtkWidget *widget)
{
    return place_in_given_frame(z_gui_pack_frame(box, expand, label), widget);
}

GtkWidget *z_gui_place_in_input_field_frame(GtkWidget *box, z_expand expand, const char *name,
                                            z_required required, GtkWidget *widget)
{
    return place_in_given_frame(z_gui_pack_frame_with_input_field_label(box, expand, name, required), widget);
}

GtkWidget *z_gui_align(GtkWidget *widget, GtkAlign horizontal, GtkAlign vertical)
{
    gtk_widget_set_halign(widget, horizontal);
    gtk_widget_set_valign(widget, vertical);
    return widget;
}

void z_gui_make_default(GtkWidget *button)
{
    gtk_widget_set_can_default(button, TRUE);
    gtk_widget_grab_default(button);
}

GtkWidget *z_gui_pack_hbox_in_expander(GtkWidget *box, z_expand expand, const char *label, z_spacing spacing)
{
    GtkWidget *expander = z_gui_pack_expander(box, expand, label);
    GtkWidget *hbox = z_gui_add_hbox(expander, spacing);
    z_gui_set_margins(hbox, z_gui_get_default_margin(), 0, 0, 0);
    return hbox;
}

GtkWidget *z_gui_pack_default_margin_space(GtkWidget *box)
{
    return z_gui_pack_space(box, z_gui_get_default_margin(), z_gui_get_default_margin());
}

GtkWidget *z_gui_pack_ok_and_cancel_buttons(GtkWidget *box, GtkWidget *window, const char *ok_label,
                                            void (*ok_callback)(GtkButton *, gpointer), gpointer data)
{
    GtkWidget *row = z_gui_pack_hbox(box, z_expand::no, z_spacing::normal);
    GtkWidget *ok_button = z_gui_pack_button(row, z_default_button::yes, ok_label);
    g_signal_connect(ok_button, "clicked", G_CALLBACK(ok_callback), data);
    GtkWidget *cancel_button =
        z_gui_pack_button_in_alignment(row, z_expand::yes, GTK_ALIGN_END, GTK_ALIGN_FILL, "Cancel");
    g_signal_connect_swapped(cancel_button, "clicked", G_CALLBACK(gtk_widget_destroy), window);
    z_gui_set_window_cancel_button(window, cancel_button);
    return ok_button;
}
