#include "common/model/text_sheet.h"

#include <gtest/gtest.h>

#include "tests/support/form_text.h"

namespace {

z_text_sheet_row_ptr make_row(const char *name)
{
    return z_text_sheet_row_new(langstr_from_text(std::string("en=") + name).get());
}

// en=S{en=B(en=1 _en=a xen=b)(en=2)}{en=C}
z_text_sheet_segment_ptr make_segment()
{
    z_text_sheet_segment_ptr segment = z_text_sheet_segment_new(langstr_from_text("en=S").get());
    z_text_sheet_block_ptr block = z_text_sheet_block_new(langstr_from_text("en=B").get());
    z_text_sheet_row_ptr row = make_row("1");
    z_text_sheet_field_ptr text = z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD);
    text->text = langstr_from_text("en=a");
    z_text_sheet_row_add_field(row.get(), std::move(text));
    z_text_sheet_field_ptr box = z_text_sheet_field_new(Z_TEXT_SHEET_CHECKBOX);
    box->text = langstr_from_text("en=b");
    box->selected = true;
    z_text_sheet_row_add_field(row.get(), std::move(box));
    z_text_sheet_block_add_row(block.get(), std::move(row));
    z_text_sheet_block_add_row(block.get(), make_row("2"));
    z_text_sheet_segment_add_block(segment.get(), std::move(block));
    z_text_sheet_segment_add_block(segment.get(), z_text_sheet_block_new(langstr_from_text("en=C").get()));
    return segment;
}

TEST(TextSheetTest, CopiesContentsEvenIntoTheirOwnSource)
{
    const z_text_sheet_segment_ptr segment = make_segment();
    const z_text_sheet_segment_ptr other = z_text_sheet_segment_new(langstr_from_text("en=T").get());
    EXPECT_FALSE(z_text_sheet_segment_has_contents(other.get()));
    z_text_sheet_row_destroy(nullptr);
    z_text_sheet_segment_copy_contents(other.get(), other.get());
    z_text_sheet_segment_copy_contents(other.get(), segment.get());
    EXPECT_EQ(text_from_segment(other.get()), "en=T{en=B(en=1 _en=a xen=b)(en=2)}{en=C}");
    z_text_sheet_row_destroy(segment->blocks.get_first()->rows.get_first());
    z_text_sheet_segment_copy_contents(segment.get(), segment.get());
    EXPECT_EQ(text_from_segment(segment.get()), "en=S{en=B(en=2)}{en=C}{en=B(en=2)}{en=C}");
}

TEST(TextSheetTest, ASheetGathersSegments)
{
    const z_template_report_type_ptr type = z_template_report_type_new(nullptr);
    z_template_report_type_add_segment(type.get(), make_segment());
    const z_text_sheet_ptr sheet = z_text_sheet_new();
    EXPECT_FALSE(z_text_sheet_has_segments(sheet.get()));
    z_util_add_segments_from_template(sheet.get(), type.get());
    z_text_sheet_add_segment(sheet.get(), z_text_sheet_segment_new(langstr_from_text("en=T").get()));
    z_text_sheet_copy_segments(sheet.get(), sheet.get());

    std::string text;
    for (const z_text_sheet_segment *segment : sheet->segments)
        text += segment->header->text.get();
    EXPECT_EQ(text, "STST");
    EXPECT_FALSE(z_text_sheet_segment_has_contents(&sheet->details));
}

} // namespace
