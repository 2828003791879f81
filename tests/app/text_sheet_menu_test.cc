// The form's menus as a person meets them: by clicks on the drawn form.

#include <algorithm>
#include <string>
#include <vector>

#include "app/text_sheet_action.h"
#include "app/text_sheet_editor.h"
#include "common/gui/gfx_form.h"
#include "common/gui/gtk_handles.h"
#include "common/gui/gui_font.h"
#include "common/model/template.h"
#include "tests/support/lists.h"
#include "tests/support/template_text.h"
#include "tests/support/workspace_sandbox.h"

namespace {

// An element of the form by its indices; none at all for the label "Add segments".
struct Part {
    int segment = -1;
    int block = -1;
    int row = -1;
    bool operator==(const Part &) const = default;
};

using Parts = std::vector<std::pair<Part, z_rectangle>>; // In the order in which a click looks for them.

void PrintTo(const Part &part, std::ostream *stream)
{
    *stream << part.segment << ' ' << part.block << ' ' << part.row;
}

template <typename T>
T *get_at(const z_list<T> &list, int index)
{
    T *item = list.get_first();
    while (index-- > 0)
        item = z_link_get_next(item);
    return item;
}

// What a click meets: the target that the menu's action was given.
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
    template <typename T>
    static int index_of(const T *element)
    {
        return element == nullptr || !z_link_is_linked(element) ? -1 : z_link_get_index(element);
    }
    static Part get_part()
    {
        const bool is_details = target.segment == &target.tmpl->details;
        return {is_details ? 0 : index_of(target.segment), index_of(target.block), index_of(target.row)};
    }
};

struct TextSheetMenuTest : WorkspaceSandboxTest {
    TextSheetMenuTest() : dialogs(z_text_sheet_action_dialogs) {}
    ~TextSheetMenuTest() override
    {
        z_text_sheet_action_dialogs = dialogs;
        close();
    }

