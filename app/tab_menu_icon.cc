#include "app/tab_menu_icon.h"

#include <cmath>

#include "common/gui/gui_widget_window.h"

static const int icon_width_px = 11;
static const int icon_height_px = 9;
static const double bar_height = 1.0;
static const double bar_distance = 4.0;
static const int bar_count = 3;

enum tab_menu_icon_signal { signal_clicked, signal_count };
static guint signals[signal_count];

struct _TabMenuIcon {
    GtkWidget parent_instance;
};

G_DEFINE_FINAL_TYPE(TabMenuIcon, tab_menu_icon, GTK_TYPE_WIDGET)

// A button that was pressed here may be released anywhere.
static gboolean tab_menu_icon_button_release_event(GtkWidget *widget, GdkEventButton *event) noexcept
{
    const bool is_inside = event->x >= 0.0 && event->y >= 0.0 &&
                           event->x < gtk_widget_get_allocated_width(widget) &&
                           event->y < gtk_widget_get_allocated_height(widget);
    if (event->button == GDK_BUTTON_PRIMARY && is_inside)
        g_signal_emit(widget, signals[signal_clicked], 0);
    return GDK_EVENT_PROPAGATE;
}

static gboolean tab_menu_icon_draw(GtkWidget *widget, cairo_t *cr) noexcept
{
    GtkStyleContext *style = gtk_widget_get_style_context(widget);
    const int width = gtk_widget_get_allocated_width(widget);
    const int height = gtk_widget_get_allocated_height(widget);
    gtk_render_background(style, cr, 0.0, 0.0, width, height);
    GdkRGBA color;
    gtk_style_context_get_color(style, gtk_style_context_get_state(style), &color);
    gdk_cairo_set_source_rgba(cr, &color);
    // On whole pixels, so that the bars are sharp.
    const double top = std::floor((height - icon_height_px) * 0.5);
    for (int bar = 0; bar < bar_count; ++bar)
        cairo_rectangle(cr, 0.0, top + bar * bar_distance, icon_width_px, bar_height);
    cairo_fill(cr);
    return GDK_EVENT_PROPAGATE;
}

static void tab_menu_icon_get_preferred_width(GtkWidget *, int *minimum_px, int *natural_px) noexcept
{
    *minimum_px = *natural_px = icon_width_px;
}

static void tab_menu_icon_get_preferred_height(GtkWidget *, int *minimum_px, int *natural_px) noexcept
{
    *minimum_px = *natural_px = icon_height_px;
}

static void tab_menu_icon_class_init(TabMenuIconClass *klass)
{
    GtkWidgetClass *widget_class = GTK_WIDGET_CLASS(klass);
    widget_class->button_release_event = tab_menu_icon_button_release_event;
    widget_class->draw = tab_menu_icon_draw;
    widget_class->get_preferred_width = tab_menu_icon_get_preferred_width;
    widget_class->get_preferred_height = tab_menu_icon_get_preferred_height;
    z_gui_widget_attach_window_callbacks(
        widget_class, static_cast<GdkEventMask>(GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK),
        z_event_compression::on);
    signals[signal_clicked] = g_signal_new("clicked", G_TYPE_FROM_CLASS(klass), G_SIGNAL_RUN_FIRST, 0,
                                           nullptr, nullptr, nullptr, G_TYPE_NONE, 0);
}

static void tab_menu_icon_init(TabMenuIcon *self)
{
    AtkObject *accessible = gtk_widget_get_accessible(GTK_WIDGET(self));
    atk_object_set_role(accessible, ATK_ROLE_PUSH_BUTTON);
    atk_object_set_name(accessible, "Report type menu");
}

GtkWidget *tab_menu_icon_new()
{
    return GTK_WIDGET(g_object_new(TYPE_TAB_MENU_ICON, nullptr));
}
