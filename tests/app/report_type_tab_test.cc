#include "app/report_type_tab.h"

#include "app/editing_window.h"
#include "app/tab_menu_icon.h"
#include "tests/support/workspace_sandbox.h"

namespace {

const char file_name[] = "workspace/templates/a.template";
const char title[] = "Edit template - a.template";
const char rename_title[] = "Rename the report type";

using ReportTypeTabTest = WorkspaceSandboxTest;

// Only the window on top can be closed, also where a menu of the one below still runs.
TEST_F(ReportTypeTabTest, TheWindowStaysOpenWhileItsMenuRunsAnother)
{
    const auto print = [](const char *last_name) {
        return print_template("N", "", print_report_type("A") + print_report_type(last_name));
    };
    write_file(file_name, print("B"));
    GtkWidget *tab = nullptr;
    GtkWidget *icon = nullptr;
    Steps steps;
    steps.add_in(title, [&](GtkWidget *) {
        GtkNotebook *notebook = find_notebook(title);
        tab = gtk_notebook_get_tab_label(notebook, gtk_notebook_get_nth_page(notebook, 2));
        icon = find_widget(tab, [](GtkWidget *widget) { return TAB_IS_MENU_ICON(widget) != 0; });
        click(icon);
        return true;
    });
    steps.add_in_menu([&](GtkWidget *menu) {
        const Picture picture(icon);
        int bar_lines = 0;
        for (int y = 1; y < gtk_widget_get_allocated_height(icon); ++y)
            bar_lines += picture.get_rgb(5, y) != picture.get_rgb(5, 0);
        EXPECT_EQ(3, bar_lines) << "the bars are blurred";
        EXPECT_EQ("Rename\nMove left\nMove right\nErase\n", get_label_texts(menu));
        EXPECT_FALSE(choose_menu_item("Move right"));
        EXPECT_EQ(2, gtk_notebook_get_current_page(find_notebook(title)));
        return choose_menu_item("Rename");
    });
    steps.add([] { return find_window(rename_title) != nullptr && close_window(title); });
    steps.add([] {
        EXPECT_EQ(nullptr, find_window("Really close?"));
        return enter(rename_title, "Report type: (Required)", "New") && press_button(rename_title, "OK");
    });
    steps.add([&] {
        if (!gtk_widget_is_sensitive(find_window(title)))
            return false;
        EXPECT_EQ("New\n", get_label_texts(tab));
        return press_button(title, "Save template");
    });
    EXPECT_TRUE(run_editing_window(&context, path(file_name).c_str()));
    EXPECT_EQ(print("New"), read_file(file_name));
}

} // namespace
