#include "common/gui/list_control_panel.h"

#include <gtest/gtest.h>

#include "common/gui/gtk_handles.h"
#include "common/gui/gui.h"
#include "tests/support/windows.h"

namespace {

// A scrolled list of one letter a row, and the panel beside it.
struct ListControlPanelTest : testing::Test {
    ListControlPanelTest()
    {
        window = z_gui_create_window("List");
        box = z_gui_add_hbox(window, z_spacing::normal);
        GtkWidget *scrolled = z_gui_pack_scrolled_window(box, z_expand::yes, 150, 80, GTK_POLICY_AUTOMATIC,
                                                         GTK_POLICY_ALWAYS, GTK_SHADOW_IN);
        view = GTK_TREE_VIEW(z_gui_add_tree_view(scrolled, GTK_TREE_MODEL(store.get()),
                                                 z_tree_view_headers::hidden, z_tree_view_height::by_row,
                                                 z_tree_view_selection::single));
        gtk_tree_view_insert_column_with_attributes(view, -1, "", gtk_cell_renderer_text_new(), "text", 0,
                                                    nullptr);
        panel = g_gui_pack_list_control_panel(box, store.get(), view);
    }
    ~ListControlPanelTest() override
    {
        gtk_widget_destroy(window);
    }

    void fill(std::string_view letters)
    {
        gtk_list_store_clear(store.get());
        for (const char letter : letters)
            gtk_list_store_insert_with_values(store.get(), nullptr, -1, 0, std::string(1, letter).c_str(),
                                              -1);
    }
    void pack_remove_button(z_list_control_panel_confirm confirm, gpointer data)
    {
        z_list_control_panel_pack_remove_button(Z_LIST_CONTROL_PANEL(panel), "Delete", confirm, data);
    }
    void select(int row)
    {
        const z_tree_path_ptr path(gtk_tree_path_new_from_indices(row, -1));
        gtk_tree_selection_select_path(gtk_tree_view_get_selection(view), path.get());
    }
    static bool collect(GtkTreeModel *model, GtkTreeIter *row, bool is_selected, std::string &text)
    {
        char *letter = nullptr;
        gtk_tree_model_get(model, row, 0, &letter, -1);
        text += is_selected ? std::string("[") + letter + "]" : letter;
        g_free(letter);
        return gtk_tree_model_iter_next(model, row);
    }
    // The rows, the selected one in brackets, and the buttons that can be pressed: "a[b] up delete".
    std::string state()
    {
        std::string text;
        GtkTreeIter row;
        GtkTreeModel *model = GTK_TREE_MODEL(store.get());
        bool more = gtk_tree_model_get_iter_first(model, &row);
        while (more) {
            const bool is_selected =
                gtk_tree_selection_iter_is_selected(gtk_tree_view_get_selection(view), &row);
            more = collect(model, &row, is_selected, text);
        }
        for (const auto &[label, name] :
             {std::pair{"Move up", " up"}, {"Move down", " down"}, {"Delete", " delete"}}) {
            GtkWidget *button = find_button(panel, label);
            if (button != nullptr && gtk_widget_get_sensitive(button))
                text += name;
        }
        return text;
    }
    void press(const char *label)
    {
        gtk_button_clicked(GTK_BUTTON(find_button(panel, label)));
    }
    // Whether the keyboard would go on from the selected row.
    bool is_cursor_on_selected_row()
    {
        z_tree_path_ptr cursor;
        gtk_tree_view_get_cursor(view, z_out(cursor), nullptr);
        return cursor && gtk_tree_selection_path_is_selected(gtk_tree_view_get_selection(view), cursor.get());
    }
    bool is_selected_row_in_sight()
    {
        z_tree_path_ptr first;
        z_tree_path_ptr last;
        z_tree_path_ptr cursor;
        gtk_tree_view_get_visible_range(view, z_out(first), z_out(last));
        gtk_tree_view_get_cursor(view, z_out(cursor), nullptr);
        return gtk_tree_path_compare(first.get(), cursor.get()) <= 0 &&
               gtk_tree_path_compare(cursor.get(), last.get()) <= 0;
    }

