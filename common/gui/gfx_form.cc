#include "common/gui/gfx_form.h"

#include "common/gui/gfx.h"
#include "common/gui/gfx_text_sheet.h"
#include "common/model/template.h"

static constexpr int32_t top_margin = 25;

static int32_t draw_basic_data_header(const z_gfx_text_sheet_context *ctx, int32_t y, z_rectangle *rect_out)
{
    const auto icon = ctx->editing ? z_gfx_header_icon::present : z_gfx_header_icon::absent;
    return z_gfx_text_sheet_draw_large_header(ctx, y, "Basic data", icon, rect_out);
}

// The walks begin where the form stands when it is not scrolled.

static int32_t place_blocks(z_gfx_text_sheet_arranging *arranging, int32_t y,
                            const z_text_sheet_segment *segment)
{
    for (z_text_sheet_block *block : segment->blocks)
        y = z_gfx_text_sheet_place_block(arranging, y, block);
    return y;
}

// The header is no part of the layout: it never changes.
static int32_t arrange_basic_data(z_gfx_text_sheet_arranging *arranging, const z_gfx_form *form)
{
    const int32_t y = draw_basic_data_header(arranging->ctx, top_margin, nullptr);
    return place_blocks(arranging, y + 25, &form->tmpl->details);
}

// The first segment's header stands on the line of the label.
static int32_t arrange_report_type(z_gfx_text_sheet_arranging *arranging, const z_gfx_form *form)
{
    if (form->report_type->segments.is_empty())
        return arranging->ctx->editing
                   ? z_gfx_text_sheet_draw_add_segments(arranging->ctx, top_margin, nullptr)
                   : top_margin;
    int32_t y = top_margin;
    for (z_text_sheet_segment *segment : form->report_type->segments) {
        const auto separator = z_link_is_first(segment) ? z_gfx_separator::absent : z_gfx_separator::above;
        y = z_gfx_text_sheet_place_segment_header(arranging, y, segment, separator);
        y = place_blocks(arranging, y, segment);
    }
    return y;
}

// Whether what is kept of the parts is of this form, shown in this way.
static bool is_layout_of(const z_gfx_form_layout &layout, const z_gfx_text_sheet_context *ctx,
                         const z_gfx_form *form)
{
    return layout.tmpl == form->tmpl && layout.report_type == form->report_type &&
           layout.generation == ctx->generation && layout.width == ctx->width &&
           layout.editing == ctx->editing;
}

// Brings the layout up to date.
static void arrange(const z_gfx_text_sheet_context *ctx, z_gfx_form *form)
{
    z_gfx_form_layout &layout = form->layout;
    const bool is_kept = is_layout_of(layout, ctx, form);
    if (is_kept && layout.list_change_count == z_link_change_count &&
        layout.placed.change_count == z_text_sheet_change_count)
        return;
    if (!is_kept)
        layout.placed.parts.clear();
    z_gfx_text_sheet_context measuring = *ctx;
    measuring.measure_only = true;
    z_gfx_text_sheet_arranging arranging = z_gfx_text_sheet_begin_arranging(&measuring, &layout.placed);
    layout.height = form->report_type != nullptr ? arrange_report_type(&arranging, form)
                                                 : arrange_basic_data(&arranging, form);
    z_gfx_text_sheet_end_arranging(&arranging);
    layout.tmpl = form->tmpl;
    layout.report_type = form->report_type;
    layout.list_change_count = z_link_change_count;
    layout.generation = ctx->generation;
    layout.width = ctx->width;
    layout.editing = ctx->editing;
}

int32_t z_gfx_form_get_height(z_gfx_text_sheet_context *ctx, z_gfx_form *form)
{
    z_gfx_text_sheet_begin(ctx);
    arrange(ctx, form);
    return form->layout.height;
}

static void prepare_paper(cairo_t *cr)
{
    z_gfx_set_color_rgb(cr, 0xffffff);
    cairo_paint(cr);
    z_gfx_set_color_rgb(cr, 0x000000);
    cairo_set_line_width(cr, 1.0);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
    cairo_set_dash(cr, nullptr, 0, 0.0);
}

int32_t z_gfx_form_draw(z_gfx_text_sheet_context *ctx, z_gfx_form *form, int32_t scroll)
{
    z_gfx_text_sheet_begin(ctx);
    arrange(ctx, form);
    prepare_paper(ctx->cr);
    if (ctx->record_rects) {
        z_gfx_text_sheet_record_layout(-scroll, &form->layout.placed);
        z_rectangle_set_empty(&form->add_segments_rect);
    }
    if (form->report_type == nullptr)
        draw_basic_data_header(ctx, top_margin - scroll, &form->tmpl->details.rect);
    else if (ctx->editing)
        z_gfx_text_sheet_draw_add_segments(ctx, top_margin - scroll, &form->add_segments_rect);
    z_gfx_text_sheet_draw_layout(ctx, -scroll, form->layout.placed);
    return form->layout.height;
}

static z_gfx_form_hit hit_segment(z_text_sheet_segment *segment, int32_t x, int32_t y)
{
    for (z_text_sheet_block *block : segment->blocks) {
        for (z_text_sheet_row *row : block->rows) {
            if (z_rectangle_test(&row->rect, x, y))
                return {z_gfx_form_part::row, segment, block, row};
        }
        if (z_rectangle_test(&block->rect, x, y))
            return {z_gfx_form_part::block, segment, block, nullptr};
    }
    if (z_rectangle_test(&segment->rect, x, y))
        return {z_gfx_form_part::segment, segment, nullptr, nullptr};
    return {};
}

z_gfx_form_hit z_gfx_form_hit_test(const z_gfx_form *form, int32_t x, int32_t y)
{
    if (form->report_type == nullptr)
        return hit_segment(&form->tmpl->details, x, y);
    if (z_rectangle_test(&form->add_segments_rect, x, y))
        return {z_gfx_form_part::add_segments, nullptr, nullptr, nullptr};
    for (z_text_sheet_segment *segment : form->report_type->segments) {
        const z_gfx_form_hit hit = hit_segment(segment, x, y);
        if (hit.part != z_gfx_form_part::none)
            return hit;
    }
    return {};
}
