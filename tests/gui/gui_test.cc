#include "common/gui/gui.h"

#include <vector>

#include "common/gui/css.h"
#include "common/gui/gui_font.h"
#include "tests/support/windows.h"

namespace {

struct GuiTest : WindowTest {
    GuiTest() : WindowTest(z_gui_create_window("Test")) {}
    GtkWidget *const box = z_gui_add_vbox(window, z_spacing::normal);
};

TEST_F(GuiTest, FramesNameTheirInputs)
{
    GtkWidget *inner = z_gui_pack_vbox_in_frame_with_input_field_label(box, z_expand::no, "R&D",
                                                                       z_required::yes, z_spacing::none);
    EXPECT_EQ("R&D: (Required)\n", get_label_texts(box));
    EXPECT_EQ(8u, gtk_container_get_border_width(GTK_CONTAINER(inner)));
    // What is no container gets its margin outside.
    GtkWidget *label = z_gui_place_in_frame(box, z_expand::no, "Frame", z_gui_create_label("Text", 0, 0));
    EXPECT_EQ(8, gtk_widget_get_margin_start(label));

    EXPECT_TRUE(z_gui_set_widget_frame_label(inner, "New"));
    EXPECT_EQ("New\nText\nFrame\n", get_label_texts(box));
    EXPECT_FALSE(z_gui_set_widget_frame_label(box, "Nothing around it"));
}

TEST_F(GuiTest, LongNamesAreCutOnTheTabAndWholeInTheMenu)
{
    const std::string name(300, 'W');
    GtkWidget *notebook = z_gui_pack_notebook(box, z_expand::yes);
    GtkWidget *page = z_gui_create_vbox(z_spacing::none);
    EXPECT_EQ(0, z_gui_append_notebook_page(notebook, page, "Short", z_page_margin::normal));
    EXPECT_EQ(1, z_gui_append_notebook_page(notebook, z_gui_create_label("", 0, 0), name.c_str(),
                                            z_page_margin::none));
    EXPECT_EQ(8u, gtk_container_get_border_width(GTK_CONTAINER(page)));
    show_and_wait_for_draw(window);
    EXPECT_GT(700, gtk_widget_get_allocated_width(window));
    GtkWidget *second = gtk_notebook_get_nth_page(GTK_NOTEBOOK(notebook), 1);
    const z_utf8_ptr tooltip(
        gtk_widget_get_tooltip_text(gtk_notebook_get_tab_label(GTK_NOTEBOOK(notebook), second)));
    EXPECT_STREQ(name.c_str(), tooltip.get());
    EXPECT_STREQ(name.c_str(), gtk_notebook_get_menu_label_text(GTK_NOTEBOOK(notebook), second));

    z_gui_set_notebook_label_text(notebook, page, name.c_str());
    z_gui_set_notebook_label_text(notebook, page, "Ä & ö");
    GtkWidget *label = gtk_notebook_get_tab_label(GTK_NOTEBOOK(notebook), page);
    EXPECT_STREQ("Ä & ö", gtk_label_get_text(GTK_LABEL(label)));
    EXPECT_EQ(nullptr, gtk_widget_get_tooltip_text(label));
}

// The height of the window when content of that height has come and gone again.
int show_and_hide_content(GtkWidget *window, GtkWidget *box, int height_px)
{
    GtkWidget *content = z_gui_pack_space(box, 10, height_px);
    EXPECT_TRUE(run_until([=] { return gtk_widget_get_allocated_height(content) == height_px; }));
    gtk_widget_destroy(content);
    z_gui_resize_window_to_chosen_size_unless_maximized(window);
    run_for(100);
    return gtk_widget_get_allocated_height(window);
}

TEST_F(GuiTest, OnlyForcedGrowthIsUndone)
{
    z_gui_set_window_chosen_size(window, 200, 150);
    show_and_wait_for_draw(window);
    EXPECT_EQ(150, gtk_widget_get_allocated_height(window));
    EXPECT_EQ(150, show_and_hide_content(window, box, 300));
    gtk_window_resize(GTK_WINDOW(window), 200, 400);
    EXPECT_TRUE(run_until([this] { return gtk_widget_get_allocated_height(window) == 400; }));
    EXPECT_EQ(400, show_and_hide_content(window, box, 100));
    EXPECT_EQ(400, show_and_hide_content(window, box, 500));

    // A height on the way back is no choice, even if the content is smaller again when it comes.
    const auto get_height = [this] { return gtk_widget_get_allocated_height(window); };
    GtkWidget *const contents[] = {z_gui_pack_space(box, 10, 430), z_gui_pack_space(box, 10, 430)};
    EXPECT_TRUE(run_until([&] { return get_height() >= 860; }));
    gtk_widget_destroy(contents[0]);
    z_gui_resize_window_to_chosen_size_unless_maximized(window);
    gtk_container_check_resize(GTK_CONTAINER(window));
    gtk_widget_destroy(contents[1]);
    EXPECT_TRUE(run_until([&] { return get_height() < 860; }));
    z_gui_resize_window_to_chosen_size_unless_maximized(window);
    EXPECT_TRUE(run_until([&] { return get_height() == 400; }));

    z_gui_resize_window_to_minimum_height_unless_maximized(window);
    EXPECT_TRUE(run_until([this] { return gtk_widget_get_allocated_height(window) < 100; }));
    EXPECT_EQ(200, gtk_widget_get_allocated_width(window));
}

TEST_F(GuiTest, ColoursReplaceEachOtherAndReachTheScreen)
{
    GtkWidget *area = z_gui_add_event_box(z_gui_pack_vbox(box, z_expand::yes, z_spacing::none));
    gtk_widget_set_size_request(area, 20, 20);
    GtkWidget *label = z_gui_pack_label(box, "Text", 0, 0);
    z_gui_set_widget_bg(area, 0xff0000);
    z_gui_set_widget_bg(area, 0x0080ff);
    z_gui_set_widget_fg(label, 0x123456);
    z_gui_set_sensitivity(label, false);
    show_and_wait_for_draw(window);
    EXPECT_EQ(0x0080ffu, Picture(area).get_rgb(10, 10));
    GdkRGBA colour;
    gtk_style_context_get_color(gtk_widget_get_style_context(label), GTK_STATE_FLAG_INSENSITIVE, &colour);
    const z_utf8_ptr text(gdk_rgba_to_string(&colour));
    EXPECT_STREQ("rgb(18,52,86)", text.get());
}

TEST_F(GuiTest, TheFontIsThatOfTheNormalStateWhateverTheWidgetsIs)
{
    z_css_style_widget(box, "box { font: 10pt Sans; } box:disabled { font-size: 30pt; }");
    z_gui_set_sensitivity(box, false);
    const z_font_description_ptr font = z_gui_get_font_description(box, z_font_style::large_header, 12);
    EXPECT_EQ(16 * PANGO_SCALE, pango_font_description_get_size(font.get()));
    EXPECT_EQ(PANGO_WEIGHT_BOLD, pango_font_description_get_weight(font.get()));
}

TEST(GuiTitle, NamesTheDocumentFirst)
{
    EXPECT_STREQ("Survey - Zanvel 3.2.3", z_gui_generate_main_window_title("Zanvel", "Survey").get());
    EXPECT_STREQ("Zanvel 3.2.3", z_gui_generate_main_window_title("Zanvel", nullptr).get());
}

TEST(GuiDialog, NoAndYesStandInThePlatformsOrderAndShareTheWidth)
{
    for (bool alternative : {false, true}) {
        g_object_set(gtk_settings_get_default(), "gtk-alternative-button-order", alternative, nullptr);
        GtkWidget *dialog = z_gui_create_dialog("Question", z_dialog_buttons::yes_no);
        show_and_wait_for_draw(dialog);
        EXPECT_EQ(alternative ? "Yes\nNo\n" : "No\nYes\n", get_label_texts(dialog));
        EXPECT_EQ(gtk_widget_get_allocated_width(find_button(dialog, "No")),
                  gtk_widget_get_allocated_width(find_button(dialog, "Yes")));
        gtk_widget_destroy(dialog);
    }
    g_object_set(gtk_settings_get_default(), "gtk-alternative-button-order", FALSE, nullptr);
}

TEST(Css, DeprecatedRulesAreSilentAndBrokenOnesAreNot)
{
    (void)z_css_create_provider("button { -GtkButton-image-spacing: 3px; }");
    g_test_expect_message(nullptr, G_LOG_LEVEL_WARNING, "Style rule, line 1: *colour*");
    (void)z_css_create_provider("button { colour: red; }");
    g_test_assert_expected_messages();
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
