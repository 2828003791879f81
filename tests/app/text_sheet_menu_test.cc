// The form's menus as a person meets them: by clicks on the drawn form.

#include <algorithm>
#include <vector>

#include "app/text_sheet_action.h"
#include "common/model/template.h"
#include "tests/app/editor_sandbox.h"
#include "tests/app/form_xml.h"

namespace {

// What can be clicked, with what it stands in; nothing at all for the label "Add segments".
struct Part {
    const z_text_sheet_segment *segment;
    const z_text_sheet_block *block;
    const z_text_sheet_row *row;
    z_rectangle rect;
};

using Parts = std::vector<Part>; // In the order in which a click looks for them.

// Chooses an entry that edits or adds from every menu that comes up, and notes what the entry would work on.
struct Met {
    static inline int menu_count;
    static inline z_text_sheet_target target;

    static gboolean tick(gpointer)
    {
        if (find_menu() != nullptr) {
            ++menu_count;
            (void)(choose_menu_item("Edit row header") || choose_menu_item("Add row") ||
                   choose_menu_item("Add block") || choose_menu_item("Add segment") || close_menu());
        }
        return G_SOURCE_CONTINUE;
    }
    static bool note(const z_text_sheet_target *met, const char *, bool, z_langstr_ptr &)
    {
        target = *met;
        return false;
    }
};

struct TextSheetMenuTest : EditorSandboxTest {
    TextSheetMenuTest() : dialogs(z_text_sheet_action_dialogs) {}
    ~TextSheetMenuTest() override
    {
        z_text_sheet_action_dialogs = dialogs;
    }

    // As they lie at this scale, or at that of the screen.
    Parts list_parts(double scale = 0.0)
    {
        if (scale == 0.0)
            scale = gtk_widget_get_scale_factor(editor);
        const z_cairo_surface_ptr surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1));
        cairo_surface_set_device_scale(surface.get(), scale, scale);
        draw_form(z_cairo_ptr(cairo_create(surface.get())).get());
        Parts parts;
        if (shown == nullptr) {
            list_parts(&tmpl->details, parts);
            return parts;
        }
        parts.push_back({nullptr, nullptr, nullptr, form.add_segments_rect});
        for (const z_text_sheet_segment *segment : shown->segments)
            list_parts(segment, parts);
        return parts;
    }
    static void list_parts(const z_text_sheet_segment *segment, Parts &parts)
    {
        for (const z_text_sheet_block *block : segment->blocks) {
            for (const z_text_sheet_row *row : block->rows)
                parts.push_back({segment, block, row, row->rect});
            parts.push_back({segment, block, nullptr, block->rect});
        }
        parts.push_back({segment, nullptr, nullptr, segment->rect});
    }
    // Draws and clicks where the editor is; the first part under the point is meant. Returns whether there
    // was one.
    bool click_and_check(const Parts &parts, int x, int y, double scale)
    {
        const int width = gtk_widget_get_allocated_width(editor);
        const int height = gtk_widget_get_allocated_height(editor);
        if (x < 0 || y < 0 || x >= width || y >= height)
            return false;
        const z_cairo_surface_ptr surface(cairo_image_surface_create(
            CAIRO_FORMAT_RGB24, static_cast<int>(width * scale), static_cast<int>(height * scale)));
        cairo_surface_set_device_scale(surface.get(), scale, scale);
        gtk_widget_draw(editor, z_cairo_ptr(cairo_create(surface.get())).get());
        const auto meant = std::find_if(parts.begin(), parts.end(), [x, y](const Part &part) {
            return z_rectangle_test(&part.rect, x, y);
        });
        Met::menu_count = 0;
        click_at(editor, x, y);
        EXPECT_EQ(meant != parts.end() ? 1 : 0, Met::menu_count) << x << ' ' << y;
        if (meant == parts.end())
            return false;
        const z_text_sheet_target &met = Met::target;
        EXPECT_TRUE(met.segment == meant->segment && met.block == meant->block && met.row == meant->row)
            << x << ' ' << y;
        return true;
    }
    void click_middle(const z_rectangle &rect)
    {
        click_at(editor, rect.x + rect.width / 2, rect.y + rect.height / 2);
    }
    [[nodiscard]] uint32_t get_rgb(const z_rectangle &rect) const
    {
        return Picture(editor).get_rgb(rect.x + rect.width - 2, rect.y + rect.height - 2);
    }

    const z_text_sheet_dialogs dialogs;
};

