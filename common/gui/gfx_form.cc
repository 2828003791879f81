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

static int32_t arrange_basic_data(const z_gfx_text_sheet_context *ctx, const z_gfx_form *form)
{
    z_text_sheet_segment *details = &form->tmpl->details;
    const int32_t y = draw_basic_data_header(ctx, top_margin, &details->rect);
    return z_gfx_text_sheet_draw_segment(ctx, y + 25, details, z_gfx_untitled::hidden,
                                         z_gfx_placeholder::plain);
}

// The first segment's header stands on the line of the label.
static int32_t arrange_report_type(const z_gfx_text_sheet_context *ctx, const z_gfx_form *form)
{
    int32_t y = top_margin;
    int32_t end = y;
    if (ctx->editing)
        end = z_gfx_text_sheet_draw_add_segments(ctx, y, nullptr);
    for (z_text_sheet_segment *segment : form->report_type->segments) {
        if (!z_link_is_first(segment))
            y = z_gfx_text_sheet_draw_separator(ctx, end, z_gfx_line::dotted);
        end = z_gfx_text_sheet_draw_segment(ctx, y, segment, z_gfx_untitled::shown, z_gfx_placeholder::plain);
    }
    return end;
}

static void arrange_anew(const z_gfx_text_sheet_context *ctx, z_gfx_form *form)
{
    z_gfx_form_layout &layout = form->layout;
    layout.placed.items.clear();
    layout.placed.rects.clear();
    layout.placed.parts.clear();
    const z_gfx_text_sheet_context measuring = z_gfx_text_sheet_begin_layout(ctx, &layout.placed);
    layout.height = form->report_type != nullptr ? arrange_report_type(&measuring, form)
                                                 : arrange_basic_data(&measuring, form);
    layout.is_recorded = false;
    layout.tmpl = form->tmpl;
    layout.report_type = form->report_type;
    layout.list_change_count = z_link_change_count;
    layout.generation = ctx->generation;
    layout.width = ctx->width;
    layout.editing = ctx->editing;
}

static bool is_layout_of(const z_gfx_form_layout &layout, const z_gfx_text_sheet_context *ctx,
                         const z_gfx_form *form)
{
    return layout.tmpl == form->tmpl && layout.report_type == form->report_type &&
           layout.list_change_count == z_link_change_count && layout.generation == ctx->generation &&
           layout.width == ctx->width && layout.editing == ctx->editing;
}

// Brings the layout up to date.
static void arrange(const z_gfx_text_sheet_context *ctx, z_gfx_form *form)
{
    z_gfx_form_layout &layout = form->layout;
    const z_text_sheet_text_changes *changes = z_text_sheet_get_text_changes();
    if (!is_layout_of(layout, ctx, form) || changes->count - layout.text_change_count > changes->last.size())
        arrange_anew(ctx, form);
    else
        for (uint64_t change = layout.text_change_count; change < changes->count; ++change)
            layout.height += z_gfx_text_sheet_rearrange_text(
                ctx, changes->last[change % changes->last.size()], &layout.placed);
    layout.is_recorded = layout.is_recorded && layout.text_change_count == changes->count;
    layout.text_change_count = changes->count;
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

static void record(z_gfx_form *form, int32_t scroll)
{
    if (form->layout.is_recorded)
        z_gfx_text_sheet_record_shift(-scroll, form->layout.placed);
    else
        z_gfx_text_sheet_record_layout(-scroll, form->layout.placed);
    form->layout.is_recorded = true;
    z_rectangle_set_empty(&form->add_segments_rect);
}

int32_t z_gfx_form_draw(z_gfx_text_sheet_context *ctx, z_gfx_form *form, int32_t scroll)
{
    z_gfx_text_sheet_begin(ctx);
    arrange(ctx, form);
    prepare_paper(ctx->cr);
    if (ctx->record_rects)
        record(form, scroll);
    if (form->report_type == nullptr)
        draw_basic_data_header(ctx, top_margin - scroll, nullptr);
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
