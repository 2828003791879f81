#include "common/gui/gui_widget_window.h"

#include <gtest/gtest.h>

#include "common/gui/gui.h"
#include "tests/support/windows.h"

namespace {

GtkWidget *create_probe()
{
    const auto class_init = +[](gpointer klass, gpointer) {
        z_gui_widget_attach_window_callbacks(static_cast<GtkWidgetClass *>(klass), GDK_BUTTON_PRESS_MASK,
                                             z_event_compression::off);
    };
    static const GType type =
        g_type_register_static_simple(GTK_TYPE_WIDGET, "ZTestProbe", sizeof(GtkWidgetClass), class_init,
                                      sizeof(GtkWidget), nullptr, GTypeFlags{});
    auto *probe = static_cast<GtkWidget *>(g_object_new(type, nullptr));
    gtk_widget_show(probe);
    return probe;
}

TEST(WidgetWindow, FollowsTheWidgetAndGetsItsEvents)
{
    GtkWidget *window = z_gui_create_window("Main");
    GtkWidget *box = z_gui_add_hbox(window, z_spacing::none);
    GtkWidget *space = z_gui_pack_space(box, 40, 30);
    GtkWidget *probe = z_gui_place_in_box(box, z_expand::yes, create_probe());
    gtk_widget_set_size_request(probe, 50, 50);
    show_and_wait_for_draw(window);

    GdkWindow *probe_window = gtk_widget_get_window(probe);
    int x = 0;
    gdk_window_get_position(probe_window, &x, nullptr);
    EXPECT_EQ(8 + 40, x);
    EXPECT_TRUE(gdk_window_get_events(probe_window) & GDK_BUTTON_PRESS_MASK);
    EXPECT_FALSE(gdk_window_get_event_compression(probe_window));
    GdkPoint pressed = {};
    const auto note = +[](GtkWidget *, GdkEventButton *event, GdkPoint *point) -> gboolean {
        *point = {static_cast<int>(event->x), static_cast<int>(event->y)};
        return TRUE;
    };
    g_signal_connect(probe, "button-press-event", G_CALLBACK(note), &pressed);
    click_at(probe, 12, 34);
    EXPECT_EQ(12, pressed.x);
    EXPECT_EQ(34, pressed.y);

    gtk_widget_set_size_request(space, 60, 30);
    EXPECT_TRUE(run_until([=] {
        int moved_x = 0;
        gdk_window_get_position(probe_window, &moved_x, nullptr);
        return moved_x == 8 + 60;
    }));
    gtk_widget_hide(probe);
    EXPECT_FALSE(gdk_window_is_visible(probe_window));
    const z_ref<GdkWindow> held = z_share(probe_window);
    gtk_widget_destroy(window);
    EXPECT_TRUE(gdk_window_is_destroyed(held.get()));
}

} // namespace
