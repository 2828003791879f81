#include "common/model/text_sheet.h"

#include <string>

#include <gtest/gtest.h>

#include "common/model/template.h"
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

TEST(TextSheetTest, ACloneIsDeepUnlinkedAndUndrawn)
{
    const z_text_sheet_segment_ptr segment = make_segment();
    z_text_sheet_row *row = segment->blocks.get_first()->rows.get_first();
    row->rect.width = 7;
    row->fields.get_first()->rect.width = 7;
    row->measure.width = 7;

    const z_text_sheet_segment_ptr clone = z_text_sheet_segment_clone(segment.get());
    EXPECT_EQ(text_from_segment(clone.get()), "en=S{en=B(en=1 _en=a xen=b)(en=2)}{en=C}");
    EXPECT_FALSE(z_link_is_linked(clone.get()));
    z_text_sheet_row *cloned_row = clone->blocks.get_first()->rows.get_first();
    EXPECT_EQ(cloned_row->rect.width, 0);
    EXPECT_EQ(cloned_row->fields.get_first()->rect.width, 0);
    EXPECT_EQ(cloned_row->measure.width, -1);

    z_langstr_set_translation(cloned_row->header, "en", "changed");
    z_text_sheet_block_destroy(clone->blocks.get_last());
    EXPECT_EQ(text_from_segment(clone.get()), "en=S{en=B(en=changed _en=a xen=b)(en=2)}");
    EXPECT_EQ(text_from_segment(segment.get()), "en=S{en=B(en=1 _en=a xen=b)(en=2)}{en=C}");
}

TEST(TextSheetTest, ChangingATextDropsItsMeasure)
{
    const z_text_sheet_row_ptr row = make_row("1");
    row->measure.width = 7;
    z_text_sheet_row_set_header(row.get(), langstr_from_text("en=2"));
    EXPECT_EQ(row->measure.width, -1);
    EXPECT_EQ(text_from_row(row.get()), "(en=2)");
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

TEST(TemplateTest, AReportTypeCloneIsIndependent)
{
    const z_template_ptr tmpl = z_template_new();
    z_template_add_report_type(tmpl.get(), z_template_report_type_new(langstr_from_text("en=Report").get()));
    z_template_report_type *type = tmpl->report_types.get_first();
    z_template_report_type_add_segment(type, make_segment());
    z_template_report_type_ptr clone = z_template_report_type_clone(type);
    z_text_sheet_block_destroy(clone->segments.get_first()->blocks.get_first());
    z_template_add_report_type(tmpl.get(), std::move(clone));
    EXPECT_EQ(text_from_segment(type->segments.get_first()), "en=S{en=B(en=1 _en=a xen=b)(en=2)}{en=C}");

    z_template_report_type_destroy(type);
    EXPECT_EQ(text_from_segment(tmpl->report_types.get_first()->segments.get_first()), "en=S{en=C}");
    const z_template_report_type_ptr kept = z_template_report_type_remove(tmpl->report_types.get_first());
    EXPECT_EQ(text_from_langstr(kept->name.get()), "en=Report");
    EXPECT_TRUE(tmpl->report_types.is_empty());
}

} // namespace