    struct Block {
        const char *header;
        std::vector<const char *> rows;
    };
    static void fill(z_text_sheet_segment *segment, const std::vector<Block> &blocks)
    {
        for (const Block &block : blocks) {
            z_text_sheet_segment_add_block(segment,
                                           z_text_sheet_block_new(langstr_from_text(block.header).get()));
            for (const char *header : block.rows) {
                z_text_sheet_block *last = segment->blocks.get_last();
                z_text_sheet_block_add_row(last, z_text_sheet_row_new(langstr_from_text(header).get()));
                z_text_sheet_row_add_field(last->rows.get_last(),
                                           z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
            }
        }
    }
    void add_segment(const char *header, const std::vector<Block> &blocks)
    {
        z_template_report_type_add_segment(report_type,
                                           z_text_sheet_segment_new(langstr_from_text(header).get()));
        fill(report_type->segments.get_last(), blocks);
    }
    void start()
    {
        close();
        tmpl = z_template_new();
        z_template_add_report_type(tmpl.get(), z_template_report_type_new(nullptr));
        report_type = tmpl->report_types.get_first();
    }
    void show(bool is_basic_data, int width = 400, int height = 480)
    {
        close();
        window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        editor = is_basic_data ? text_sheet_editor_new_for_basic_data(&context, tmpl.get())
                               : text_sheet_editor_new_for_report_type(&context, tmpl.get(), report_type);
        vadjustment = z_sink(gtk_adjustment_new(0, 0, 0, 0, 0, 0));
        g_object_set(editor, "vadjustment", vadjustment.get(), nullptr);
        gtk_window_set_default_size(GTK_WINDOW(window), width, height);
        gtk_container_add(GTK_CONTAINER(window), editor);
        gtk_widget_show(editor);
        z_window_stack_push_window(stack.get(), window);
        show_and_wait_for_draw(window);
        form.tmpl = tmpl.get();
        form.report_type = is_basic_data ? nullptr : report_type;
    }
    void close()
    {
        if (window != nullptr)
            gtk_widget_destroy(window);
        window = nullptr;
    }

    // What the editor has last drawn. Only the label's place is not in the model; the same form, drawn by
    // itself, has it at the same place.
    Parts list_parts(int scroll = 0, double scale = 1.0)
    {
        const z_cairo_surface_ptr surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, 1, 1));
        cairo_surface_set_device_scale(surface.get(), scale, scale);
        const z_cairo_ptr cr(cairo_create(surface.get()));
        const z_font_description_ptr font = z_gui_get_font_description(editor, z_font_style::normal, 12.0);
        z_gfx_text_sheet_context ctx;
        ctx.settings = context.settings;
        ctx.base_font = font.get();
        ctx.font_resolution = gdk_screen_get_resolution(gtk_widget_get_screen(editor));
        ctx.cr = cr.get();
        ctx.width = gtk_widget_get_allocated_width(editor);
        ctx.editing = ctx.record_rects = true;
        z_gfx_form_draw(&ctx, &form, scroll);
        Parts parts;
        if (form.report_type == nullptr) {
            list_parts(&form.tmpl->details, 0, &parts);
            return parts;
        }
        parts.emplace_back(Part{}, form.add_segments_rect);
        int index = 0;
        for (const z_text_sheet_segment *segment : report_type->segments)
            list_parts(segment, index++, &parts);
        return parts;
    }
    static void list_parts(const z_text_sheet_segment *segment, int index, Parts *parts)
    {
        int block_index = 0;
        for (const z_text_sheet_block *block : segment->blocks) {
            int row_index = 0;
            for (const z_text_sheet_row *row : block->rows)
                parts->emplace_back(Part{index, block_index, row_index++}, row->rect);
            parts->emplace_back(Part{index, block_index++, -1}, block->rect);
        }
        parts->emplace_back(Part{index, -1, -1}, segment->rect);
    }
    // Returns how far it could be scrolled.
    int resize_and_scroll(int width, int height, int scroll)
    {
        gtk_window_resize(GTK_WINDOW(window), width, height);
        EXPECT_TRUE(run_until([&] { return gtk_widget_get_allocated_width(editor) == width; }));
        (void)Picture(editor); // Finds the height of the form.
        gtk_adjustment_set_value(vadjustment.get(), scroll);
        return static_cast<int>(gtk_adjustment_get_value(vadjustment.get()));
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
        const auto meant = std::find_if(parts.begin(), parts.end(), [x, y](const auto &part) {
            return z_rectangle_test(&part.second, x, y);
        });
        Met::menu_count = 0;
        click_at(editor, x, y);
        EXPECT_EQ(meant != parts.end(), Met::menu_count == 1) << x << ' ' << y;
        if (meant != parts.end() && Met::menu_count == 1) {
            EXPECT_EQ(meant->first, Met::get_part()) << x << ' ' << y;
        }
        return meant != parts.end();
    }
    // Whatever stands out on the paper belongs to a part, up to a line around it, and every part shows.
    void expect_ink_within(const Parts &parts) const
    {
        const Picture picture(editor);
        std::vector<int> inked(parts.size());
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                if ((picture.get_rgb(x, y) & 0xff) > 0xb0)
                    continue;
                bool is_within = false;
                for (size_t index = 0; index < parts.size(); ++index) {
                    const z_rectangle &rect = parts[index].second;
                    const z_rectangle around = {rect.x - 1, rect.y - 1, rect.width + 2, rect.height + 2};
                    inked[index] += z_rectangle_test(&rect, x, y);
                    is_within |= z_rectangle_test(&around, x, y);
                }
                ASSERT_TRUE(is_within) << "ink at " << x << ' ' << y;
            }
        for (size_t index = 0; index < parts.size(); ++index) {
            const z_rectangle &rect = parts[index].second;
            if (rect.y >= 0 && rect.y + rect.height < picture.height()) {
                EXPECT_GT(inked[index], 0) << "part " << index << " is not to be seen";
            }
        }
    }
    void click_part(const Part &part)
    {
        for (const auto &[listed, rect] : list_parts())
            if (listed == part)
                return click_at(editor, rect.x + rect.width / 2, rect.y + rect.height / 2);
        ADD_FAILURE() << "no such part";
    }
    [[nodiscard]] uint32_t get_row_rgb(const z_text_sheet_row *row) const
    {
        return Picture(editor).get_rgb(row->rect.x + row->rect.width - 2, row->rect.y + row->rect.height - 2);
    }

    const z_text_sheet_dialogs dialogs;
    z_template_ptr tmpl;
    z_template_report_type *report_type = nullptr;
    z_gfx_form form;
    GtkWidget *window = nullptr;
    GtkWidget *editor = nullptr;
    z_ref<GtkAdjustment> vadjustment;
};

