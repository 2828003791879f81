#include "common/gui/gui_widget_window.h"

static const char window_events_key[] = "zanvel-editor-widget-window-events";
static const char window_event_compression_key[] = "zanvel-editor-widget-window-event-compression";

// The value that the widget's class, or the nearest class that it derives from, was given.
static guint get_class_value(GtkWidget *widget, const char *key)
{
    const GQuark quark = g_quark_from_static_string(key);
    for (GType type = G_OBJECT_TYPE(widget); type != 0; type = g_type_parent(type)) {
        if (const gpointer value = g_type_get_qdata(type, quark))
            return GPOINTER_TO_UINT(value);
    }
    return 0;
}

static void realize(GtkWidget *widget) noexcept
{
    gtk_widget_set_realized(widget, TRUE);
    GtkAllocation allocation;
    gtk_widget_get_allocation(widget, &allocation);

    GdkWindowAttr attributes = {};
    attributes.window_type = GDK_WINDOW_CHILD;
    attributes.x = allocation.x;
    attributes.y = allocation.y;
    attributes.width = allocation.width;
    attributes.height = allocation.height;
    attributes.wclass = GDK_INPUT_OUTPUT;
    attributes.visual = gtk_widget_get_visual(widget);
    attributes.event_mask = gtk_widget_get_events(widget) | GDK_EXPOSURE_MASK |
                            static_cast<int>(get_class_value(widget, window_events_key));
    GdkWindow *window = gdk_window_new(gtk_widget_get_parent_window(widget), &attributes,
                                       GDK_WA_X | GDK_WA_Y | GDK_WA_VISUAL);
    gtk_widget_set_window(widget, window);
    gtk_widget_register_window(widget, window);
    if (get_class_value(widget, window_event_compression_key) != 0)
        gdk_window_set_event_compression(window, FALSE);
}

static void map(GtkWidget *widget) noexcept
{
    gtk_widget_set_mapped(widget, TRUE);
    gdk_window_show(gtk_widget_get_window(widget));
}

static void unmap(GtkWidget *widget) noexcept
{
    gtk_widget_set_mapped(widget, FALSE);
    gdk_window_hide(gtk_widget_get_window(widget));
}

static void unrealize(GtkWidget *widget) noexcept
{
    GdkWindow *window = gtk_widget_get_window(widget);
    gtk_widget_unregister_window(widget, window);
    // The reference goes over to the destruction.
    g_object_ref(window);
    gtk_widget_set_window(widget, nullptr);
    gdk_window_destroy(window);
    gtk_widget_set_realized(widget, FALSE);
}

static void size_allocate(GtkWidget *widget, GtkAllocation *allocation) noexcept
{
    gtk_widget_set_allocation(widget, allocation);
    if (gtk_widget_get_realized(widget))
        gdk_window_move_resize(gtk_widget_get_window(widget), allocation->x, allocation->y, allocation->width,
                               allocation->height);
}

void z_gui_widget_attach_window_callbacks(GtkWidgetClass *widget_class, GdkEventMask extra_event_mask,
                                          z_event_compression compression)
{
    const GType type = G_TYPE_FROM_CLASS(widget_class);
    g_type_set_qdata(type, g_quark_from_static_string(window_events_key),
                     GUINT_TO_POINTER(static_cast<guint>(extra_event_mask)));
    g_type_set_qdata(type, g_quark_from_static_string(window_event_compression_key),
                     GUINT_TO_POINTER(compression == z_event_compression::off ? 1u : 0u));
    widget_class->realize = realize;
    widget_class->map = map;
    widget_class->unmap = unmap;
    widget_class->unrealize = unrealize;
    widget_class->size_allocate = size_allocate;
}
