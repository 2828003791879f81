#include "common/gui/gfx_form.h"

#include "common/gui/gfx.h"
#include "common/gui/gfx_text_sheet.h"
#include "common/model/template.h"

static constexpr int32_t top_margin = 25;

static int32_t draw_basic_data(const z_gfx_text_sheet_context *ctx, int32_t y, const z_gfx_form *form)
{
    z_text_sheet_segment *details = &form->tmpl->details;
    const auto icon = ctx->editing ? z_gfx_header_icon::present : z_gfx_header_icon::absent;
    y = z_gfx_text_sheet_draw_large_header(ctx, y, "Basic data", icon, &details->rect);
    return z_gfx_text_sheet_draw_segment(ctx, y + 25, details, z_gfx_untitled::hidden,
                                         z_gfx_placeholder::plain);
}

// The first segment's header stands on the label's line.
static int32_t draw_report_type(const z_gfx_text_sheet_context *ctx, int32_t y, const z_gfx_form *form,
                                z_rectangle *add_segments_rect)
{
    int32_t end = y;
    if (ctx->editing)
        end = z_gfx_text_sheet_draw_add_segments(ctx, y, add_segments_rect);
    else if (ctx->record_rects && add_segments_rect != nullptr)
        z_rectangle_set_empty(add_segments_rect);
    for (z_text_sheet_segment *segment : form->report_type->segments) {
        if (!z_link_is_first(segment))
            y = z_gfx_text_sheet_draw_separator(ctx, end, z_gfx_line::dotted);
        end = z_gfx_text_sheet_draw_segment(ctx, y, segment, z_gfx_untitled::shown, z_gfx_placeholder::plain);
    }
    return end;
}

static int32_t draw(const z_gfx_text_sheet_context *ctx, int32_t y, const z_gfx_form *form,
                    z_rectangle *add_segments_rect)
{
    return form->report_type != nullptr ? draw_report_type(ctx, y, form, add_segments_rect)
                                        : draw_basic_data(ctx, y, form);
}

int32_t z_gfx_form_get_height(z_gfx_text_sheet_context *ctx, const z_gfx_form *form)
{
    z_gfx_text_sheet_begin(ctx);
    z_gfx_text_sheet_context measuring = *ctx;
    measuring.measure_only = true;
    measuring.record_rects = false;
    return draw(&measuring, top_margin, form, nullptr);
}

int32_t z_gfx_form_draw(z_gfx_text_sheet_context *ctx, z_gfx_form *form, int32_t scroll)
{
    z_gfx_text_sheet_begin(ctx);
    z_gfx_set_color_rgb(ctx->cr, 0xffffff);
    cairo_paint(ctx->cr);
    z_gfx_set_color_rgb(ctx->cr, 0x000000);
    cairo_set_line_width(ctx->cr, 1.0);
    cairo_set_line_join(ctx->cr, CAIRO_LINE_JOIN_MITER);
    cairo_set_line_cap(ctx->cr, CAIRO_LINE_CAP_BUTT);
    cairo_set_dash(ctx->cr, nullptr, 0, 0.0);
    return draw(ctx, top_margin - scroll, form, &form->add_segments_rect) + scroll;
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