const char row_end[] = "Delete row|-|Add row above|Add row below|";
const char block_begin[] = "Add row|-|Read one row from a template|-|";
const char block_end[] = "Delete block|-|Add block above|Add block below|";
const char segment_begin[] = "Add block|-|Read one block from a template|";
const char segment_end[] = "Delete segment|-|Add segment above|Add segment below|";

TEST_F(TextSheetMenuTest, EveryPartHasItsMenu)
{
    start();
    const std::vector<Block> blocks = {{"sv=B", {"sv=A", "sv=B", "sv=C"}}, {"", {"sv=D"}}, {"sv=E", {}}};
    fill(&tmpl->details, blocks);
    add_segment("", {});
    add_segment("sv=S", blocks);
    add_segment("sv=S", {});
    const std::string row = "Edit row header|Set up fields|-|";
    const std::string titled_block = "Edit block header|Delete block header|";
    const std::string titled_segment = "Edit segment header|Delete segment header|";
    const struct {
        bool is_basic_data;
        Part part;
        std::string lines;
    } cases[] = {
        {true, {0}, segment_begin + std::string("Read all basic data blocks from a template|")},
        {true, {0, 0}, titled_block + block_begin + "(Move block up)|Move block down|" + block_end},
        {true, {0, 0, 0}, row + "(Move row up)|Move row down|" + row_end},
        {false,
         {},
         "Add segment|-|Read one segment from a template|Read all segments of one report type from a "
         "template|"},
        {false,
         {0},
         std::string("Set segment header|") + segment_begin + "-|(Move segment up)|Move segment down|" +
             segment_end},
        {false, {1}, titled_segment + segment_begin + "-|Move segment up|Move segment down|" + segment_end},
        {false, {2}, titled_segment + segment_begin + "-|Move segment up|(Move segment down)|" + segment_end},
        {false, {1, 0}, titled_block + block_begin + "(Move block up)|Move block down|" + block_end},
        {false,
         {1, 1},
         std::string("Set block header|") + block_begin + "Move block up|Move block down|" + block_end},
        {false, {1, 2}, titled_block + block_begin + "Move block up|(Move block down)|" + block_end},
        {false, {1, 0, 0}, row + "(Move row up)|Move row down|" + row_end},
        {false, {1, 0, 1}, row + "Move row up|Move row down|" + row_end},
        {false, {1, 0, 2}, row + "Move row up|(Move row down)|" + row_end},
        {false, {1, 1, 0}, row + "(Move row up)|(Move row down)|" + row_end},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        if (window == nullptr || each.is_basic_data != (form.report_type == nullptr))
            show(each.is_basic_data);
        Steps steps;
        steps.add([&] {
            if (find_menu() == nullptr)
                return false;
            EXPECT_EQ(each.lines, get_menu_lines(find_menu()));
            return close_menu();
        });
        click_part(each.part);
    }
}

