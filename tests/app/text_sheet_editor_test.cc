#include "app/text_sheet_editor.h"

#include "common/model/template.h"
#include "tests/app/editor_sandbox.h"
#include "tests/gui/pixels.h"

namespace {

struct TextSheetEditorTest : EditorSandboxTest {
    static constexpr int width = 300;
    static constexpr int height = 200;

    TextSheetEditorTest()
    {
        std::string segments;
        for (int i = 0; i < 40; ++i)
            segments += "<segment><header lang=\"sv\">Segment " + std::to_string(i) + "</header></segment>";
        load("<block><row><header lang=\"sv\">Row</header><textfield/></row></block>", segments);
    }
    // The editor shows what the form is when drawn by itself; returns its height.
    int expect_form()
    {
        const Picture picture(editor);
        const Canvas canvas(width, height);
        const int form_height = draw_form(canvas.cr());
        int different_count = 0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                different_count += picture.get_rgb(x, y) != (canvas.pixel(x, y) & 0xffffffu);
        EXPECT_EQ(0, different_count);
        return form_height;
    }
    static std::string describe(GtkAdjustment *adjustment)
    {
        const z_utf8_ptr text(g_strdup_printf(
            "%g in %g..%g, steps %g %g, page %g", gtk_adjustment_get_value(adjustment),
            gtk_adjustment_get_lower(adjustment), gtk_adjustment_get_upper(adjustment),
            gtk_adjustment_get_step_increment(adjustment), gtk_adjustment_get_page_increment(adjustment),
            gtk_adjustment_get_page_size(adjustment)));
        return text.get();
    }
    void expect_scroll(int value, int upper) const
    {
        EXPECT_EQ(std::to_string(value) + " in 0.." + std::to_string(upper) + ", steps 20 180, page 200",
                  describe(vadjustment.get()));
    }
    [[nodiscard]] bool is_followed(GtkAdjustment *adjustment) const
    {
        return g_signal_handler_find(adjustment, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, editor) != 0;
    }
};

TEST_F(TextSheetEditorTest, ShowsItsFormAtTheScrollPosition)
{
    show(true, width, height);
    EXPECT_LT(expect_form(), height);
    expect_scroll(0, height);
    show(false, width, height);
    const int form_height = expect_form();
    EXPECT_GT(form_height, 40 * 20);
    EXPECT_TRUE(gdk_window_get_events(gtk_widget_get_window(editor)) & GDK_SMOOTH_SCROLL_MASK)
        << "a touchpad may send nothing else";
    EXPECT_EQ("0 in 0..300, steps 30 270, page 300", describe(hadjustment.get()));
    expect_scroll(0, form_height);
    const int top = report_type->segments.get_first()->rect.y;
    gtk_adjustment_set_value(vadjustment.get(), 123.9);
    EXPECT_EQ(top, report_type->segments.get_first()->rect.y) << "a click hits what is still on the screen";
    EXPECT_EQ(form_height, expect_form());
    EXPECT_EQ(top - 123, report_type->segments.get_first()->rect.y);
}

TEST_F(TextSheetEditorTest, AFormThatShrinksIsPulledDownInTheSameFrame)
{
    show(false, width, height);
    gtk_adjustment_set_value(vadjustment.get(), 1e9);
    for (int i = 0; i < 10; ++i)
        z_text_sheet_segment_destroy(report_type->segments.get_last());
    const int form_height = expect_form();
    expect_scroll(form_height - height, form_height);
    report_type->segments.destroy_all();
    expect_form();
    expect_scroll(0, height);
}

TEST_F(TextSheetEditorTest, DestroyingLetsGoOfTheAdjustments)
{
    show(false, width, height);
    const z_ref<GtkWidget> held = z_share(editor);
    for (int i = 0; i < 2; ++i) {
        gtk_widget_destroy(editor);
        for (GtkAdjustment *adjustment : {hadjustment.get(), vadjustment.get()}) {
            EXPECT_FALSE(is_followed(adjustment));
            EXPECT_EQ(1u, G_OBJECT(adjustment)->ref_count);
        }
    }
}

} // namespace
