#include "common/gui/dropdown_panel.h"

#include "common/gui/gui.h"
#include "common/gui/window_stack.h"
#include "tests/support/windows.h"

namespace {

gboolean press_callback(int *press_count)
{
    ++*press_count;
    return TRUE;
}

// A parent window, and a panel that opens at a point of the screen.
struct DropdownPanelTest : testing::Test {
    DropdownPanelTest()
    {
        parent = z_gui_create_window("Parent");
        outside = z_gui_add_button(parent, "Outside");
        gtk_window_present(GTK_WINDOW(parent));
        show_and_wait_for_draw(parent);
        z_window_stack_push_window(stack.get(), parent);
        panel = z_dropdown_panel_new(stack.get(), GTK_WINDOW(parent), z_panel_margin::normal);
        g_signal_connect(panel, "destroy", G_CALLBACK(gtk_widget_destroyed), &panel);
    }
    ~DropdownPanelTest() override
    {
        if (panel != nullptr)
            gtk_widget_destroy(panel);
        gtk_widget_destroy(parent);
    }
    void open_at(int x, int y)
    {
        GdkDisplay *display = gdk_display_get_default();
        gdk_device_warp(gdk_seat_get_pointer(gdk_display_get_default_seat(display)),
                        gdk_display_get_default_screen(display), x, y);
        z_dropdown_panel_open(Z_DROPDOWN_PANEL(panel));
    }

    z_window_stack_ptr stack = z_window_stack_new();
    GtkWidget *parent;
    GtkWidget *outside;
    GtkWidget *panel;
};

TEST_F(DropdownPanelTest, StaysWithinTheScreenAndGoesWithEscape)
{
    z_gui_place_in_container(panel, z_gui_create_space(100, 50));
    GdkRectangle screen;
    gdk_monitor_get_geometry(gdk_display_get_primary_monitor(gdk_display_get_default()), &screen);
    const struct {
        int pointer_x, pointer_y, x, y;
    } cases[] = {
        {100, 120, 100, 120},
        {screen.width - 10, 120, screen.width - 116, 120},
        {100, screen.height - 1, 100, screen.height - 66},
    };
    for (const auto &[pointer_x, pointer_y, expected_x, expected_y] : cases) {
        open_at(pointer_x, pointer_y);
        EXPECT_TRUE(run_until([this, wanted_x = expected_x, wanted_y = expected_y] {
            int x = 0;
            int y = 0;
            gdk_window_get_origin(gtk_widget_get_window(panel), &x, &y);
            return x == wanted_x && y == wanted_y;
        }));
        gtk_widget_hide(panel);
    }
    open_at(0, 0);
    press_key(parent, GDK_KEY_Escape);
    EXPECT_EQ(nullptr, panel);
}

TEST_F(DropdownPanelTest, PressesInsideReachTheChildAndPressesOutsideClose)
{
    // No window of its own.
    GtkWidget *child = z_gui_add_label(panel, "Inside", 0, 0);
    int press_count = 0;
    g_signal_connect_swapped(child, "button-press-event", G_CALLBACK(press_callback), &press_count);
    open_at(10, 10);
    gtk_test_widget_wait_for_draw(panel);
    click(child);
    click_at(panel, 1, 1);
    ASSERT_NE(nullptr, panel);
    click(outside);
    EXPECT_EQ(nullptr, panel);
    EXPECT_EQ(1, press_count);
}

} // namespace