TEST_F(TextSheetMenuTest, AClickOpensTheMenuOfWhatIsDrawnThereAndNoneBeside)
{
    start();
    fill(&tmpl->details, {{"", {"sv=A"}}, {"sv=B", {}}});
    add_segment("sv=A header of several lines", {});
    add_segment("", {{"", {}}, {"sv=B", {"sv=A", "sv=A header that is long"}}});
    z_text_sheet_field_destroy(
        get_at(get_at(report_type->segments, 1)->blocks, 1)->rows.get_first()->fields.get_first());
    z_text_sheet_action_dialogs.edit_header = Met::note;
    const z_source watch(g_timeout_add(2, Met::tick, nullptr));
    const struct {
        bool is_basic_data;
        int width;
        int height;
        int scroll;
        double scale;
    } cases[] = {{false, 420, 400, 0, 1.0},
                 {false, 130, 600, 50, 1.0},
                 {false, 300, 250, 31, 2.0},
                 {true, 320, 300, 0, 1.0}};
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        show(each.is_basic_data, 200, 200);
        const int scroll = resize_and_scroll(each.width, each.height, each.scroll);
        EXPECT_EQ(each.scroll > 0, scroll > 0);
        const Parts parts = list_parts(scroll, each.scale);
        int menu_count = 0;
        for (const auto &[part, rect] : parts) {
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
        if (each.scale == 1.0)
            expect_ink_within(parts);
    }
}

TEST_F(TextSheetMenuTest, OnlyTheLeftButtonsPlainPressOpensAMenu)
{
    start();
    show(false);
    z_text_sheet_action_dialogs.edit_header = Met::note;
    const z_source watch(g_timeout_add(2, Met::tick, nullptr));
    Met::menu_count = 0;
    const z_rectangle rect = list_parts().front().second;
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
    start();
    add_segment("", {{"", {"sv=A", "sv=B"}}});
    show(false);
    const z_text_sheet_row *row = report_type->segments.get_first()->blocks.get_first()->rows.get_last();
    for (const bool is_chosen : {false, true}) {
        Steps steps;
        steps.add([&] {
            if (find_menu() == nullptr)
                return false;
            EXPECT_EQ(0xe0e0e0u, get_row_rgb(row));
            return is_chosen ? choose_menu_item("Delete row") : close_menu();
        });
        if (is_chosen)
            steps.add([] { return press_button("Question", "Yes"); });
        click_part({0, 0, 1});
        row = report_type->segments.get_first()->blocks.get_first()->rows.get_last();
        EXPECT_EQ(0xffffffu, get_row_rgb(row));
    }
    const ForeignGrab grab;
    click_part({0, 0, 0});
    EXPECT_EQ(0xffffffu, get_row_rgb(row));
}

// What is done in the windows that a menu's entry opens.
using Doings = std::vector<std::function<bool()>>;

Doings enter_header(const char *label, const char *text, const char *button = "OK")
{
    static const char title[] = "Enter multilingual text";
    return {[=] { return enter(title, label, text); }, [=] { return press_button(title, button); }};
}

Doings give_nothing(const char *label)
{
    Doings doings = enter_header(label, " ");
    doings.push_back([] { return answer("Message", "You haven't entered anything.", "OK"); });
    doings.push_back([] { return press_button("Enter multilingual text", "Cancel"); });
    return doings;
}

Doings say(const char *button, const char *question)
{
    return {[=] { return answer("Question", question, button); }};
}

Doings press(const char *title, std::initializer_list<const char *> buttons)
{
    Doings doings;
    for (const char *button : buttons)
        doings.push_back([=] { return press_button(title, button); });
    return doings;
}

Doings choose(std::initializer_list<const char *> kinds)
{
    Doings doings;
    for (const char *kind : kinds)
        doings.push_back([title = std::string("Choose ") + kind] { return choose_line(title, 0); });
    return doings;
}

