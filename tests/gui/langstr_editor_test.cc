#include "common/gui/langstr_editor.h"

#include "common/base/error.h"
#include "common/gui/gtk_handles.h"
#include "common/gui/language_combo.h"
#include "common/workspace/settings.h"
#include "tests/support/langstr_text.h"
#include "tests/support/windows.h"

namespace {

struct LangstrEditor : WindowTest {
    LangstrEditor()
    {
        for (const char *tag : {"xx", "sv", "en-uk"})
            languages.add_last(z_settings_language_new(tag));
        z_error_clear();
    }
    ~LangstrEditor() override
    {
        z_error_clear();
    }
    // Langstrs as in langstr_text.h.
    void show(const std::string &text, z_input_lines lines = z_input_lines::single, const char *locked = "")
    {
        const z_langstr_ptr langstr = langstr_from_text(text);
        widget =
            z_langstr_editor_new(nullptr, languages, lines, langstr.get(), langstr_from_text(locked).get());
        editor = Z_LANGSTR_EDITOR(widget);
        gtk_container_add(GTK_CONTAINER(window), widget);
        show_and_wait_for_draw(window);
    }
    GtkWidget *cell(int column, int line)
    {
        GList *children = gtk_container_get_children(GTK_CONTAINER(widget));
        GtkWidget *found = gtk_grid_get_child_at(GTK_GRID(children->data), column, line);
        g_list_free(children);
        return found;
    }
    GtkWidget *combo(int line)
    {
        return cell(0, line);
    }
    GtkWidget *get_toggle_button(int line)
    {
        return find_widget(combo(line), [](GtkWidget *part) { return GTK_IS_TOGGLE_BUTTON(part) != FALSE; });
    }
    GtkWidget *input(int line)
    {
        return cell(1, line);
    }
    void type(int line, const char *utf8)
    {
        gtk_entry_set_text(GTK_ENTRY(input(line)), utf8);
    }
    void choose(int line, const char *tag)
    {
        ASSERT_TRUE(gtk_combo_box_set_active_id(GTK_COMBO_BOX(combo(line)), tag)) << tag;
    }
    void click(int column, int line)
    {
        gtk_button_clicked(GTK_BUTTON(cell(column, line)));
    }
    int line_count()
    {
        int count = 0;
        while (cell(2, count) != nullptr)
            ++count;
        return count;
    }
    std::string read()
    {
        z_langstr_ptr langstr;
        return z_langstr_editor_get_text(editor, langstr) ? text_from_langstr(langstr.get())
                                                          : std::string("failed: ") + z_error_get();
    }

