#include "app/report_type_tab.h"

#include <array>
#include <string>

#include "app/editing_window.h"
#include "app/tab_menu_icon.h"
#include "common/gui/gtk_handles.h"
#include "tests/support/lists.h"
#include "tests/support/workspace_sandbox.h"

namespace {

const char file_name[] = "workspace/templates/a.template";
const char title[] = "Edit template - a.template";
const char rename_title[] = "Rename the report type";
const char question[] = "Do you really want to delete this entire report type?";

struct ReportTypeTabTest : WorkspaceSandboxTest {
    ReportTypeTabTest()
    {
        write_file(file_name, print({"A", "B", "C"}));
    }
    static std::string print(std::initializer_list<const char *> names)
    {
        std::string report_types;
        for (const char *name : names)
            report_types += print_report_type(name);
        return print_template("N", "", report_types);
    }

    static GtkNotebook *notebook()
    {
        return GTK_NOTEBOOK(
            find_widget(find_window(title), [](GtkWidget *widget) { return GTK_IS_NOTEBOOK(widget) != 0; }));
    }
    // The pages' names on the tabs and in the menu of pages.
    static std::string tabs()
    {
        std::string text;
        for (int number = 1; number < gtk_notebook_get_n_pages(notebook()); ++number) {
            GtkWidget *page = gtk_notebook_get_nth_page(notebook(), number);
            const std::string label = get_label_texts(gtk_notebook_get_tab_label(notebook(), page));
            text += label.substr(0, label.size() - 1);
            text += std::string("/") + gtk_notebook_get_menu_label_text(notebook(), page) + " ";
        }
        return text;
    }
    static GtkWidget *icon(int page_number)
    {
        GtkWidget *page = gtk_notebook_get_nth_page(notebook(), page_number);
        return find_widget(gtk_notebook_get_tab_label(notebook(), page),
                           [](GtkWidget *widget) { return TAB_IS_MENU_ICON(widget) != 0; });
    }
    static void add_click(Steps &steps, int page_number)
    {
        steps.add([=] {
            GtkWidget *window = find_window(title);
            if (window == nullptr || !gtk_widget_is_sensitive(window) || find_menu() != nullptr)
                return false;
            click(icon(page_number));
            return true;
        });
    }
    static void add_menu_action(Steps &steps, int page_number, const char *item)
    {
        add_click(steps, page_number);
        steps.add([=] { return choose_menu_item(item); });
    }
    static void add_tabs(Steps &steps, const char *expected)
    {
        steps.add([=] {
            EXPECT_EQ(expected, tabs());
            return true;
        });
    }
    // Does the steps and saves.
    std::string run(Steps &steps)
    {
        steps.add([] { return press_button(title, "Save template"); });
        EXPECT_TRUE(run_editing_window(&context, path(file_name).c_str()));
        return read_file(file_name);
    }
};

TEST_F(ReportTypeTabTest, RenamesTheTabThePageMenuAndTheReportType)
{
    Steps steps;
    add_menu_action(steps, 2, "Rename");
    steps.add([] { return enter(rename_title, "Report type: (Required)", "\u00d6"); });
    steps.add([] { return press_button(rename_title, "OK"); });
    add_tabs(steps, "A/A \u00d6/\u00d6 C/C ");
    EXPECT_EQ(print({"A", "\xd6", "C"}), run(steps));
}

TEST_F(ReportTypeTabTest, MovesAndErasesAsSavedThen)
{
    Steps steps;
    add_menu_action(steps, 1, "Move right");
    add_tabs(steps, "B/B A/A C/C ");
    add_menu_action(steps, 3, "Move left");
    add_tabs(steps, "B/B C/C A/A ");
    add_menu_action(steps, 1, "Erase");
    steps.add([] { return answer("Question", question, "No"); });
    add_tabs(steps, "B/B C/C A/A ");
    add_menu_action(steps, 2, "Erase");
    steps.add([] { return answer("Question", question, "Yes"); });
    add_tabs(steps, "B/B A/A ");
    EXPECT_EQ(print({"B", "A"}), run(steps));
}

TEST_F(ReportTypeTabTest, OffersNoMoveOverTheEnds)
{
    Steps steps;
    for (int number = 1; number <= 3; ++number) {
        add_click(steps, number);
        steps.add([=] {
            if (find_menu() == nullptr)
                return false;
            EXPECT_EQ(number, gtk_notebook_get_current_page(notebook()));
            EXPECT_EQ(std::string("Rename|-|") + (number == 1 ? "(Move left)|" : "Move left|") +
                          (number == 3 ? "(Move right)|" : "Move right|") + "Erase|",
                      get_menu_lines(find_menu()));
            return close_menu();
        });
    }
    EXPECT_EQ(print({"A", "B", "C"}), run(steps));
}

TEST_F(ReportTypeTabTest, OnlyALeftButtonReleasedOnTheIconOpensTheMenu)
{
    const z_ref<GtkWidget> alone = z_sink(tab_menu_icon_new());
    gtk_widget_show(alone.get());
    gtk_widget_size_allocate(alone.get(), std::array{GtkAllocation{0, 0, 11, 30}}.data());
    int count = 0;
    g_signal_connect_swapped(alone.get(), "clicked", G_CALLBACK(+[](int *clicked) { ++*clicked; }), &count);
    const struct {
        guint button;
        double x;
        double y;
        int expected;
    } cases[] = {{1, 0, 0, 1},  {1, 10.9, 29.9, 1}, {1, -0.1, 5, 0}, {1, 11, 5, 0},
                 {1, 5, 30, 0}, {1, 5, -1, 0},      {2, 5, 5, 0},    {3, 5, 5, 0}};
    for (const auto &each : cases) {
        count = 0;
        const z_gdk_event_ptr event(gdk_event_new(GDK_BUTTON_RELEASE));
        event->button.button = each.button;
        event->button.x = each.x;
        event->button.y = each.y;
        EXPECT_FALSE(GTK_WIDGET_GET_CLASS(alone.get())->button_release_event(alone.get(), &event->button));
        EXPECT_EQ(each.expected, count) << &each - cases;
    }
}

} // namespace
