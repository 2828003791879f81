#include "common/gui/dropdown_panel.h"

#include <algorithm>

#include "common/gui/css.h"
#include "common/gui/gui.h"
#include "common/gui/message.h"

struct _ZDropdownPanel {
    GtkWindow parent_instance;

    z_window_stack *window_stack;
};

G_DEFINE_FINAL_TYPE(ZDropdownPanel, z_dropdown_panel, GTK_TYPE_WINDOW)

static GdkSeat *get_seat(GtkWidget *widget)
{
    return gdk_display_get_default_seat(gtk_widget_get_display(widget));
}

static bool grab_pointer(GtkWidget *widget)
{
    return gdk_seat_grab(get_seat(widget), gtk_widget_get_window(widget), GDK_SEAT_CAPABILITY_ALL_POINTING,
                         TRUE, nullptr, nullptr, nullptr, nullptr) == GDK_GRAB_SUCCESS;
}

static bool is_inside(const GtkAllocation &place, double x, double y)
{
    return x >= place.x && y >= place.y && x < place.x + place.width && y < place.y + place.height;
}

// Presses on other windows of the program come with those windows, all others with the panel's own.
static bool is_inside_panel(GtkWidget *widget, const GdkEventButton *event)
{
    GdkWindow *own_window = gtk_widget_get_window(widget);
    if (event->window != own_window)
        return gdk_window_get_toplevel(event->window) == own_window;
    const GtkAllocation place = {0, 0, gdk_window_get_width(own_window), gdk_window_get_height(own_window)};
    return is_inside(place, event->x, event->y);
}

static gboolean button_press_event(GtkWidget *widget, GdkEventButton *event) noexcept
{
    if (!is_inside_panel(widget, event)) {
        gtk_widget_destroy(widget);
        return GDK_EVENT_STOP;
    }
    // A child with a window of its own has had the press before it came here.
    GtkWidget *child = gtk_bin_get_child(GTK_BIN(widget));
    if (child == nullptr || event->window != gtk_widget_get_window(widget))
        return GDK_EVENT_PROPAGATE;
    GtkAllocation place;
    gtk_widget_get_allocation(child, &place);
    return is_inside(place, event->x, event->y) &&
           gtk_widget_event(child, reinterpret_cast<GdkEvent *>(event));
}

static gboolean key_press_event(GtkWidget *widget, GdkEventKey *event) noexcept
{
    if (event->keyval != GDK_KEY_Escape)
        return GTK_WIDGET_CLASS(z_dropdown_panel_parent_class)->key_press_event(widget, event);
    gtk_widget_destroy(widget);
    return GDK_EVENT_STOP;
}

// A menu of something inside has taken the pointer and given it up.
static void grab_notify(GtkWidget *widget, gboolean was_grabbed) noexcept
{
    if (was_grabbed && gtk_widget_get_mapped(widget))
        (void)grab_pointer(widget);
}

static void unmap(GtkWidget *widget) noexcept
{
    gdk_seat_ungrab(get_seat(widget));
    GTK_WIDGET_CLASS(z_dropdown_panel_parent_class)->unmap(widget);
}

static void z_dropdown_panel_class_init(ZDropdownPanelClass *klass)
{
    auto *widget_class = GTK_WIDGET_CLASS(klass);
    widget_class->button_press_event = button_press_event;
    widget_class->key_press_event = key_press_event;
    widget_class->grab_notify = grab_notify;
    widget_class->unmap = unmap;
}

static void z_dropdown_panel_init(ZDropdownPanel *) {}

GtkWidget *z_dropdown_panel_new(z_window_stack *window_stack, GtkWindow *parent, z_panel_margin margin)
{
    auto *self =
        static_cast<ZDropdownPanel *>(g_object_new(Z_TYPE_DROPDOWN_PANEL, "type", GTK_WINDOW_POPUP, nullptr));
    self->window_stack = window_stack;
    GtkWidget *widget = GTK_WIDGET(self);
    GtkWindow *window = GTK_WINDOW(self);
    gtk_window_set_modal(window, TRUE);
    gtk_window_set_transient_for(window, parent);
    gtk_window_set_destroy_with_parent(window, TRUE);
    gtk_window_set_type_hint(window, GDK_WINDOW_TYPE_HINT_DROPDOWN_MENU);
    gtk_widget_add_events(widget, GDK_BUTTON_PRESS_MASK);
    z_css_style_widget(widget, "window { border: 1px solid @borders; }");
    if (margin == z_panel_margin::normal)
        z_gui_set_default_surrounding_margin(widget);
    return widget;
}

static int fit(int position, int size, int start, int length)
{
    return std::max(start, std::min(position, start + length - size));
}

static void move_to_pointer(ZDropdownPanel *self)
{
    GtkWidget *widget = GTK_WIDGET(self);
    int x = 0;
    int y = 0;
    gdk_device_get_position(gdk_seat_get_pointer(get_seat(widget)), nullptr, &x, &y);
    GdkRectangle screen;
    gdk_monitor_get_geometry(gdk_display_get_monitor_at_point(gtk_widget_get_display(widget), x, y), &screen);
    GtkRequisition size;
    gtk_widget_get_preferred_size(widget, nullptr, &size);
    gtk_window_move(GTK_WINDOW(self), fit(x, size.width, screen.x, screen.width),
                    fit(y, size.height, screen.y, screen.height));
}

void z_dropdown_panel_open(ZDropdownPanel *self)
{
    GtkWidget *widget = GTK_WIDGET(self);
    move_to_pointer(self);
    gtk_widget_show(widget);
    if (grab_pointer(widget))
        return;
    z_window_stack *window_stack = self->window_stack;
    gtk_widget_destroy(widget);
    z_message_show_error(window_stack, "Internal error 7834");
}
