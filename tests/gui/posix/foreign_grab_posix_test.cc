#include <gtest/gtest.h>

#include "common/gui/gui.h"
#include "common/gui/gui_menu.h"
#include "tests/support/windows.h"

namespace {

// Another program holds the pointer and the keyboard, which only a display that several programs share
// allows.
TEST(ForeignGrab, AMenuThatCannotPopUpIsDroppedAtOnce)
{
    GtkWidget *own = z_gui_create_window("Main");
    show_and_wait_for_draw(own);
    GtkWidget *foreign = gtk_window_new(GTK_WINDOW_POPUP);
    // The toolkit does not survive the closing of a display that it has shown something on.
    GdkDisplay *display = gdk_display_open(gdk_display_get_name(gdk_display_get_default()));
    gtk_window_set_screen(GTK_WINDOW(foreign), gdk_display_get_default_screen(display));
    gtk_widget_show(foreign);
    GdkSeat *seat = gdk_display_get_default_seat(display);
    EXPECT_TRUE(run_until([=] {
        return gdk_seat_grab(seat, gtk_widget_get_window(foreign), GDK_SEAT_CAPABILITY_ALL, FALSE, nullptr,
                             nullptr, nullptr, nullptr) == GDK_GRAB_SUCCESS;
    }));

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

    gdk_seat_ungrab(seat);
    gtk_widget_destroy(foreign);
    gdk_display_flush(display);
    gtk_widget_destroy(own);
}

} // namespace