    z_ref<GtkListStore> store = z_take(gtk_list_store_new(1, G_TYPE_STRING));
    GtkWidget *window;
    GtkWidget *box;
    GtkTreeView *view;
    GtkWidget *panel;
};

TEST_F(ListControlPanelTest, ButtonsCanBePressedExactlyWhenTheyHaveSomethingToDo)
{
    pack_remove_button(nullptr, nullptr);
    const struct {
        const char *rows;
        int selected;
        const char *state;
    } cases[] = {
        {"", -1, ""},
        {"abc", -1, "abc"},
        {"a", 0, "[a] delete"},
        {"abc", 0, "[a]bc down delete"},
        {"abc", 1, "a[b]c up down delete"},
        {"abc", 2, "ab[c] up delete"},
    };
    for (const auto &[rows, selected, expected] : cases) {
        fill(rows);
        if (selected >= 0)
            select(selected);
        EXPECT_EQ(expected, state());
    }
    // A row that comes after the selected one makes room to move.
    gtk_list_store_insert_with_values(store.get(), nullptr, -1, 0, "d", -1);
    EXPECT_EQ("ab[c]d up down delete", state());
}

TEST_F(ListControlPanelTest, AMovedRowStaysSelectedAndInSight)
{
    fill("abcdefghijklmnop");
    show_and_wait_for_draw(window);
    select(0);
    for (int i = 0; i < 20; ++i)
        press("Move down");
    EXPECT_EQ("bcdefghijklmnop[a] up", state());
    EXPECT_TRUE(is_cursor_on_selected_row());
    EXPECT_TRUE(run_until([this] { return is_selected_row_in_sight(); }));
    press("Move up");
    EXPECT_EQ("bcdefghijklmno[a]p up down", state());
}

TEST_F(ListControlPanelTest, TheNeighbourOfARemovedRowIsSelected)
{
    fill("abc");
    pack_remove_button(nullptr, nullptr);
    select(1);
    for (const char *expected : {"a[c] up delete", "[a] delete", ""}) {
        press("Delete");
        EXPECT_EQ(expected, state());
        EXPECT_TRUE(*expected == '\0' || is_cursor_on_selected_row());
    }
}

TEST_F(ListControlPanelTest, OnlyTheFirstRemoveButtonCountsAndItsRefusalKeepsTheRow)
{
    static int ask_count;
    ask_count = 0;
    bool answer = false;
    fill("ab");
    pack_remove_button(
        [](ZListControlPanel *, GtkTreeIter *, gpointer data) {
            ++ask_count;
            return *static_cast<bool *>(data);
        },
        &answer);
    pack_remove_button(nullptr, nullptr);
    select(0);
    press("Delete");
    EXPECT_EQ("[a]b down delete", state());
    answer = true;
    press("Delete");
    EXPECT_EQ("[b] delete", state());
    EXPECT_EQ(2, ask_count);
}

TEST_F(ListControlPanelTest, TheListMayChangeWhileTheUserIsAsked)
{
    fill("abc");
    pack_remove_button(
        [](ZListControlPanel *, GtkTreeIter *row, gpointer data) {
            gtk_list_store_remove(static_cast<GtkListStore *>(data), row);
            return true;
        },
        store.get());
    select(0);
    press("Delete");
    EXPECT_EQ(2, gtk_tree_model_iter_n_children(GTK_TREE_MODEL(store.get()), nullptr));
}

TEST_F(ListControlPanelTest, ThePanelMayGoWhileTheUserIsAsked)
{
    fill("abc");
    pack_remove_button(
        [](ZListControlPanel *asking, GtkTreeIter *, gpointer) {
            gtk_widget_destroy(GTK_WIDGET(asking));
            return true;
        },
        nullptr);
    select(0);
    press("Delete");
    EXPECT_EQ(3, gtk_tree_model_iter_n_children(GTK_TREE_MODEL(store.get()), nullptr));
    select(2);
}

TEST_F(ListControlPanelTest, WithoutItsViewThePanelIsInsensitive)
{
    fill("abc");
    select(1);
    gtk_widget_destroy(GTK_WIDGET(view));
    EXPECT_FALSE(gtk_widget_get_sensitive(find_button(panel, "Move up")));
    EXPECT_FALSE(gtk_widget_get_sensitive(find_button(panel, "Move down")));
    gtk_list_store_clear(store.get());
}

TEST_F(ListControlPanelTest, AButtonThatHasDoneItsLastHandsTheKeyboardToTheList)
{
    fill("ab");
    gtk_window_present(GTK_WINDOW(window));
    show_and_wait_for_draw(window);
    select(1);
    gtk_widget_grab_focus(find_button(panel, "Move up"));
    press("Move up");
    EXPECT_EQ("[b]a down", state());
    EXPECT_EQ(GTK_WIDGET(view), gtk_window_get_focus(GTK_WINDOW(window)));
}

} // namespace
