#include "common/gui/dropdown_panel.h"

#include "common/gui/gui.h"
#include "common/gui/window_stack.h"
#include "tests/support/windows.h"

namespace {

TEST(DropdownPanel, StaysWithinTheScreenAndGoesByAPressOutsideOrEscape)
{
    const z_window_stack_ptr stack = z_window_stack_new();
    GtkWidget *parent = z_gui_create_window("Parent");
    GtkWidget *outside = z_gui_add_button(parent, "Outside");
    gtk_window_present(GTK_WINDOW(parent));
    show_and_wait_for_draw(parent);
    z_window_stack_push_window(stack.get(), parent);
    GdkDisplay *display = gdk_display_get_default();
    GdkRectangle screen;
    gdk_monitor_get_geometry(gdk_display_get_primary_monitor(display), &screen);
    gdk_device_warp(gdk_seat_get_pointer(gdk_display_get_default_seat(display)),
                    gdk_display_get_default_screen(display), screen.width - 10, screen.height - 1);
    for (const bool by_key : {false, true}) {
        GtkWidget *panel = z_dropdown_panel_new(stack.get(), GTK_WINDOW(parent), z_panel_margin::normal);
        g_signal_connect(panel, "destroy", G_CALLBACK(gtk_widget_destroyed), &panel);
        // No window of its own.
        GtkWidget *child = z_gui_add_label(panel, "Inside", 0, 0);
        gtk_widget_set_size_request(child, 100, 50);
        int press_count = 0;
        g_signal_connect_swapped(child, "button-press-event", G_CALLBACK(+[](int *count) -> gboolean {
                                     ++*count;
                                     return TRUE;
                                 }),
                                 &press_count);
        z_dropdown_panel_open(Z_DROPDOWN_PANEL(panel));
        EXPECT_TRUE(run_until([&] {
            int x = 0;
            int y = 0;
            gdk_window_get_origin(gtk_widget_get_window(panel), &x, &y);
            return x == screen.width - 116 && y == screen.height - 66;
        }));
        click(child);
        click_at(panel, 1, 1);
        EXPECT_EQ(1, press_count);
        ASSERT_NE(nullptr, panel);
        by_key ? press_key(parent, GDK_KEY_Escape) : click(outside);
        EXPECT_EQ(nullptr, panel);
    }
    gtk_widget_destroy(parent);
}

} // namespace
