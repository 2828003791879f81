#include "common/gui/langstr_scroller.h"

#include <vector>

#include "common/gui/gui.h"
#include "common/gui/langstr_editor.h"
#include "common/workspace/settings.h"
#include "tests/support/windows.h"

namespace {

constexpr int max_height_px = 200;

// Two editors, the second one with something below it.
struct LangstrScroller : WindowTest {
    LangstrScroller()
    {
        GtkWidget *content = z_gui_create_vbox(z_spacing::none);
        scroller = z_langstr_scroller_pack(z_gui_add_vbox(window, z_spacing::none), z_expand::no, content,
                                           max_height_px);
        for (int i = 0; i < 2; ++i) {
            GtkWidget *editor = z_gui_place_in_container(
                content, z_langstr_editor_new(nullptr, languages, z_input_lines::single, nullptr, nullptr));
            z_langstr_scroller_follow(scroller, editor);
            editors.push_back(editor);
        }
        gtk_widget_set_size_request(z_gui_pack_label(content, "Below", 0, 0), -1, 60);
        show_and_wait_for_draw(window);
    }
    int height()
    {
        return gtk_widget_get_allocated_height(scroller);
    }
    bool is_focus_in_view()
    {
        GtkWidget *focus = gtk_window_get_focus(GTK_WINDOW(window));
        int y = 0;
        gtk_widget_translate_coordinates(focus, scroller, 0, 0, nullptr, &y);
        const int focus_height = gtk_widget_get_allocated_height(focus);
        return focus_height > 1 && y >= 0 && y + focus_height <= height();
    }

    z_list<z_preferred_language> languages;
    GtkWidget *scroller = nullptr;
    std::vector<GtkWidget *> editors;
};

TEST_F(LangstrScroller, GrowsToItsLimitThenScrollsToEachNewRowAndShrinksAgain)
{
    const int opening_height_px = height();
    ASSERT_LT(opening_height_px, max_height_px);
    for (GtkWidget *editor : editors) {
        for (int row = 1; row <= 8; ++row) {
            gtk_button_clicked(GTK_BUTTON(find_button(editor, " + ")));
            EXPECT_TRUE(run_until([&] { return is_focus_in_view(); })) << row;
            run_for(50);
            EXPECT_TRUE(is_focus_in_view()) << row;
            EXPECT_LE(height(), max_height_px);
        }
    }
    EXPECT_EQ(max_height_px, height());
    for (GtkWidget *editor : editors) {
        for (int row = 1; row <= 8; ++row)
            gtk_button_clicked(GTK_BUTTON(find_button(editor, "\u2212")));
    }
    EXPECT_TRUE(run_until([&] { return height() == opening_height_px; }));
}

} // namespace
