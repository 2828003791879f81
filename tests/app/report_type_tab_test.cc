#include "app/report_type_tab.h"

#include <array>

#include "app/editing_window.h"
#include "app/tab_menu_icon.h"
#include "common/gui/gtk_handles.h"
#include "tests/support/lists.h"
#include "tests/support/workspace_sandbox.h"

namespace {

const char file_name[] = "workspace/templates/a.template";
const char title[] = "Edit template - a.template";
const char rename_title[] = "Rename the report type";

struct ReportTypeTabTest : WorkspaceSandboxTest {
    static std::string print(const char *second_name)
    {
        return print_template(
            "N", "", print_report_type("A") + print_report_type(second_name) + print_report_type("C"));
    }
    // Does the steps and saves.
    std::string run(Steps &steps)
    {
        write_file(file_name, print("B"));
        steps.add([] { return press_button(title, "Save template"); });
        EXPECT_TRUE(run_editing_window(&context, path(file_name).c_str()));
        return read_file(file_name);
    }
    static GtkWidget *icon(int page_number)
    {
        GtkWidget *page = gtk_notebook_get_nth_page(find_notebook(title), page_number);
        return find_widget(gtk_notebook_get_tab_label(find_notebook(title), page),
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
};

TEST_F(ReportTypeTabTest, OffersNoMoveOverTheEnds)
{
    Steps steps;
    for (int number = 1; number <= 3; ++number) {
        add_click(steps, number);
        steps.add_in_menu([=](GtkWidget *menu) {
            EXPECT_EQ(number, gtk_notebook_get_current_page(find_notebook(title)));
            const Picture picture(icon(number));
            int bar_lines = 0;
            for (int y = 1; y < gtk_widget_get_allocated_height(icon(number)); ++y)
                bar_lines += picture.get_rgb(5, y) != picture.get_rgb(5, 0);
            EXPECT_EQ(3, bar_lines) << "the bars are blurred";
            EXPECT_EQ(std::string("Rename|-|") + (number == 1 ? "(Move left)|" : "Move left|") +
                          (number == 3 ? "(Move right)|" : "Move right|") + "Erase|",
                      get_menu_lines(menu));
            return close_menu();
        });
    }
    EXPECT_EQ(print("B"), run(steps));
}

TEST_F(ReportTypeTabTest, AnIconThatHasLostItsPageOpensNoMenu)
{
    Steps steps;
    GtkWidget *lost = nullptr;
    steps.add_in(title, [&](GtkWidget *) {
        lost = icon(2);
        GtkWidget *tab = gtk_widget_get_parent(lost);
        const z_ref<GtkWidget> owner = z_share(tab);
        gtk_notebook_set_tab_label_text(find_notebook(title),
                                        gtk_notebook_get_nth_page(find_notebook(title), 2), "B");
        gtk_notebook_set_action_widget(find_notebook(title), tab, GTK_PACK_START);
        return true;
    });
    steps.add([&] {
        click(lost);
        return true;
    });
    steps.add([] { return dismiss_error("Report type menu error."); });
    EXPECT_EQ(print("B"), run(steps));
}

// Only the window on top can be closed, also where a menu of the one below still runs.
TEST_F(ReportTypeTabTest, TheWindowStaysOpenWhileItsMenuRunsAnother)
{
    Steps steps;
    add_click(steps, 2);
    steps.add([] { return choose_menu_item("Rename"); });
    steps.add([] { return find_window(rename_title) != nullptr && close_window(title); });
    add_pause(steps);
    steps.add([] {
        EXPECT_EQ(nullptr, find_window("Really close?"));
        return enter(rename_title, "Report type: (Required)", "New") && press_button(rename_title, "OK");
    });
    steps.add([] {
        if (!gtk_widget_is_sensitive(find_window(title)))
            return false;
        GtkWidget *page = gtk_notebook_get_nth_page(find_notebook(title), 2);
        EXPECT_EQ("New\n", get_label_texts(gtk_notebook_get_tab_label(find_notebook(title), page)));
        EXPECT_STREQ("New", gtk_notebook_get_menu_label_text(find_notebook(title), page));
        return true;
    });
    EXPECT_EQ(print("New"), run(steps));
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
