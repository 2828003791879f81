#include "common/gui/gui.h"

#include <vector>

#include "tests/support/windows.h"

namespace {

struct GuiTest : WindowTest {
    GuiTest() : WindowTest(z_gui_create_window("Test")) {}
    GtkWidget *const box = z_gui_add_vbox(window, z_spacing::normal);
};

TEST_F(GuiTest, LongNamesAreCutOnTheTabAndWholeInTheMenu)
{
    const std::string name(300, 'W');
    GtkWidget *notebook = z_gui_pack_notebook(box, z_expand::yes);
    GtkWidget *page = z_gui_create_label("", 0, 0);
    EXPECT_EQ(0, z_gui_append_notebook_page(notebook, page, name.c_str(), z_page_margin::none));
    show_and_wait_for_draw(window);
    EXPECT_GT(700, gtk_widget_get_allocated_width(window));
    const z_utf8_ptr tooltip(
        gtk_widget_get_tooltip_text(gtk_notebook_get_tab_label(GTK_NOTEBOOK(notebook), page)));
    EXPECT_STREQ(name.c_str(), tooltip.get());
    EXPECT_STREQ(name.c_str(), gtk_notebook_get_menu_label_text(GTK_NOTEBOOK(notebook), page));
}

// What the content forced is given back, and a height on the way back is no choice of the user's, even if the
// content is smaller again when it comes.
TEST_F(GuiTest, OnlyForcedGrowthIsUndone)
{
    z_gui_set_window_chosen_size(window, 200, 150);
    show_and_wait_for_draw(window);
    gtk_window_resize(GTK_WINDOW(window), 200, 400);
    const auto get_height = [this] { return gtk_widget_get_allocated_height(window); };
    EXPECT_TRUE(run_until([&] { return get_height() == 400; }));
    GtkWidget *const contents[] = {z_gui_pack_space(box, 10, 430), z_gui_pack_space(box, 10, 430)};
    EXPECT_TRUE(run_until([&] { return get_height() >= 860; }));
    gtk_widget_destroy(contents[0]);
    z_gui_resize_window_to_chosen_size_unless_maximized(window);
    gtk_container_check_resize(GTK_CONTAINER(window));
    gtk_widget_destroy(contents[1]);
    EXPECT_TRUE(run_until([&] { return get_height() < 860; }));
    z_gui_resize_window_to_chosen_size_unless_maximized(window);
    EXPECT_TRUE(run_until([&] { return get_height() == 400; }));
}

TEST(GuiDialog, NoAndYesStandInThePlatformsOrder)
{
    for (bool alternative : {true, false}) {
        g_object_set(gtk_settings_get_default(), "gtk-alternative-button-order", alternative, nullptr);
        GtkWidget *dialog = z_gui_create_dialog("Question", z_dialog_buttons::yes_no);
        EXPECT_EQ(alternative ? "Yes\nNo\n" : "No\nYes\n", get_label_texts(dialog));
        gtk_widget_destroy(dialog);
    }
}

TEST_F(GuiTest, AListThatIsGivenTheFocusNeverShowsASelectionUntilOneIsMade)
{
    const z_ref<GtkListStore> store = z_take(gtk_list_store_new(1, G_TYPE_STRING));
    for (const char *text : {"one", "two"})
        gtk_list_store_insert_with_values(store.get(), nullptr, -1, 0, text, -1);
    GtkWidget *view = z_gui_create_tree_view(GTK_TREE_MODEL(store.get()), z_tree_view_headers::visible,
                                             z_tree_view_height::by_row, z_tree_view_selection::single);
    gtk_container_add(GTK_CONTAINER(box), view);
    z_gui_unselect_when_idle(view);
    std::vector<int> drawn;
    g_signal_connect_swapped(view, "draw",
                             G_CALLBACK(+[](std::vector<int> *counts, cairo_t *, GtkTreeView *drawn_view) {
                                 counts->push_back(gtk_tree_selection_count_selected_rows(
                                     gtk_tree_view_get_selection(drawn_view)));
                                 return FALSE;
                             }),
                             &drawn);
    gtk_widget_show(window);
    gtk_widget_grab_focus(view);
    EXPECT_TRUE(run_until([&] { return !drawn.empty(); }));
    run_for(50);
    EXPECT_EQ(std::vector<int>(drawn.size()), drawn);
    send_focus_change(window, true);
    press_key(window, GDK_KEY_Down);
    EXPECT_EQ(1, gtk_tree_selection_count_selected_rows(gtk_tree_view_get_selection(GTK_TREE_VIEW(view))));
}

} // namespace
