#pragma once

// The ways to put a widget into its window. z_gui_form<z_gui_create_K> holds every form of the kind K: each
// member creates a K and places it at once. Placement comes first in the arguments, then the creator's own:
//
//     inline constexpr auto z_gui_pack_label = z_gui_form<z_gui_create_label>::pack;
//     ...
//     z_gui_pack_label(box, "Author", 0, 0.5);
//
// A module with a widget of its own names the forms it offers in its header in just that way. Its creator
// must return the widget shown.

#include <gtk/gtk.h>

enum class z_expand { no, yes };
enum class z_required { no, yes };
enum class z_default_button { no, yes };

// What the forms do with the created widget; each returns it. Boxes are packed at the start with padding 0.
GtkWidget *z_gui_place_in_container(GtkWidget *container, GtkWidget *widget);
GtkWidget *z_gui_place_in_box(GtkWidget *box, z_expand expand, GtkWidget *widget);
// A widget that does not expand in a direction keeps its size and stands in the middle of its cell.
GtkWidget *z_gui_place_in_table(GtkWidget *table, int left, int right, int top, int bottom,
                                z_expand horizontal, z_expand vertical, GtkWidget *widget);
GtkWidget *z_gui_place_in_grid(GtkWidget *grid, int left, int top, int width, int height, GtkWidget *widget);
// In a frame of its own, with the default margin around it. The label may be null.
GtkWidget *z_gui_place_in_frame(GtkWidget *box, z_expand expand, const char *label, GtkWidget *widget);
GtkWidget *z_gui_place_in_input_field_frame(GtkWidget *box, z_expand expand, const char *name,
                                            z_required required, GtkWidget *widget);
GtkWidget *z_gui_align(GtkWidget *widget, GtkAlign horizontal, GtkAlign vertical);
// Needs: the button is in its window.
void z_gui_make_default(GtkWidget *button);

template <auto create>
struct z_gui_form;

template <typename... Settings, GtkWidget *(*create)(Settings...)>
struct z_gui_form<create> {
    static GtkWidget *add(GtkWidget *container, Settings... settings)
    {
        return z_gui_place_in_container(container, create(settings...));
    }

    static GtkWidget *pack(GtkWidget *box, Settings... settings)
    {
        return z_gui_place_in_box(box, z_expand::no, create(settings...));
    }
    static GtkWidget *pack_expandable(GtkWidget *box, z_expand expand, Settings... settings)
    {
        return z_gui_place_in_box(box, expand, create(settings...));
    }
    static GtkWidget *pack_button(GtkWidget *box, z_default_button is_default, Settings... settings)
    {
        GtkWidget *button = pack(box, settings...);
        if (is_default == z_default_button::yes)
            z_gui_make_default(button);
        return button;
    }
    static GtkWidget *pack_in_alignment(GtkWidget *box, z_expand expand, GtkAlign horizontal,
                                        GtkAlign vertical, Settings... settings)
    {
        return z_gui_place_in_box(box, expand, z_gui_align(create(settings...), horizontal, vertical));
    }
    static GtkWidget *pack_in_frame(GtkWidget *box, z_expand expand, const char *label, Settings... settings)
    {
        return z_gui_place_in_frame(box, expand, label, create(settings...));
    }
    static GtkWidget *pack_in_frame_with_input_field_label(GtkWidget *box, z_expand expand, const char *name,
                                                           z_required required, Settings... settings)
    {
        return z_gui_place_in_input_field_frame(box, expand, name, required, create(settings...));
    }

    // Table cells: columns `left` up to but not including `right`, rows likewise.
    static GtkWidget *attach(GtkWidget *table, int left, int right, int top, int bottom, Settings... settings)
    {
        return z_gui_place_in_table(table, left, right, top, bottom, z_expand::yes, z_expand::yes,
                                    create(settings...));
    }
    static GtkWidget *attach_wide(GtkWidget *table, int left, int right, int top, int bottom,
                                  Settings... settings)
    {
        return z_gui_place_in_table(table, left, right, top, bottom, z_expand::yes, z_expand::no,
                                    create(settings...));
    }
    static GtkWidget *attach_shrunk(GtkWidget *table, int left, int right, int top, int bottom,
                                    Settings... settings)
    {
        return z_gui_place_in_table(table, left, right, top, bottom, z_expand::no, z_expand::no,
                                    create(settings...));
    }
    static GtkWidget *attach_expandable(GtkWidget *table, int left, int right, int top, int bottom,
                                        z_expand horizontal, z_expand vertical, Settings... settings)
    {
        return z_gui_place_in_table(table, left, right, top, bottom, horizontal, vertical,
                                    create(settings...));
    }
    static GtkWidget *attach_to_grid(GtkWidget *grid, int left, int top, int width, int height,
                                     Settings... settings)
    {
        return z_gui_place_in_grid(grid, left, top, width, height, create(settings...));
    }
};
