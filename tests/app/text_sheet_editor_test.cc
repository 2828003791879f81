#include "app/text_sheet_editor.h"

#include <string>

#include "common/gui/gfx_form.h"
#include "common/gui/gui_font.h"
#include "common/model/template.h"
#include "common/model/template_io.h"
#include "tests/gui/pixels.h"
#include "tests/support/workspace_sandbox.h"

namespace {

struct TextSheetEditorTest : WorkspaceSandboxTest {
    static constexpr int width = 300;
    static constexpr int height = 200;

    TextSheetEditorTest()
    {
        std::string segments;
        for (int i = 0; i < 40; ++i)
            segments += "<segment><header lang=\"sv\">Segment " + std::to_string(i) + "</header></segment>";
        tmpl = z_template_io_read_from_file(
            write_file("x.template", print_template("N",
                                                    "<details><block><row><header lang=\"sv\">Row</header>"
                                                    "<textfield/></row></block></details>",
                                                    print_report_type("R", segments)))
                .c_str());
        report_type = tmpl->report_types.get_first();
    }
    ~TextSheetEditorTest() override
    {
        if (window != nullptr)
            gtk_widget_destroy(window);
    }

    // The editor on the screen, with the adjustments of the test.
    GtkWidget *show(GtkWidget *editor)
    {
        window = gtk_window_new(GTK_WINDOW_POPUP);
        gtk_widget_set_size_request(editor, width, height);
        gtk_container_add(GTK_CONTAINER(window), editor);
        g_object_set(editor, "hadjustment", hadjustment.get(), "vadjustment", vadjustment.get(), nullptr);
        gtk_widget_show(editor);
        show_and_wait_for_draw(window);
        return editor;
    }
    GtkWidget *show_report_type()
    {
        return show(text_sheet_editor_new_for_report_type(&context, tmpl.get(), report_type));
    }
    void scroll_to(double value) const
    {
        gtk_adjustment_set_value(vadjustment.get(), value);
    }
    // What the editor shows now is the form, drawn by itself at the scroll position; returns its height.
    int expect_form(GtkWidget *editor, z_template_report_type *shown) const
    {
        const Picture picture(editor);
        const Canvas canvas(width, height);
        const z_font_description_ptr font = z_gui_get_font_description(editor, z_font_style::normal, 12.0);
        z_gfx_text_sheet_context draw_context;
        draw_context.settings = context.settings;
        draw_context.base_font = font.get();
        draw_context.font_resolution = gdk_screen_get_resolution(gtk_widget_get_screen(editor));
        draw_context.cr = canvas.cr();
        draw_context.width = width;
        draw_context.editing = true;
        z_gfx_form form;
        form.tmpl = tmpl.get();
        form.report_type = shown;
        const auto scroll = static_cast<int>(gtk_adjustment_get_value(vadjustment.get()));
        const int form_height = z_gfx_form_draw(&draw_context, &form, scroll);
        int different_count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                different_count += picture.get_rgb(x, y) != (canvas.pixel(x, y) & 0xffffffu);
        EXPECT_EQ(0, different_count);
        return form_height;
    }
    std::string describe(GtkAdjustment *adjustment) const
    {
        const z_utf8_ptr text(g_strdup_printf(
            "%g in %g..%g, steps %g %g, page %g", gtk_adjustment_get_value(adjustment),
            gtk_adjustment_get_lower(adjustment), gtk_adjustment_get_upper(adjustment),
            gtk_adjustment_get_step_increment(adjustment), gtk_adjustment_get_page_increment(adjustment),
            gtk_adjustment_get_page_size(adjustment)));
        return text.get();
    }
    static z_ref<GtkAdjustment> get_adjustment(GtkWidget *editor, const char *name)
    {
        GtkAdjustment *adjustment = nullptr;
        g_object_get(editor, name, &adjustment, nullptr);
        return z_take(adjustment);
    }
    static bool is_followed(GtkAdjustment *adjustment, GtkWidget *editor)
    {
        return g_signal_handler_find(adjustment, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, editor) != 0;
    }

