#include <functional>
#include <set>
#include <vector>

#include "app/components_gui.h"
#include "app/editing_window.h"
#include "app/template_gui.h"
#include "app/text_sheet_fields_gui.h"
#include "common/gui/langstr_window.h"
#include "common/model/text_sheet.h"
#include "tests/support/langstr_text.h"
#include "tests/support/workspace_sandbox.h"

// Every window of the editor, worked without a mouse.

namespace {

using widget_set = std::set<GtkWidget *>;

bool is_focus_place(GtkWidget *widget)
{
    return (GTK_IS_BUTTON(widget) || GTK_IS_ENTRY(widget) || GTK_IS_TREE_VIEW(widget)) &&
           gtk_widget_get_can_focus(widget) && gtk_widget_is_sensitive(widget) &&
           gtk_widget_is_visible(widget);
}

widget_set list_focus_places(GtkWidget *window)
{
    widget_set places;
    (void)find_widget(window, [&](GtkWidget *widget) {
        if (is_focus_place(widget))
            places.insert(widget);
        return false;
    });
    return places;
}

// Where Tab leads, once around.
std::vector<GtkWidget *> walk_with_tab(GtkWidget *window)
{
    send_focus_change(window, true); // No window manager activates it.
    std::vector<GtkWidget *> places;
    for (int step = 0; step < 60; ++step) {
        gtk_widget_child_focus(window, GTK_DIR_TAB_FORWARD);
        GtkWidget *widget = gtk_window_get_focus(GTK_WINDOW(window));
        if (widget == nullptr || !is_focus_place(widget) || (!places.empty() && widget == places.back()))
            continue;
        if (!places.empty() && widget == places.front())
            break;
        places.push_back(widget);
    }
    return places;
}

// What a screen reader has for an input: a label or a name of its own.
bool is_named(GtkWidget *input)
{
    if (GtkWidget *combo = gtk_widget_get_ancestor(input, GTK_TYPE_COMBO_BOX))
        input = combo;
    AtkObject *accessible = gtk_widget_get_accessible(input);
    const char *name = atk_object_get_name(accessible);
    return !get_input_label(input).empty() || (name != nullptr && *name != '\0');
}

struct KeyboardTest : WorkspaceSandboxTest {
    // Opens the window, checks it, and leaves it by Escape, or by the steps that come then.
    static void check(const char *title, const char *default_button, const std::function<void()> &run,
                      const std::vector<std::function<bool()>> &then = {})
    {
        SCOPED_TRACE(title);
        Steps steps;
        steps.add_in(title, [default_button](GtkWidget *window) {
            EXPECT_NE(nullptr, gtk_window_get_focus(GTK_WINDOW(window)));
            GtkWidget *button = gtk_window_get_default_widget(GTK_WINDOW(window));
            EXPECT_STREQ(default_button, button != nullptr ? gtk_button_get_label(GTK_BUTTON(button)) : "");
            for (GtkWidget *place : list_focus_places(window))
                EXPECT_TRUE(is_named(place)) << G_OBJECT_TYPE_NAME(place);
            const std::vector<GtkWidget *> walk = walk_with_tab(window);
            EXPECT_EQ(list_focus_places(window), widget_set(walk.begin(), walk.end()));
            press_key(window, GDK_KEY_Escape);
            return true;
        });
        for (const auto &step : then)
            steps.add(step);
        run();
    }
};

TEST_F(KeyboardTest, TabReachesEverythingAndEscapeLeaves)
{
    write_file("workspace/templates/a.template", print_template("A"));
    z_langstr_ptr text = langstr_from_text("en=One|sv=Ett");
    const z_text_sheet_row_ptr row = z_text_sheet_row_new(nullptr);
    z_text_sheet_row_add_field(row.get(), z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
    check("Enter multilingual text", "OK", [&] {
        EXPECT_FALSE(z_langstr_window_run(stack.get(), context.settings->preferred_languages, text,
                                          {.label = "Row header"}));
    });
    check("Set up fields", "OK",
          [&] { EXPECT_FALSE(z_text_sheet_fields_gui_run(stack.get(), context.settings, row.get())); });
    check("Choose template", "OK", [&] {
        EXPECT_FALSE(z_template_gui_apply_template_to_template(
            stack.get(), workspace.get(), Z_TEMPLATE_GUI_ALL_BASIC_DATA, nullptr, nullptr, nullptr, nullptr));
    });
    z_components_gui components = {};
    components.window_stack = stack.get();
    components.workspace = workspace.get();
    components.sub_folder_name = "templates";
    components.file_type = Z_FILE_TYPE_TEMPLATE;
    check("Add new", "OK", [&] { EXPECT_EQ(nullptr, z_components_gui_get_new_file_path(&components)); });
    check("Select one to add", "OK",
          [&] { EXPECT_EQ(nullptr, z_components_gui_get_bundled_file_path(&components)); });
    // Nothing is lost by one key.
    const char title[] = "Edit template - a.template";
    check(title, "",
          [&] { EXPECT_FALSE(run_editing_window(&context, path("workspace/templates/a.template").c_str())); },
          {[&] { return press_button(title, "Close"); },
           [] { return press_button("Really close?", "Close"); }});
}

} // namespace
