#include "common/gui/gui_window.h"

#include <algorithm>

#include <gdk/gdkkeysyms.h>

z_utf8_ptr z_gui_generate_main_window_title(const char *application_name, const char *document_name)
{
    return z_utf8_ptr(g_strdup_printf("%s%s%s 3.2.3%s%s", document_name == nullptr ? "" : document_name,
                                      document_name == nullptr ? "" : " - ", application_name, "", ""));
}

// The usual frame of a window that is not maximised. How wide it really is shows only once the window does.
static const int frame_width_px = 2;
static const int frame_height_px = 32;

z_gui_room z_gui_get_room_for_window(GtkWidget *widget)
{
    GdkDisplay *display = gtk_widget_get_display(widget);
    GdkMonitor *monitor = gdk_display_get_primary_monitor(display);
    if (monitor == nullptr)
        monitor = gdk_display_get_monitor(display, 0);
    if (monitor == nullptr)
        return {G_MAXINT, G_MAXINT};
    GdkRectangle area;
    gdk_monitor_get_workarea(monitor, &area);
    return {area.width - frame_width_px, area.height - frame_height_px};
}

static bool is_size_free(GtkWidget *window)
{
    if (!gtk_widget_get_realized(window))
        return false;
    const GdkWindowState state = gdk_window_get_state(gtk_widget_get_window(window));
    return !gtk_window_is_maximized(GTK_WINDOW(window)) && (state & GDK_WINDOW_STATE_FULLSCREEN) == 0;
}

// The toolkit raises what is asked for to what the content needs.
void z_gui_resize_window_to_minimum_unless_maximized(GtkWidget *window)
{
    if (is_size_free(window))
        gtk_window_resize(GTK_WINDOW(window), 1, 1);
}

void z_gui_resize_window_to_minimum_height_unless_maximized(GtkWidget *window)
{
    if (!is_size_free(window))
        return;
    int width_px = 0;
    gtk_window_get_size(GTK_WINDOW(window), &width_px, nullptr);
    gtk_window_resize(GTK_WINDOW(window), width_px, 1);
}

// What the user chose, for windows that content can force to grow. One direction of the window.
struct z_chosen_extent {
    int chosen_px;
    int last_px;
    int forced_px; // The most that content forced since the window last had what was chosen; else 0.
};

struct z_chosen_size {
    z_chosen_extent width;
    z_chosen_extent height;
};

static const char chosen_size_key[] = "zanvel-chosen-size";

// A new extent that content does not force is the user's choice. An extent that stays while the content
// becomes smaller is none, nor is one on the way back: the content may be smaller again when it comes.
static void follow_extent(z_chosen_extent *extent, int now_px)
{
    if (now_px == extent->last_px)
        return;
    extent->last_px = now_px;
    if (now_px <= extent->chosen_px || now_px > extent->forced_px)
        *extent = {now_px, now_px, 0};
}

static void size_allocate_callback(GtkWidget *window, GtkAllocation *, gpointer data) noexcept
{
    auto *size = static_cast<z_chosen_size *>(data);
    if (!is_size_free(window))
        return;
    int width_px = 0;
    int height_px = 0;
    gtk_window_get_size(GTK_WINDOW(window), &width_px, &height_px);
    follow_extent(&size->width, width_px);
    follow_extent(&size->height, height_px);
}

// The content's wish is noted when it arises. When the window has got the extent, it may be another one
// again.
static void note_forced_extent(z_chosen_extent *extent, int minimum_px)
{
    if (minimum_px > extent->chosen_px)
        extent->forced_px = std::max(minimum_px, extent->forced_px);
}

static void check_resize_callback(GtkWidget *window, gpointer data) noexcept
{
    auto *size = static_cast<z_chosen_size *>(data);
    GtkRequisition minimum;
    gtk_widget_get_preferred_size(window, &minimum, nullptr);
    note_forced_extent(&size->width, minimum.width);
    note_forced_extent(&size->height, minimum.height);
}

void z_gui_set_window_chosen_size(GtkWidget *window, int width_px, int height_px)
{
    const z_gui_room room = z_gui_get_room_for_window(window);
    const int width = std::min(width_px, room.width_px);
    const int height = std::min(height_px, room.height_px);
    gtk_window_set_default_size(GTK_WINDOW(window), width, height);

    auto size = std::make_unique<z_chosen_size>(z_chosen_size{{width, width, 0}, {height, height, 0}});
    g_signal_connect(window, "check-resize", G_CALLBACK(check_resize_callback), size.get());
    g_signal_connect(window, "size-allocate", G_CALLBACK(size_allocate_callback), size.get());
    g_object_set_data_full(
        G_OBJECT(window), chosen_size_key, size.release(),
        +[](gpointer data) { delete static_cast<z_chosen_size *>(data); });
}

void z_gui_resize_window_to_chosen_size_unless_maximized(GtkWidget *window)
{
    auto *size = static_cast<const z_chosen_size *>(g_object_get_data(G_OBJECT(window), chosen_size_key));
    g_return_if_fail(size != nullptr);
    if (is_size_free(window))
        gtk_window_resize(GTK_WINDOW(window), size->width.chosen_px, size->height.chosen_px);
}

void z_gui_set_window_cancel_button(GtkWidget *window, GtkWidget *button)
{
    const z_ref<GtkAccelGroup> accelerators = z_take(gtk_accel_group_new());
    gtk_window_add_accel_group(GTK_WINDOW(window), accelerators.get());
    gtk_widget_add_accelerator(button, "clicked", accelerators.get(), GDK_KEY_Escape, GdkModifierType{},
                               GtkAccelFlags{});
}
