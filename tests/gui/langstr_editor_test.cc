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
    }
    // Langstrs as in langstr_text.h.
    void show(const std::string &text, z_input_lines lines = z_input_lines::single)
    {
        widget = z_langstr_editor_new(nullptr, languages, lines, langstr_from_text(text).get(), nullptr);
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
    GtkWidget *input(int line)
    {
        return cell(1, line);
    }
    void type(int line, const char *utf8)
    {
        gtk_entry_set_text(GTK_ENTRY(input(line)), utf8);
    }
    void click(int column, int line)
    {
        gtk_button_clicked(GTK_BUTTON(cell(column, line)));
    }
    std::string read()
    {
        z_langstr_ptr langstr;
        return z_langstr_editor_get_text(Z_LANGSTR_EDITOR(widget), langstr)
                   ? text_from_langstr(langstr.get())
                   : std::string("failed: ") + z_error_get();
    }

    z_list<z_preferred_language> languages;
    GtkWidget *widget = nullptr;
};

TEST_F(LangstrEditor, GivesBackUntouchedWhatItWasGiven)
{
    const std::string cases[] = {"en=Door|sv=D\xf6rr", "xx-yy=?|sv-fi=a|sv=b",
                                 "=first|=second|de=dritter|=third"};
    for (const z_input_lines lines : {z_input_lines::single, z_input_lines::several}) {
        for (const std::string &text : cases) {
            show(text, lines);
            EXPECT_EQ(read(), text);
            gtk_widget_destroy(widget);
        }
    }
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
    type(0, "  ett  tv\u00e5 ");
    type(2, "no language");
    EXPECT_EQ(read(), "sv=ett tv\xe5|=no language");
}

TEST_F(LangstrEditor, DeletingARowMovesTheOthersUpAndTheFocusAside)
{
    show("en=a|sv=b|de=c");
    GtkWidget *last_input = input(2);
    click(2, 1);
    EXPECT_EQ(read(), "en=a|de=c");
    EXPECT_EQ(input(1), last_input);
    EXPECT_EQ(gtk_window_get_focus(GTK_WINDOW(window)), last_input);
    click(2, 1);
    EXPECT_EQ(gtk_window_get_focus(GTK_WINDOW(window)), input(0));
    EXPECT_EQ(cell(2, 1), nullptr);
    EXPECT_FALSE(gtk_widget_get_sensitive(cell(2, 0)));
}

TEST_F(LangstrEditor, ChoosingALanguageLeadsToTheText)
{
    show("en=abc|sv=b");
    gtk_widget_grab_focus(input(1));
    ASSERT_TRUE(gtk_combo_box_set_active_id(GTK_COMBO_BOX(combo(0)), "de-de"));
    EXPECT_EQ(gtk_window_get_focus(GTK_WINDOW(window)), input(0));
    EXPECT_FALSE(gtk_editable_get_selection_bounds(GTK_EDITABLE(input(0)), nullptr, nullptr));
    EXPECT_STREQ(atk_object_get_name(gtk_widget_get_accessible(input(0))), "German/Germany [de-de]");
}

TEST_F(LangstrEditor, TabWalksRowByRow)
{
    show("en=a|sv=b", z_input_lines::several);
    send_focus_change(window, true);
    gtk_widget_grab_focus(input(0));
    for (GtkWidget *place : {input(0), cell(2, 0), combo(1), input(1), cell(2, 1), cell(3, 1)}) {
        GtkWidget *focus = gtk_window_get_focus(GTK_WINDOW(window));
        EXPECT_TRUE(focus == place || gtk_widget_is_ancestor(focus, place));
        gtk_widget_child_focus(window, GTK_DIR_TAB_FORWARD);
    }
}

TEST_F(LangstrEditor, TheWheelChangesNoLanguage)
{
    show("en=abc");
    const z_gdk_event_ptr event(gdk_event_new(GDK_SCROLL));
    // The part that takes the pointer lies inside the combo box.
    GtkWidget *button =
        find_widget(combo(0), [](GtkWidget *part) { return GTK_IS_TOGGLE_BUTTON(part) != FALSE; });
    event->scroll.window = z_share(gtk_button_get_event_window(GTK_BUTTON(button))).release();
    event->scroll.direction = GDK_SCROLL_DOWN;
    gdk_event_set_device(event.get(),
                         gdk_seat_get_pointer(gdk_display_get_default_seat(gtk_widget_get_display(window))));
    gtk_main_do_event(event.get());
    EXPECT_STREQ(z_language_combo_get_tag(combo(0)), "en");
}

} // namespace
