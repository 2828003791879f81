#include "common/gui/list_control_panel.h"

#include <algorithm>

#include "common/gui/gtk_handles.h"
#include "common/gui/gui.h"
#include "tests/support/lists.h"

namespace {

// A scrolled list of one letter a row, and the panel beside it.
struct ListControlPanelTest : WindowTest {
    ListControlPanelTest()
    {
        GtkWidget *box = z_gui_add_hbox(window, z_spacing::normal);
        GtkWidget *scrolled = z_gui_pack_scrolled_window(box, z_expand::yes, 150, 80, GTK_POLICY_AUTOMATIC,
                                                         GTK_POLICY_ALWAYS, GTK_SHADOW_IN);
        view = GTK_TREE_VIEW(z_gui_add_tree_view(scrolled, model, z_tree_view_headers::hidden,
                                                 z_tree_view_height::by_row, z_tree_view_selection::single));
        gtk_tree_view_insert_column_with_attributes(view, -1, "", gtk_cell_renderer_text_new(), "text", 0,
                                                    nullptr);
        panel = g_gui_pack_list_control_panel(box, store.get(), view);
    }

    void fill(std::string_view letters, int selected)
    {
        gtk_list_store_clear(store.get());
        for (const char letter : letters)
            gtk_list_store_insert_with_values(store.get(), nullptr, -1, 0, std::string{letter}.c_str(), -1);
        const z_tree_path_ptr path(gtk_tree_path_new_from_indices(std::max(selected, 0), -1));
        if (selected >= 0)
            gtk_tree_selection_select_path(gtk_tree_view_get_selection(view), path.get());
    }
    void press(const char *label)
    {
        gtk_button_clicked(GTK_BUTTON(find_button(panel, label)));
    }
    // The rows, the selected one marked, and the buttons that can be pressed: "a;>b;. Move up".
    std::string state()
    {
        std::string text = get_list_lines(window);
        for (const char *label : {"Move up", "Move down"}) {
            if (gtk_widget_get_sensitive(find_button(panel, label)))
                text.append(". ").append(label);
        }
        return text;
    }

    z_ref<GtkListStore> store = z_take(gtk_list_store_new(1, G_TYPE_STRING));
    GtkTreeModel *model = GTK_TREE_MODEL(store.get());
    GtkTreeView *view;
    GtkWidget *panel;
};

TEST_F(ListControlPanelTest, ButtonsCanBePressedExactlyWhenTheyHaveSomethingToDo)
{
    const struct {
        const char *rows;
        int selected;
        const char *state;
    } cases[] = {
        {"", -1, ""},
        {"abc", -1, "a;b;c;"},
        {"a", 0, ">a;"},
        {"abc", 0, ">a;b;c;. Move down"},
        {"abc", 1, "a;>b;c;. Move up. Move down"},
        {"abc", 2, "a;b;>c;. Move up"},
    };
    for (const auto &[rows, selected, expected] : cases) {
        fill(rows, selected);
        EXPECT_EQ(expected, state());
    }
    // A row that comes after the selected one makes room to move.
    gtk_list_store_insert_with_values(store.get(), nullptr, -1, 0, "d", -1);
    EXPECT_EQ("a;b;>c;d;. Move up. Move down", state());
}

TEST_F(ListControlPanelTest, AMovedRowStaysInSightAndAtTheEndTheListTakesTheKeyboard)
{
    fill("abcdefghijklmnop", 0);
    gtk_window_present(GTK_WINDOW(window));
    show_and_wait_for_draw(window);
    gtk_widget_grab_focus(find_button(panel, "Move down"));
    for (int i = 0; i < 20; ++i)
        press("Move down");
    EXPECT_EQ("b;c;d;e;f;g;h;i;j;k;l;m;n;o;p;>a;. Move up", state());
    EXPECT_EQ(GTK_WIDGET(view), gtk_window_get_focus(GTK_WINDOW(window)));
    EXPECT_TRUE(run_until([this] {
        z_tree_path_ptr last;
        gtk_tree_view_get_visible_range(view, nullptr, z_out(last));
        return gtk_tree_path_get_indices(last.get())[0] == 15;
    }));
    press("Move up");
    EXPECT_EQ("b;c;d;e;f;g;h;i;j;k;l;m;n;o;>a;p;. Move up. Move down", state());
}

} // namespace
