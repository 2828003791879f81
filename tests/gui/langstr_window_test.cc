#include "common/gui/langstr_window.h"

#include "common/gui/spacifying_entry.h"
#include "common/gui/window_stack.h"
#include "common/workspace/settings.h"
#include "tests/support/langstr_text.h"
#include "tests/support/windows.h"

namespace {

struct LangstrWindow : testing::Test {
    LangstrWindow()
    {
        languages.add_last(z_settings_language_new("sv"));
    }
    bool run(const z_langstr_window_options &options)
    {
        return z_langstr_window_run(stack.get(), languages, langstr, options);
    }
    static GtkWidget *find_input(std::string_view title)
    {
        GtkWidget *window = find_window(title);
        return window == nullptr
                   ? nullptr
                   : find_widget(window, [](GtkWidget *widget) { return Z_IS_SPACIFYING_ENTRY(widget); });
    }
    // A step: types into the first row once the window is there.
    static auto type(std::string_view title, const char *utf8)
    {
        return [title, utf8] {
            GtkWidget *input = find_input(title);
            if (input == nullptr || !gtk_widget_is_sensitive(input))
                return false;
            gtk_entry_set_text(GTK_ENTRY(input), utf8);
            return true;
        };
    }
    static auto press(std::string_view title, std::string_view label)
    {
        return [title, label] { return press_button(title, label); };
    }
    // A step, after one that has found the window.
    static auto key(std::string_view title, guint keyval)
    {
        return [title, keyval] {
            press_key(find_window(title), keyval);
            return true;
        };
    }

    z_window_stack_ptr stack = z_window_stack_new();
    z_list<z_preferred_language> languages;
    z_langstr_ptr langstr = langstr_from_text("en=Door");
};

const char *const default_title = "Enter multilingual text";

TEST_F(LangstrWindow, OnlyOkAndReturnReplaceTheLangstr)
{
    const char title[] = "Rename";
    const std::pair<std::function<bool()>, bool> ways[] = {{press(title, "Cancel"), false},
                                                           {key(title, GDK_KEY_Escape), false},
                                                           {[&] { return close_window(title); }, false},
                                                           {press(title, "Use"), true},
                                                           {key(title, GDK_KEY_Return), true}};
    for (const auto &[leave, is_accepted] : ways) {
        langstr = langstr_from_text("en=Door");
        Steps steps;
        steps.add(type(title, "D\u00f6rr"));
        steps.add(leave);
        EXPECT_EQ(run({.title = title, .label = "Block header", .ok_label = "Use"}), is_accepted);
        EXPECT_EQ(text_from_langstr(langstr.get()), is_accepted ? "en=D\xf6rr" : "en=Door");
    }
}

TEST_F(LangstrWindow, AnUnreadableTableIsShownAndKept)
{
    Steps steps;
    steps.add([] {
        GtkWidget *input = find_input(default_title);
        if (input != nullptr)
            gtk_widget_destroy(input);
        return input != nullptr;
    });
    steps.add(press(default_title, "OK"));
    steps.add([] { return answer("Error", "An error occured with the user interface.", "Close"); });
    steps.add(press(default_title, "Cancel"));
    EXPECT_FALSE(run({}));
    EXPECT_EQ(text_from_langstr(langstr.get()), "en=Door");
}

TEST_F(LangstrWindow, TheNoteStandsOnlyWhereSomethingCannotBeChanged)
{
    const z_langstr_ptr locked = langstr_from_text("en=");
    struct {
        z_langstr_window_options options;
        bool shows_note;
    } const cases[] = {
        {{.label = "Name", .note = "Not yours."}, false},
        {{.label = "Name", .note = "Not yours.", .locked = locked.get()}, true},
        {{.label = "Name", .note = "Not yours.", .insensitive = true}, true},
    };
    for (const auto &c : cases) {
        Steps steps;
        steps.add_in(default_title, [&c](GtkWidget *window) {
            EXPECT_EQ(get_label_texts(window).find("Not yours.") != std::string::npos, c.shows_note);
            EXPECT_EQ(gtk_widget_is_sensitive(find_input(default_title)), !c.shows_note);
            return press_button(default_title, "OK");
        });
        EXPECT_TRUE(run(c.options));
        EXPECT_EQ(text_from_langstr(langstr.get()), "en=Door");
    }
}

} // namespace
