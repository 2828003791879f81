#include "bench/first_drawing.h"

#include <cstdlib>

#include <gtk/gtk.h>

static gboolean exit_callback(gpointer) noexcept
{
    std::_Exit(EXIT_SUCCESS);
}

static gboolean draw_callback(GtkWidget *, cairo_t *, gpointer) noexcept
{
    g_idle_add_full(G_PRIORITY_LOW, exit_callback, nullptr, nullptr); // Once all of it is drawn.
    return FALSE;
}

static gboolean map_callback(GSignalInvocationHint *, guint, const GValue *values, gpointer data) noexcept
{
    auto *widget = static_cast<GtkWidget *>(g_value_get_object(values));
    const auto *title = static_cast<const char *>(data);
    if (GTK_IS_WINDOW(widget) && g_strcmp0(gtk_window_get_title(GTK_WINDOW(widget)), title) == 0)
        g_signal_connect(widget, "draw", G_CALLBACK(draw_callback), nullptr);
    return TRUE;
}

void bench_exit_when_drawn(const char *title)
{
    g_type_class_ref(GTK_TYPE_WIDGET);
    g_signal_add_emission_hook(g_signal_lookup("map", GTK_TYPE_WIDGET), 0, map_callback, g_strdup(title),
                               g_free);
}
