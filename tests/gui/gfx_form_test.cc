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
    }
    ~GfxFormTest() override
    {
        z_resources_clean_up();
        z_gfx_text_sheet_clean_up();
    }

    z_text_sheet_segment *add_segment(const std::string &header) const
    {
        z_template_report_type_add_segment(form.report_type,
                                           z_text_sheet_segment_new(langstr_from_text(header).get()));
        return form.report_type->segments.get_last();
    }
    static z_text_sheet_block *add_block(z_text_sheet_segment *segment, const std::string &header)
    {
        z_text_sheet_segment_add_block(segment, z_text_sheet_block_new(langstr_from_text(header).get()));
        return segment->blocks.get_last();
    }
    static z_text_sheet_row *add_row(z_text_sheet_block *block, const std::string &header)
    {
        z_text_sheet_block_add_row(block, z_text_sheet_row_new(langstr_from_text(header).get()));
        return block->rows.get_last();
    }
    Drawing draw(const Scene &scene)
    {
        return draw_scene(&form, scene, &settings);
    }

    z_settings settings;
    z_template_ptr tmpl;
    z_gfx_form form;
};

// Cairo's coordinates wrap at 2^23; whatever reaches it from beyond comes back as a ghost.
TEST_F(GfxFormTest, LeavesNoGhostsOfWhatIsFarAway)
{
    z_text_sheet_block *block = add_block(add_segment("en=Segment"), "en=Block");
    z_text_sheet_row *row = add_row(block, "en=Row");
    for (int index = 0; index < 400000; ++index)
        z_text_sheet_row_add_field(row, z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
    const Drawing top = draw({.scroll = 1000});
    const int line_height = row->fields.get_last()->rect.height;
    const int lines_down = (1 << 23) / line_height + 100;
    const Drawing far_down = draw({.scroll = 1000 + lines_down * line_height});
    EXPECT_TRUE(far_down.pixels == top.pixels);

    const Drawing beyond = draw({.scroll = 1 << 24});
    EXPECT_EQ(beyond.rects[3][1] - top.rects[3][1], 1000 - (1 << 24));
    form.report_type->segments.destroy_all();
    EXPECT_TRUE(beyond.pixels == draw({.editing = false}).pixels);
}

TEST_F(GfxFormTest, KnowsItsHeightWithoutMovingAnyRectangle)
{
    z_text_sheet_block *block = add_block(add_segment("en=Segment"), "en=Block");
    for (int index = 0; index < 5; ++index)
        z_text_sheet_row_add_field(add_row(block, "en=Row"), z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
    const Drawing before = draw({.scroll = 40});
    z_text_sheet_row_destroy(block->rows.get_first());
    const Drawing asked = draw_scene(&form, {.scroll = 300}, &settings,
                                     [](z_gfx_text_sheet_context *ctx, z_gfx_form *drawn, int32_t) {
                                         return z_gfx_form_get_height(ctx, drawn);
                                     });
    EXPECT_EQ(asked.rects[3][1], before.rects[5][1]) << "the second row is the first one now";
    EXPECT_EQ(draw({}).height, asked.height);
    EXPECT_LT(asked.height, before.height);
}

// At twice the device scale a text has the same size in the form's pixels, within the rounding of its glyphs.
TEST_F(GfxFormTest, TextKeepsItsSizeAtTwiceTheScale)
{
    for (const char *font : {static_cast<const char *>(nullptr), "DejaVu Sans 10"}) {
        z_text_sheet_segment *segment = add_segment("en=A header of some length");
        const z_rectangle plain = (draw({.font = font}), segment->rect);
        const z_rectangle doubled = (draw({.scale = 2.0, .font = font}), segment->rect);
        EXPECT_NEAR(plain.height, doubled.height, 1);
        // The desktop's text size counts for fonts in points.
        const z_rectangle larger = (draw({.font = font, .font_resolution = 192.0}), segment->rect);
        EXPECT_EQ(font != nullptr, larger.height > plain.height + 5);
        form.report_type->segments.destroy_all();
    }
}

} // namespace
