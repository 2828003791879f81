#include "common/gui/gui_menu.h"

#include "common/gui/gui.h"
#include "tests/support/windows.h"

namespace {

struct MenuTest : WindowTest {
    MenuTest()
    {
        show_and_wait_for_draw(window);
    }

    static void activate_callback(GtkMenuItem *item, gpointer data)
    {
        static_cast<MenuTest *>(data)->chosen = z_gui_menu_get_item_data(item);
    }
    GtkWidget *create_menu()
    {
        GtkWidget *menu = gtk_menu_new();
        z_gui_menu_append_item_with_activate_callback(menu, "First", 11, z_menu_item::sensitive,
                                                      activate_callback, this);
        z_gui_menu_append_separator(menu);
        z_gui_menu_append_latin1_item_with_activate_callback(menu, "\xc4ndra", 12, z_menu_item::sensitive,
                                                             activate_callback, this);
        z_gui_menu_append_item_with_activate_callback(menu, "Grey", 13, z_menu_item::insensitive,
                                                      activate_callback, this);
        return menu;
    }

    GtkWidget *const anchor = z_gui_add_button(window, "A rather wide button to hang the menu below");
    int chosen = 0;
};

TEST_F(MenuTest, RunReturnsAfterTheCallbackOfTheChosenItemOrWithoutAChoice)
{
    for (bool at_pointer : {true, false}) {
        chosen = 0;
        Steps steps;
        steps.add([] {
            EXPECT_FALSE(choose_menu_item("Grey"));
            return choose_menu_item("Ändra");
        });
        z_gui_menu_run_and_destroy(create_menu(), at_pointer ? nullptr : anchor);
        EXPECT_EQ(12, chosen);
        EXPECT_EQ(nullptr, find_menu());
    }
    Steps steps;
    steps.add_in_menu([this](GtkWidget *menu) {
        EXPECT_LE(gtk_widget_get_allocated_width(anchor), gtk_widget_get_allocated_width(menu));
        return close_menu();
    });
    z_gui_menu_run_and_destroy(create_menu(), anchor);
    EXPECT_EQ(12, chosen);
}

} // namespace
