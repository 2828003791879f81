#include "common/gui/gui_menu.h"

#include "common/base/convert.h"
#include "common/base/handles.h"
#include "common/gui/gtk_handles.h"

static const char item_data_key[] = "zanvel_menu_item_data";

// Items.

static GtkWidget *prepare_item(GtkWidget *item, int item_data, z_menu_item state)
{
    g_object_set_data(G_OBJECT(item), item_data_key, GINT_TO_POINTER(item_data));
    gtk_widget_set_sensitive(item, state == z_menu_item::sensitive);
    gtk_widget_show(item);
    return item;
}

static GtkWidget *append(GtkWidget *menu, GtkWidget *item)
{
    gtk_menu_shell_append(GTK_MENU_SHELL(menu), item);
    return item;
}

GtkWidget *z_gui_menu_create_item(const char *label, int item_data, z_menu_item state)
{
    return prepare_item(gtk_menu_item_new_with_label(label), item_data, state);
}

GtkWidget *z_gui_menu_create_item_with_activate_callback(const char *label, int item_data, z_menu_item state,
                                                         z_menu_activate_callback callback, gpointer data)
{
    GtkWidget *item = z_gui_menu_create_item(label, item_data, state);
    g_signal_connect(item, "activate", G_CALLBACK(callback), data);
    return item;
}

GtkWidget *z_gui_menu_append_item(GtkWidget *menu, const char *label, int item_data, z_menu_item state)
{
    return append(menu, z_gui_menu_create_item(label, item_data, state));
}

GtkWidget *z_gui_menu_append_item_with_activate_callback(GtkWidget *menu, const char *label, int item_data,
                                                         z_menu_item state, z_menu_activate_callback callback,
                                                         gpointer data)
{
    return append(menu,
                  z_gui_menu_create_item_with_activate_callback(label, item_data, state, callback, data));
}

GtkWidget *z_gui_menu_append_latin1_item(GtkWidget *menu, const char *latin1_label, int item_data,
                                         z_menu_item state)
{
    const z_utf8_ptr label = z_convert_latin1_to_utf8(latin1_label);
    return z_gui_menu_append_item(menu, label.get(), item_data, state);
}

GtkWidget *z_gui_menu_append_latin1_item_with_activate_callback(GtkWidget *menu, const char *latin1_label,
                                                                int item_data, z_menu_item state,
                                                                z_menu_activate_callback callback,
                                                                gpointer data)
{
    const z_utf8_ptr label = z_convert_latin1_to_utf8(latin1_label);
    return z_gui_menu_append_item_with_activate_callback(menu, label.get(), item_data, state, callback, data);
}

GtkWidget *z_gui_menu_append_check_item(GtkWidget *menu, const char *label, int item_data, z_menu_item state,
                                        z_check check)
{
    GtkWidget *item = prepare_item(gtk_check_menu_item_new_with_label(label), item_data, state);
    gtk_check_menu_item_set_active(GTK_CHECK_MENU_ITEM(item), check == z_check::on);
    return append(menu, item);
}

GtkWidget *z_gui_menu_append_check_item_with_toggled_callback(GtkWidget *menu, const char *label,
                                                              int item_data, z_menu_item state, z_check check,
                                                              z_menu_toggled_callback callback, gpointer data)
{
    GtkWidget *item = z_gui_menu_append_check_item(menu, label, item_data, state, check);
    g_signal_connect(item, "toggled", G_CALLBACK(callback), data);
    return item;
}

GtkWidget *z_gui_menu_create_separator()
{
    GtkWidget *separator = gtk_separator_menu_item_new();
    gtk_widget_show(separator);
    return separator;
}

GtkWidget *z_gui_menu_append_separator(GtkWidget *menu)
{
    return append(menu, z_gui_menu_create_separator());
}

int z_gui_menu_get_item_data(GtkMenuItem *item)
{
    return GPOINTER_TO_INT(g_object_get_data(G_OBJECT(item), item_data_key));
}

// Running.

// What has led here, or where nothing has (an action of assistive technology comes without an event), a
// button press that stands in for it: the toolkit insists on one.
static z_gdk_event_ptr get_trigger_event(GtkWidget *anchor)
{
    z_gdk_event_ptr event(gtk_get_current_event());
    if (event && gdk_event_get_window(event.get()) != nullptr)
        return event;
    event.reset(gdk_event_new(GDK_BUTTON_PRESS));
    GdkWindow *window = anchor == nullptr ? gdk_get_default_root_window() : gtk_widget_get_window(anchor);
    GdkDisplay *display = gdk_window_get_display(window);
    event->button.window = z_share(window).release();
    gdk_event_set_device(event.get(), gdk_seat_get_pointer(gdk_display_get_default_seat(display)));
    return event;
}

void z_gui_menu_run_and_destroy(GtkWidget *menu, GtkWidget *anchor)
{
    const z_ref<GtkWidget> held = z_sink(menu);
    const z_ptr<GMainLoop, g_main_loop_unref> loop(g_main_loop_new(nullptr, FALSE));
    g_signal_connect_swapped(menu, "deactivate", G_CALLBACK(g_main_loop_quit), loop.get());
    g_signal_connect_swapped(menu, "destroy", G_CALLBACK(g_main_loop_quit), loop.get());

    const z_gdk_event_ptr event = get_trigger_event(anchor);
    GtkWidget *owner = anchor == nullptr ? gtk_get_event_widget(event.get()) : anchor;
    if (owner != nullptr)
        gtk_menu_attach_to_widget(GTK_MENU(menu), owner, nullptr);
    if (anchor == nullptr) {
        gtk_menu_popup_at_pointer(GTK_MENU(menu), event.get());
    } else {
        gtk_widget_set_size_request(menu, gtk_widget_get_allocated_width(anchor), -1);
        gtk_menu_popup_at_widget(GTK_MENU(menu), anchor, GDK_GRAVITY_SOUTH_WEST, GDK_GRAVITY_NORTH_WEST,
                                 event.get());
    }
    if (gtk_widget_get_visible(menu))
        g_main_loop_run(loop.get());
    gtk_widget_destroy(menu);
}
