#include "app/text_sheet_editor.h"

#include <string>

#include "common/gui/gtk_handles.h"
#include "common/model/template_io.h"
#include "tests/support/workspace_sandbox.h"

namespace {

// An editor of one form on the screen. Its elements' places are known when it has been drawn.
struct TextSheetEditorTest : WorkspaceSandboxTest {
    static constexpr int width = 300;
    static constexpr int height = 300;

    ~TextSheetEditorTest() override
    {
        gtk_widget_destroy(window);
    }

    // Shows the basic data, or the report type that these segments are in.
    void show(const std::string &blocks, const std::string &segments)
    {
        const std::string details = "<details>" + blocks + "</details>";
        const std::string file = print_template("N", details, print_report_type("R", segments));
        tmpl = z_template_io_read_from_file(write_file("x.template", file).c_str());
        z_template_report_type *report_type = segments.empty() ? nullptr : tmpl->report_types.get_first();
        editor = text_sheet_editor_new_for_report_type(&context, tmpl.get(), report_type);
        g_object_set(editor, "vadjustment", vadjustment.get(), nullptr);
        window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        gtk_window_set_default_size(GTK_WINDOW(window), width, height);
        gtk_container_add(GTK_CONTAINER(window), editor);
        gtk_widget_show(editor);
        z_window_stack_push_window(stack.get(), window);
        show_and_wait_for_draw(window);
    }
    z_template_ptr tmpl;
    const z_ref<GtkAdjustment> vadjustment = z_sink(gtk_adjustment_new(0, 0, 9, 1, 1, 1));
    GtkWidget *window = nullptr;
    GtkWidget *editor = nullptr;
};

TEST_F(TextSheetEditorTest, ShowsItsFormAtTheScrollPosition)
{
    std::string segments;
    for (int i = 0; i < 40; ++i)
        segments += "<segment><header lang=\"sv\">Segment " + std::to_string(i) + "</header></segment>";
    show("", segments);
    auto &list = tmpl->report_types.get_first()->segments;
    GtkAdjustment *vertical = vadjustment.get();
    EXPECT_TRUE(gdk_window_get_events(gtk_widget_get_window(editor)) & GDK_SMOOTH_SCROLL_MASK)
        << "a touchpad may send nothing else";
    EXPECT_EQ(height, gtk_adjustment_get_page_size(vertical));
    const int top = list.get_first()->rect.y;
    gtk_adjustment_set_value(vertical, 123.9);
    EXPECT_EQ(top, list.get_first()->rect.y) << "a click hits what is still on the screen";
    (void)Picture(editor);
    EXPECT_EQ(top - 123, list.get_first()->rect.y);

    // One that shrinks is pulled down in the same frame.
    gtk_adjustment_set_value(vertical, 1e9);
    z_text_sheet_segment_destroy(list.get_last());
    (void)Picture(editor);
    const z_rectangle last = list.get_last()->rect;
    EXPECT_GT(last.y, height / 2);
    EXPECT_LE(last.y + last.height, height);
    EXPECT_EQ(gtk_adjustment_get_upper(vertical) - height, gtk_adjustment_get_value(vertical));
    list.destroy_all();
    (void)Picture(editor);
    EXPECT_EQ(0, gtk_adjustment_get_value(vertical));
    EXPECT_EQ(height, gtk_adjustment_get_upper(vertical));
}

TEST_F(TextSheetEditorTest, ARowStandsOutWhileItsMenuIsOpen)
{
    std::string rows;
    for (int i = 0; i < 30; ++i)
        rows += "<row><header lang='sv'>A</header></row>";
    show("<block>" + rows + "</block>", "");
    gtk_adjustment_set_value(vadjustment.get(), 100);
    (void)Picture(editor);
    z_list<z_text_sheet_row> &list = tmpl->details.blocks.get_first()->rows;
    z_text_sheet_row *row = z_link_get_next(z_link_get_next(list.get_first()));
    while (row->rect.y < 0)
        row = z_link_get_next(row);
    const z_rectangle rect = row->rect;
    const auto get_rgb = [&] {
        return Picture(editor).get_rgb(rect.x + rect.width - 2, rect.y + rect.height - 2);
    };
    const z_text_sheet_row *next = z_link_get_next(row);
    Steps steps;
    for (const bool is_chosen : {false, true}) {
        EXPECT_EQ(0xffffffu, get_rgb());
        steps.add_in_menu([&, is_chosen](GtkWidget *menu) {
            EXPECT_EQ(0xe0e0e0u, get_rgb());
            if (is_chosen)
                return choose_menu_item("Delete row");
            gtk_menu_shell_deactivate(GTK_MENU_SHELL(menu));
            return true;
        });
        if (is_chosen)
            steps.add([] { return press_button("Question", "Yes"); });
        click_at(editor, rect.x + 1, rect.y + 1);
    }
    EXPECT_EQ(0xffffffu, get_rgb());
    EXPECT_EQ(rect.y, next->rect.y) << "The one under the pointer has gone.";

    // Nothing else opens a menu, which would stay open until the steps' time is over.
    click_at(editor, rect.x + 1, rect.y + 1, GDK_BUTTON_SECONDARY);
    const z_gdk_event_ptr event(gdk_event_new(GDK_2BUTTON_PRESS));
    event->button.window = z_share(gtk_widget_get_window(editor)).release();
    event->button.button = GDK_BUTTON_PRIMARY;
    event->button.x = rect.x + 1;
    event->button.y = rect.y + 1;
    gtk_widget_event(editor, event.get());
}

} // namespace