TEST_F(TextSheetMenuTest, AClickOpensTheMenuOfWhatIsDrawnThereAndNoneBeside)
{
    load(
        print_element("block", "", print_row("A")) + print_element("block", "B"),
        print_element("segment", "A header of several lines") +
            print_element("segment", "",
                          print_element("block", "") +
                              print_element("block", "B",
                                            print_element("row", "A") + print_row("A header that is long"))));
    z_text_sheet_action_dialogs.edit_header = Met::note;
    const z_source watch(g_timeout_add(2, Met::tick, nullptr));
    const struct {
        bool is_basic_data;
        int width;
        int height;
        int scroll;
        double scale;
    } cases[] = {{false, 420, 400, 0, 1.0},
                 {false, 130, 400, 50, 1.0},
                 {false, 300, 250, 31, 2.0},
                 {true, 320, 300, 0, 1.0}};
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        show(each.is_basic_data, each.width, each.height);
        gtk_adjustment_set_value(vadjustment.get(), each.scroll);
        EXPECT_EQ(each.scroll > 0, gtk_adjustment_get_value(vadjustment.get()) > 0);
        const Parts parts = list_parts(each.scale);
        int menu_count = 0;
        for (const Part &part : parts) {
            const z_rectangle &rect = part.rect;
            const int right = rect.x + rect.width;
            const int bottom = rect.y + rect.height;
            for (const auto &[x, y] : {std::pair(rect.x, rect.y),
                                       {right - 1, bottom - 1},
                                       {rect.x - 1, rect.y},
                                       {right, bottom - 1},
                                       {rect.x + 1, rect.y - 1},
                                       {right - 1, bottom}})
                menu_count += click_and_check(parts, x, y, each.scale);
        }
        EXPECT_GE(menu_count, 8);
    }
}

TEST_F(TextSheetMenuTest, OnlyTheLeftButtonsPlainPressOpensAMenu)
{
    load("", "");
    show(false, 400, 480);
    z_text_sheet_action_dialogs.edit_header = Met::note;
    const z_source watch(g_timeout_add(2, Met::tick, nullptr));
    Met::menu_count = 0;
    const z_rectangle rect = list_parts().front().rect;
    for (const guint button : {2u, 3u})
        click_at(editor, rect.x + 1, rect.y + 1, button);
    const z_gdk_event_ptr event(gdk_event_new(GDK_2BUTTON_PRESS));
    event->button.window = z_share(gtk_widget_get_window(editor)).release();
    event->button.button = GDK_BUTTON_PRIMARY;
    event->button.x = rect.x + 1;
    event->button.y = rect.y + 1;
    gtk_widget_event(editor, event.get());
    EXPECT_EQ(0, Met::menu_count);
}

TEST_F(TextSheetMenuTest, ARowStandsOutWhileItsMenuIsOpen)
{
    load("", print_element("segment", "", print_element("block", "", print_row("A") + print_row("B"))));
    show(false, 400, 480);
    const auto &rows = report_type->segments.get_first()->blocks.get_first()->rows;
    for (const bool is_chosen : {false, true}) {
        const z_rectangle rect = rows.get_last()->rect;
        Steps steps;
        steps.add_in_menu([&](GtkWidget *) {
            EXPECT_EQ(0xe0e0e0u, get_rgb(rect));
            return is_chosen ? choose_menu_item("Delete row") : close_menu();
        });
        if (is_chosen)
            steps.add([] { return press_button("Question", "Yes"); });
        click_middle(rect);
        EXPECT_EQ(0xffffffu, get_rgb(rows.get_last()->rect));
    }
}

} // namespace