    z_list<z_preferred_language> languages;
    GtkWidget *widget = nullptr;
    ZLangstrEditor *editor = nullptr;
};

TEST_F(LangstrEditor, GivesBackUntouchedWhatItWasGiven)
{
    const std::string cases[] = {"en=Door|sv=D\xf6rr", "xx-yy=?|sv-fi=a|sv=b",
                                 "=first|=second|de=dritter|=third", ""};
    for (const z_input_lines lines : {z_input_lines::single, z_input_lines::several}) {
        for (const std::string &text : cases) {
            show(text, lines);
            EXPECT_EQ(read(), text);
            gtk_widget_destroy(widget);
        }
    }
    const std::string long_text = "en=" + std::string(10000, 'x');
    show(long_text);
    EXPECT_EQ(read(), long_text);
}

TEST_F(LangstrEditor, NewRowsTakeThePreferredLanguagesThatAreLeft)
{
    show("");
    EXPECT_STREQ(z_language_combo_get_tag(combo(0)), "sv");
    click(3, 0);
    EXPECT_STREQ(z_language_combo_get_tag(combo(1)), "en-uk");
    click(3, 1);
    EXPECT_EQ(gtk_combo_box_get_active(GTK_COMBO_BOX(combo(2))), -1);
    EXPECT_EQ(gtk_window_get_focus(GTK_WINDOW(window)), input(2));
    EXPECT_EQ(cell(3, 1), nullptr);
    EXPECT_NE(cell(3, 2), nullptr);
    type(0, "  ett  tv\u00e5 ");
    type(2, "no language");
    EXPECT_EQ(read(), "sv=ett tv\xe5|=no language");
}

TEST_F(LangstrEditor, ALanguageMayHaveOneTextOnly)
{
    show("en=a|sv=b");
    choose(1, "en");
    EXPECT_EQ(read(), "failed: Each language may only appear once. Language \"en\" appears several times.");
    type(0, " ");
    EXPECT_EQ(read(), "en=b");
    // A dialect is a language of its own, and an untagged text is adopted by the language that has the same.
    click(3, 1);
    type(2, "b");
    choose(2, "en-us");
    EXPECT_EQ(read(), "en=b|en-us=b");
}

TEST_F(LangstrEditor, OnlyTheRowsOwnComboHasUndefinedOrUnknownLines)
{
    show("=a|xx=b|sv=c");
    const int counts[] = {72, 72, 71};
    const char *shown[] = {"Undefined", "Unknown language [xx]", "Swedish [sv]"};
    for (int line = 0; line < 3; ++line) {
        GtkTreeModel *model = gtk_combo_box_get_model(GTK_COMBO_BOX(combo(line)));
        EXPECT_EQ(gtk_tree_model_iter_n_children(model, nullptr), counts[line]);
        const z_utf8_ptr active(gtk_combo_box_text_get_active_text(GTK_COMBO_BOX_TEXT(combo(line))));
        EXPECT_STREQ(active.get(), shown[line]);
    }
}

TEST_F(LangstrEditor, LockedTextsStay)
{
    show("en=a|sv=b|de=c", z_input_lines::single, "en=");
    EXPECT_TRUE(z_langstr_editor_has_locked_texts(editor));
    for (int column = 0; column < 3; ++column) {
        EXPECT_FALSE(gtk_widget_is_sensitive(cell(column, 0))) << column;
        EXPECT_TRUE(gtk_widget_is_sensitive(cell(column, 1))) << column;
    }
    z_langstr_editor_clear(editor);
    EXPECT_EQ(read(), "en=a");
}

TEST_F(LangstrEditor, DeletingARowMovesTheOthersUpAndTheFocusAside)
{
    show("en=a|sv=b|de=c");
    int shrunk = 0;
    g_signal_connect_swapped(editor, "shrunk", G_CALLBACK(+[](int *count) { ++*count; }), &shrunk);
    GtkWidget *last_input = input(2);
    click(2, 1);
    EXPECT_EQ(read(), "en=a|de=c");
    EXPECT_EQ(input(1), last_input);
    EXPECT_EQ(gtk_window_get_focus(GTK_WINDOW(window)), last_input);
    click(2, 1);
    EXPECT_EQ(gtk_window_get_focus(GTK_WINDOW(window)), input(0));
    EXPECT_EQ(line_count(), 1);
    EXPECT_NE(cell(3, 0), nullptr);
    EXPECT_FALSE(gtk_widget_get_sensitive(cell(2, 0)));
    EXPECT_EQ(shrunk, 2);
    Steps steps;
    steps.add([] { return answer("Message", "There must be at least one row.", "OK"); });
    click(2, 0);
    EXPECT_EQ(read(), "en=a");
    z_langstr_editor_clear(editor);
    EXPECT_EQ(read(), "");
    EXPECT_EQ(line_count(), 1);
}

TEST_F(LangstrEditor, ChoosingALanguageLeadsToTheText)
{
    show("en=abc|sv=b");
    EXPECT_STREQ(atk_object_get_name(gtk_widget_get_accessible(input(1))), "Swedish [sv]");
    gtk_widget_grab_focus(input(1));
    choose(0, "de-de");
    EXPECT_EQ(gtk_window_get_focus(GTK_WINDOW(window)), input(0));
    EXPECT_FALSE(gtk_editable_get_selection_bounds(GTK_EDITABLE(input(0)), nullptr, nullptr));
    EXPECT_STREQ(atk_object_get_name(gtk_widget_get_accessible(input(0))), "German/Germany [de-de]");
}

TEST_F(LangstrEditor, TabWalksRowByRow)
{
    for (const z_input_lines lines : {z_input_lines::single, z_input_lines::several}) {
        show("en=a|sv=b", lines);
        send_focus_change(window, true);
        gtk_widget_grab_focus(get_toggle_button(0));
        GtkWidget *places[] = {get_toggle_button(0), cell(1, 0), cell(2, 0), get_toggle_button(1),
                               cell(1, 1),           cell(2, 1), cell(3, 1)};
        for (GtkWidget *place : places) {
            GtkWidget *focus = gtk_window_get_focus(GTK_WINDOW(window));
            EXPECT_TRUE(focus == place || gtk_widget_is_ancestor(focus, place));
            gtk_widget_child_focus(window, GTK_DIR_TAB_FORWARD);
        }
        gtk_widget_destroy(widget);
    }
}

TEST_F(LangstrEditor, TheWheelChangesNoLanguage)
{
    show("en=abc");
    const z_gdk_event_ptr event(gdk_event_new(GDK_SCROLL));
    // The part that takes the pointer lies inside the combo box.
    event->scroll.window = z_share(gtk_button_get_event_window(GTK_BUTTON(get_toggle_button(0)))).release();
    event->scroll.direction = GDK_SCROLL_DOWN;
    GdkSeat *seat = gdk_display_get_default_seat(gtk_widget_get_display(window));
    gdk_event_set_device(event.get(), gdk_seat_get_pointer(seat));
    gdk_event_set_source_device(event.get(), gdk_seat_get_pointer(seat));
    gtk_main_do_event(event.get());
    EXPECT_STREQ(z_language_combo_get_tag(combo(0)), "en");
}

} // namespace
