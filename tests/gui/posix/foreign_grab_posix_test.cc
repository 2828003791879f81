#include <gtest/gtest.h>

#include "common/gui/dropdown_panel.h"
#include "common/gui/gui.h"
#include "common/gui/gui_menu.h"
#include "common/gui/window_stack.h"
#include "tests/support/windows.h"

namespace {

// Another program holds the pointer and the keyboard, which only a display that several programs share
// allows.
struct ForeignGrabTest : testing::Test {
    ForeignGrabTest() : own(z_gui_create_window("Main")), foreign(gtk_window_new(GTK_WINDOW_POPUP))
    {
        show_and_wait_for_draw(own);
        GdkDisplay *display = gdk_display_open(gdk_display_get_name(gdk_display_get_default()));
        gtk_window_set_screen(GTK_WINDOW(foreign), gdk_display_get_default_screen(display));
        gtk_widget_show(foreign);
        seat = gdk_display_get_default_seat(display);
        EXPECT_TRUE(run_until([this] {
            return gdk_seat_grab(seat, gtk_widget_get_window(foreign), GDK_SEAT_CAPABILITY_ALL, FALSE,
                                 nullptr, nullptr, nullptr, nullptr) == GDK_GRAB_SUCCESS;
        }));
    }
    // The toolkit does not survive the closing of a display that it has shown something on.
    ~ForeignGrabTest() override
    {
        gdk_seat_ungrab(seat);
        gtk_widget_destroy(foreign);
        gdk_display_flush(gdk_seat_get_display(seat));
        gtk_widget_destroy(own);
    }

    GtkWidget *const own;
    GtkWidget *const foreign;
    GdkSeat *seat;
};

TEST_F(ForeignGrabTest, AMenuThatCannotPopUpIsDroppedAtOnce)
{
    GtkWidget *menu = gtk_menu_new();
    z_gui_menu_append_separator(menu);
    // Ends the loop that must not begin.
    const z_source rescue(g_timeout_add_seconds(
        5,
        +[](gpointer data) -> gboolean {
            ADD_FAILURE() << "the menu runs unseen";
            gtk_widget_destroy(static_cast<GtkWidget *>(data));
            return G_SOURCE_CONTINUE;
        },
        menu));
    z_gui_menu_run_and_destroy(menu, own);
}

TEST_F(ForeignGrabTest, APanelTellsTheUserAndGoes)
{
    const z_window_stack_ptr stack = z_window_stack_new();
    z_window_stack_push_window(stack.get(), own);
    GtkWidget *panel = z_dropdown_panel_new(stack.get(), GTK_WINDOW(own), z_panel_margin::normal);
    g_signal_connect(panel, "destroy", G_CALLBACK(gtk_widget_destroyed), &panel);
    Steps steps;
    steps.add([&] {
        EXPECT_EQ(nullptr, panel);
        return answer("Error", "Internal error 7834", "Close");
    });
    z_dropdown_panel_open(Z_DROPDOWN_PANEL(panel));
}

} // namespace