TEST_F(TextSheetMenuTest, EveryEntryDoesWhatItSays)
{
    const auto source_block = [](const std::string &block, const std::string &row_header) {
        return "<block><header lang=\"sv\">" + block + "</header><row><header lang=\"sv\">" + row_header +
               "</header></row></block>";
    };
    write_file("workspace/templates/x.template",
               print_template("X", "<details>" + source_block("D", "E") + "</details>",
                              print_report_type("R", "<segment><header lang=\"sv\">X</header>" +
                                                         source_block("Y", "Z") + "</segment>")));
    const char row[] = "Row header: (Required)";
    const char block[] = "Block header:";
    const char segment[] = "Segment header:";
    const char del_row[] = "Do you really want to delete this row?";
    const char del_block[] = "Do you really want to delete this entire block?";
    const char del_block_header[] = "Do you really want to delete the block header?";
    const char del_segment[] = "Do you really want to delete this entire segment?";
    const char del_segment_header[] = "Do you really want to delete the segment header?";
    const std::string b = "\n BLOCK sv=B\n  ROW sv=A __\n  ROW sv=C __";
    const std::string s = "\nSEGMENT sv=S" + b + "\n BLOCK ";
    const std::string last_segment = "BLOCK \nSEGMENT ";
    const std::string x = "\nSEGMENT sv=X\n BLOCK sv=Y\n  ROW sv=Z";
    struct Case {
        Part part;
        const char *item;
        Doings doings;
        std::string before = ""; // What becomes something else; nothing where all stays.
        std::string after = "";
    };
    const Case report_type_cases[] = {
        {{0, 0, 1}, "Edit row header", enter_header(row, "N"), "sv=C", "sv=N"},
        {{0, 0, 1}, "Edit row header", enter_header(row, "N", "Cancel")},
        {{0, 0, 1}, "Edit row header", give_nothing(row)},
        {{0, 0, 1}, "Set up fields", press("Set up fields", {"Add text field", "OK"}), "C __", "C __ __"},
        {{0, 0, 1}, "Set up fields", press("Set up fields", {"Add text field", "Cancel"})},
        {{0, 0, 1}, "Move row up", {}, "A __\n  ROW sv=C", "C __\n  ROW sv=A"},
        {{0, 0, 0}, "Move row down", {}, "A __\n  ROW sv=C", "C __\n  ROW sv=A"},
        {{0, 0, 1}, "Delete row", say("Yes", del_row), "\n  ROW sv=C __", ""},
        {{0, 0, 1}, "Delete row", say("No", del_row)},
        {{0, 0, 1}, "Add row above", enter_header(row, "N"), "\n  ROW sv=C", "\n  ROW sv=N __\n  ROW sv=C"},
        {{0, 0, 0}, "Add row below", enter_header(row, "N"), "\n  ROW sv=C", "\n  ROW sv=N __\n  ROW sv=C"},
        {{0, 0, 0}, "Add row above", give_nothing(row)},
        {{0, 0}, "Edit block header", enter_header(block, "N"), "sv=B", "sv=N"},
        {{0, 0}, "Edit block header", enter_header(block, ""), "sv=B", ""},
        {{0, 0}, "Edit block header", enter_header(block, "N", "Cancel")},
        {{0, 0}, "Delete block header", say("Yes", del_block_header), "sv=B", ""},
        {{0, 0}, "Delete block header", say("No", del_block_header)},
        {{0, 1}, "Set block header", enter_header(block, "N"), last_segment, "BLOCK sv=N\nSEGMENT "},
        {{0, 0}, "Add row", enter_header(row, "N"), "C __", "C __\n  ROW sv=N __"},
        {{0, 0}, "Add row", enter_header(row, "N", "Cancel")},
        {{0, 0}, "Read one row from a template", choose({"template", "row"}), "C __", "C __\n  ROW sv=Z"},
        {{0, 0}, "Read one row from a template", press("Choose template", {"Cancel"})},
        {{0, 1}, "Move block up", {}, b + "\n BLOCK ", "\n BLOCK " + b},
        {{0, 0}, "Move block down", {}, b + "\n BLOCK ", "\n BLOCK " + b},
        {{0, 0}, "Delete block", say("Yes", del_block), b, ""},
        {{0, 0}, "Delete block", say("No", del_block)},
        {{0, 0}, "Add block above", enter_header(block, ""), b, "\n BLOCK " + b},
        {{0, 0}, "Add block below", enter_header(block, "N"), b, b + "\n BLOCK sv=N"},
        {{0, 0}, "Add block below", enter_header(block, "N", "Cancel")},
        {{0}, "Edit segment header", enter_header(segment, "N"), "sv=S", "sv=N"},
        {{0}, "Edit segment header", enter_header(segment, ""), "sv=S", ""},
        {{0}, "Delete segment header", say("Yes", del_segment_header), "sv=S", ""},
        {{0}, "Delete segment header", say("No", del_segment_header)},
        {{1}, "Set segment header", enter_header(segment, "N"), last_segment, last_segment + "sv=N"},
        {{1}, "Add block", enter_header(block, "N"), last_segment, last_segment + "\n BLOCK sv=N"},
        {{1},
         "Read one block from a template",
         choose({"template", "block"}),
         last_segment,
         last_segment + "\n BLOCK sv=Y\n  ROW sv=Z"},
        {{1}, "Move segment up", {}, s + "\nSEGMENT ", "\nSEGMENT " + s},
        {{0}, "Move segment down", {}, s + "\nSEGMENT ", "\nSEGMENT " + s},
        {{0}, "Delete segment", say("Yes", del_segment), s, ""},
        {{0}, "Delete segment", say("No", del_segment)},
        {{0}, "Add segment above", enter_header(segment, "N"), s, "\nSEGMENT sv=N" + s},
        {{0}, "Add segment below", enter_header(segment, ""), s, s + "\nSEGMENT "},
        {{}, "Add segment", enter_header(segment, "N"), last_segment, last_segment + "\nSEGMENT sv=N"},
        {{}, "Add segment", enter_header(segment, "N", "Cancel")},
        {{},
         "Read one segment from a template",
         choose({"template", "segment"}),
         last_segment,
         last_segment + x},
        {{},
         "Read all segments of one report type from a template",
         choose({"template", "report type"}),
         last_segment,
         last_segment + x},
    };
    const Case basic_data_cases[] = {
        {{0}, "Add block", enter_header(block, "N"), "BLOCK \n", "BLOCK \n BLOCK sv=N\n"},
        {{0},
         "Read one block from a template",
         choose({"template", "block"}),
         "BLOCK \n",
         "BLOCK \n BLOCK sv=D\n  ROW sv=E\n"},
        {{0},
         "Read all basic data blocks from a template",
         choose({"template"}),
         "BLOCK \n",
         "BLOCK \n BLOCK sv=D\n  ROW sv=E\n"},
        {{0, 0}, "Read one row from a template", choose({"template", "row"}), "C __", "C __\n  ROW sv=E"},
    };
    const std::vector<Block> blocks = {{"sv=B", {"sv=A", "sv=C"}}, {"", {}}};
    const auto run = [&](const Case &each) {
        SCOPED_TRACE(testing::PrintToString(each.part) + each.item);
        tmpl->details.blocks.destroy_all();
        report_type->segments.destroy_all();
        if (form.report_type == nullptr) {
            fill(&tmpl->details, blocks);
        } else {
            add_segment("sv=S", blocks);
            add_segment("", {});
        }
        std::string expected = text_from_template(tmpl.get());
        expected.replace(expected.find(each.before), each.before.size(), each.after);
        Steps steps;
        steps.add([&] { return choose_menu_item(each.item); });
        for (const auto &doing : each.doings)
            steps.add(doing);
        click_part(each.part);
        EXPECT_EQ(expected, text_from_template(tmpl.get()));
    };
    start();
    show(false);
    std::for_each(std::begin(report_type_cases), std::end(report_type_cases), run);
    show(true);
    std::for_each(std::begin(basic_data_cases), std::end(basic_data_cases), run);
}

} // namespace