    z_template_ptr tmpl;
    z_template_report_type *report_type;
    const z_ref<GtkAdjustment> hadjustment = z_sink(gtk_adjustment_new(7, 0, 9, 1, 1, 1));
    const z_ref<GtkAdjustment> vadjustment = z_sink(gtk_adjustment_new(0, 0, 9, 1, 1, 1));
    GtkWidget *window = nullptr;
};

TEST_F(TextSheetEditorTest, ShowsItsFormAtTheScrollPosition)
{
    GtkWidget *editor = show_report_type();
    const int form_height = expect_form(editor, report_type);
    EXPECT_GT(form_height, 40 * 20);
    EXPECT_EQ(describe(hadjustment.get()), "0 in 0..300, steps 30 270, page 300");
    EXPECT_EQ(describe(vadjustment.get()),
              "0 in 0.." + std::to_string(form_height) + ", steps 20 180, page 200");
    scroll_to(123.9);
    EXPECT_EQ(form_height, expect_form(editor, report_type));
    EXPECT_EQ(report_type, text_sheet_editor_get_report_type(TEXT_SHEET_EDITOR(editor)));
}

TEST_F(TextSheetEditorTest, ShowsTheBasicDataWhereThereIsRoom)
{
    GtkWidget *editor = show(text_sheet_editor_new_for_basic_data(&context, tmpl.get()));
    EXPECT_LT(expect_form(editor, nullptr), height);
    EXPECT_EQ(describe(vadjustment.get()), "0 in 0..200, steps 20 180, page 200");
    EXPECT_EQ(nullptr, text_sheet_editor_get_report_type(TEXT_SHEET_EDITOR(editor)));
}

TEST_F(TextSheetEditorTest, AFormThatShrinksIsPulledDownInTheSameFrame)
{
    GtkWidget *editor = show_report_type();
    scroll_to(1e9);
    for (int i = 0; i < 10; ++i)
        z_text_sheet_segment_destroy(report_type->segments.get_last());
    const int form_height = expect_form(editor, report_type);
    EXPECT_EQ(describe(vadjustment.get()), std::to_string(form_height - height) + " in 0.." +
                                               std::to_string(form_height) + ", steps 20 180, page 200");
    while (!report_type->segments.is_empty())
        z_text_sheet_segment_destroy(report_type->segments.get_last());
    expect_form(editor, report_type);
    EXPECT_EQ(describe(vadjustment.get()), "0 in 0..200, steps 20 180, page 200");
}

TEST_F(TextSheetEditorTest, AdjustmentsAndPoliciesCanBeReplaced)
{
    GtkWidget *editor = show_report_type();
    for (const char *name : {"hadjustment", "vadjustment"}) {
        SCOPED_TRACE(name);
        const z_ref<GtkAdjustment> old = get_adjustment(editor, name);
        g_object_set(editor, name, old.get(), nullptr);
        EXPECT_TRUE(is_followed(old.get(), editor));
        g_object_set(editor, name, nullptr, nullptr);
        EXPECT_FALSE(is_followed(old.get(), editor));
        const z_ref<GtkAdjustment> fresh = get_adjustment(editor, name);
        EXPECT_NE(old.get(), fresh.get());
        EXPECT_TRUE(is_followed(fresh.get(), editor));
        EXPECT_EQ(describe(old.get()), describe(fresh.get()));
    }
    for (const char *name : {"hscroll-policy", "vscroll-policy"}) {
        g_object_set(editor, name, GTK_SCROLL_NATURAL, nullptr);
        GtkScrollablePolicy policy;
        g_object_get(editor, name, &policy, nullptr);
        EXPECT_EQ(GTK_SCROLL_NATURAL, policy);
    }
}

TEST_F(TextSheetEditorTest, DestroyingLetsGoOfTheAdjustments)
{
    GtkWidget *editor = show_report_type();
    const z_ref<GtkWidget> held = z_share(editor);
    EXPECT_TRUE(is_followed(hadjustment.get(), editor) && is_followed(vadjustment.get(), editor));
    for (int i = 0; i < 2; ++i) {
        gtk_widget_destroy(editor);
        for (GtkAdjustment *adjustment : {hadjustment.get(), vadjustment.get()}) {
            EXPECT_FALSE(is_followed(adjustment, editor));
            EXPECT_EQ(1u, G_OBJECT(adjustment)->ref_count);
        }
    }
}

} // namespace
