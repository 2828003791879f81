#include "common/gui/langstr_window.h"

#include "common/gui/spacifying_entry.h"
#include "common/gui/window_stack.h"
#include "common/workspace/settings.h"
#include "tests/support/langstr_text.h"
#include "tests/support/windows.h"

namespace {

const char title[] = "Rename";

GtkWidget *find_input(GtkWidget *window)
{
    return find_widget(window, [](GtkWidget *widget) { return Z_IS_SPACIFYING_ENTRY(widget) != FALSE; });
}

TEST(LangstrWindow, OnlyOkAndReturnReplaceTheLangstr)
{
    const z_window_stack_ptr stack = z_window_stack_new();
    const z_list<z_preferred_language> languages;
    const auto key = [](guint keyval) { return press_key(find_window(title), keyval), true; };
    const std::pair<std::function<bool()>, bool> ways[] = {
        {[] { return press_button(title, "Cancel"); }, false},
        {[&] { return key(GDK_KEY_Escape); }, false},
        {[] { return close_window(title); }, false},
        {[] { return press_button(title, "Use"); }, true},
        {[&] { return key(GDK_KEY_Return); }, true}};
    for (const auto &[leave, is_accepted] : ways) {
        z_langstr_ptr langstr = langstr_from_text("en=Door");
        Steps steps;
        steps.add_in(title, [](GtkWidget *window) {
            gtk_entry_set_text(GTK_ENTRY(find_input(window)), "D\u00f6rr");
            return true;
        });
        steps.add(leave);
        EXPECT_EQ(z_langstr_window_run(stack.get(), languages, langstr, {.title = title, .ok_label = "Use"}),
                  is_accepted);
        EXPECT_EQ(text_from_langstr(langstr.get()), is_accepted ? "en=D\xf6rr" : "en=Door");
    }
}

TEST(LangstrWindow, TheNoteStandsOnlyWhereSomethingCannotBeChanged)
{
    const z_window_stack_ptr stack = z_window_stack_new();
    const z_list<z_preferred_language> languages;
    z_langstr_ptr langstr = langstr_from_text("en=Door");
    const z_langstr_ptr locked = langstr_from_text("en=");
    const std::pair<z_langstr_window_options, bool> cases[] = {
        {{.title = title, .note = "Not yours."}, false},
        {{.title = title, .note = "Not yours.", .locked = locked.get()}, true},
        {{.title = title, .note = "Not yours.", .insensitive = true}, true},
    };
    for (const auto &each : cases) {
        Steps steps;
        steps.add_in(title, [shows_note = each.second](GtkWidget *window) {
            EXPECT_EQ(get_label_texts(window).find("Not yours.") != std::string::npos, shows_note);
            EXPECT_EQ(gtk_widget_is_sensitive(find_input(window)), !shows_note);
            return press_button(title, "OK");
        });
        EXPECT_TRUE(z_langstr_window_run(stack.get(), languages, langstr, each.first));
        EXPECT_EQ(text_from_langstr(langstr.get()), "en=Door");
    }
}

} // namespace
