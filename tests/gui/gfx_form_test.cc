#include "common/gui/gfx_form.h"

#include <gtest/gtest.h>

#include "common/gui/gfx_text.h"
#include "common/gui/resources.h"
#include "common/workspace/settings.h"
#include "tests/support/form_drawing.h"
#include "tests/support/langstr_text.h"

namespace {

struct GfxFormTest : testing::Test {
    GfxFormTest() : tmpl(z_template_new())
    {
        z_template_add_report_type(tmpl.get(), z_template_report_type_new(nullptr));
        form.tmpl = tmpl.get();
        form.report_type = tmpl->report_types.get_first();
        z_settings_add_preferred_language(&settings, z_settings_language_new("en"));
        EXPECT_TRUE(z_resources_open() && z_resources_load_shared_images());
        const z_langstr_ptr header = langstr_from_text("en=A header of some length");
        z_template_report_type_add_segment(form.report_type, z_text_sheet_segment_new(header.get()));
        segment = form.report_type->segments.get_first();
    }
    ~GfxFormTest() override
    {
        z_resources_clean_up();
        z_gfx_text_sheet_clean_up();
    }
    Drawing draw(const Scene &scene)
    {
        return draw_scene(&form, scene, &settings);
    }

    z_settings settings;
    z_template_ptr tmpl;
    z_gfx_form form;
    z_text_sheet_segment *segment;
};

// Cairo's coordinates wrap at 2^23; whatever reaches it from beyond comes back as a ghost.
TEST_F(GfxFormTest, LeavesNoGhostsOfWhatIsFarAway)
{
    z_text_sheet_segment_add_block(segment, z_text_sheet_block_new(langstr_from_text("en=Block").get()));
    z_text_sheet_block *block = segment->blocks.get_last();
    z_text_sheet_block_add_row(block, z_text_sheet_row_new(langstr_from_text("en=Row").get()));
    z_text_sheet_row *row = block->rows.get_last();
    for (int index = 0; index < 400000; ++index)
        z_text_sheet_row_add_field(row, z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
    const Drawing top = draw({.scroll = 1000});
    const int line_height = row->fields.get_last()->rect.height;
    const int lines_down = (1 << 23) / line_height + 100;
    const Drawing far_down = draw({.scroll = 1000 + lines_down * line_height});
    EXPECT_TRUE(far_down.pixels == top.pixels);

    const Drawing beyond = draw({.scroll = 1 << 24});
    EXPECT_EQ(beyond.rects[3][1] - top.rects[3][1], 1000 - (1 << 24));
    // Nothing moves when only the height is asked for.
    const Drawing asked = draw_scene(&form, {.scroll = 7}, &settings,
                                     [](z_gfx_text_sheet_context *ctx, z_gfx_form *drawn, int32_t) {
                                         return z_gfx_form_get_height(ctx, drawn);
                                     });
    EXPECT_EQ(asked.height, beyond.height);
    EXPECT_TRUE(asked.rects == beyond.rects);
    form.report_type->segments.destroy_all();
    EXPECT_TRUE(beyond.pixels == draw({.editing = false}).pixels);
}

// At twice the device scale a text has the same size in the form's pixels, within the rounding of its glyphs.
// The desktop's text size counts for fonts in points.
TEST_F(GfxFormTest, TextKeepsItsSizeAtTwiceTheScale)
{
    for (const char *font : {static_cast<const char *>(nullptr), "DejaVu Sans 10"}) {
        const int height = (draw({.font = font}), segment->rect.height);
        EXPECT_NEAR(height, (draw({.scale = 2.0, .font = font}), segment->rect.height), 1);
        const int larger_height = (draw({.font = font, .font_resolution = 192.0}), segment->rect.height);
        EXPECT_EQ(font != nullptr, larger_height > height + 5);
    }
}

} // namespace
