#include "common/gui/gfx_text_sheet.h"

#include <algorithm>

#include "common/gui/gfx.h"
#include "common/gui/gfx_text_sheet_layout.h"
#include "common/gui/resources.h"

static constexpr uint32_t black = 0x000000;
static constexpr uint32_t grey = 0xc0c0c0;
static constexpr uint32_t light_grey = 0xe0e0e0;

static constexpr int32_t margin = 25;
static constexpr int32_t min_header_width = 50;
static constexpr int32_t min_field_width = 60;

// What lies further outside the clip than this is not drawn, and lines that reach so far are cut.
static constexpr int32_t clip_border = 100;

// A form shows the fixed texts many times over; their sizes are kept here.
static z_text_sheet_measure untitled_segment_measure;
static z_text_sheet_measure untitled_block_measure;
static z_text_sheet_measure text_field_measure;
static z_text_sheet_measure click_here_measure;
static z_text_sheet_measure add_segments_measure;

static z_gfx_text model_text(z_font_style style, const z_langstr_ptr &langstr, z_text_sheet_measure *measure)
{
    return {style, langstr.get(), nullptr, measure};
}

static z_gfx_text grey_text(z_font_style style, const char *latin1, z_text_sheet_measure *measure)
{
    return {style, nullptr, latin1, measure, z_gfx_ink::grey};
}

static void draw_image(const z_gfx_text_sheet_context *ctx, const z_gfx_image *image, int32_t x, int32_t y)
{
    if (image != nullptr && z_gfx_text_sheet_is_visible(ctx, x, y, static_cast<int32_t>(image->width),
                                                        static_cast<int32_t>(image->height)))
        z_gfx_image_draw(image, ctx->cr, x, y);
}

static void record(const z_gfx_text_sheet_context *ctx, z_rectangle *rect, int32_t x, int32_t y,
                   int32_t width, int32_t height)
{
    if (!ctx->record_rects || rect == nullptr)
        return;
    if (ctx->part != nullptr)
        ctx->part->rects.push_back({rect, {x, y, width, height}});
    else
        *rect = {x, y, width, height};
}

static void note_item(const z_gfx_text_sheet_context *ctx, const z_gfx_placed_item &item)
{
    if (ctx->part != nullptr)
        ctx->part->items.push_back(item);
}

static int32_t draw_large_header(const z_gfx_text_sheet_context *ctx, int32_t y, const z_gfx_text &text,
                                 z_gfx_header_icon icon, z_rectangle *rect_out)
{
    const int32_t available = ctx->width - 2 * margin;
    const bool has_icon = icon == z_gfx_header_icon::present && ctx->menu_icon != nullptr;
    const int32_t icon_room = has_icon ? ctx->space_width + ctx->icon_width : 0;
    const z_gfx_text_size size = z_gfx_text_draw(ctx, text, margin - 1, y - 4, available - icon_room);
    if (has_icon)
        draw_image(ctx, ctx->menu_icon, ctx->space_width + size.width + margin,
                   (y - 3) + (size.height - ctx->icon_height) / 2);
    record(ctx, rect_out, margin, y - 4, available, size.height);
    return y - 8 + size.height;
}

int32_t z_gfx_text_sheet_draw_large_header(const z_gfx_text_sheet_context *ctx, int32_t y,
                                           const char *text_latin1, z_gfx_header_icon icon,
                                           z_rectangle *rect_out)
{
    z_text_sheet_measure measure;
    const z_gfx_text text{z_font_style::large_header, nullptr, text_latin1, &measure};
    return draw_large_header(ctx, y, text, icon, rect_out);
}

// Where the fields of a row flow. `line_height` is zero unless checkboxes share the current line.
struct field_flow {
    int32_t left;
    int32_t width;
    int32_t x;
    int32_t y;
    int32_t line_height = 0;
};

static void end_checkbox_line(field_flow *flow)
{
    if (flow->line_height == 0)
        return;
    flow->y += 10 + flow->line_height;
    flow->x = flow->left;
    flow->line_height = 0;
}

static void draw_checkbox(const z_gfx_text_sheet_context *ctx, z_text_sheet_field *field, field_flow *flow)
{
    const z_gfx_image *image = z_get_checkbox_icon_image(field->selected);
    const int32_t image_width = image != nullptr ? static_cast<int32_t>(image->width) : 0;
    const int32_t image_height = image != nullptr ? static_cast<int32_t>(image->height) : 0;
    const z_gfx_text label = model_text(z_font_style::normal, field->text, &field->measure);
    const z_gfx_text_size natural = z_gfx_text_get_natural_size(ctx, label);
    if (flow->left + flow->width < flow->x + image_width + ctx->space_width + natural.width)
        end_checkbox_line(flow);

    const int32_t left = flow->x - 5;
    const int32_t top = flow->y - 5;
    draw_image(ctx, image, flow->x, flow->y + (natural.height - image_height) / 2);
    flow->x += ctx->space_width + image_width;
    const z_gfx_text_size size =
        z_gfx_text_draw(ctx, label, flow->x, flow->y, flow->left + flow->width - flow->x);
    record(ctx, &field->rect, left, top, flow->x + size.width - left + 5, flow->y + size.height - top + 5);
    flow->x += size.width + 10;
    flow->line_height = std::max(flow->line_height, size.height);
}

static void draw_text_field(const z_gfx_text_sheet_context *ctx, z_text_sheet_field *field,
                            z_gfx_placeholder placeholder, field_flow *flow)
{
    end_checkbox_line(flow);
    z_gfx_text text = model_text(z_font_style::normal, field->text, &field->measure);
    if (field->text == nullptr) {
        if (!ctx->editing) {
            record(ctx, &field->rect, 0, 0, 0, 0);
            return;
        }
        text = placeholder == z_gfx_placeholder::inviting
                   ? grey_text(z_font_style::normal, "Click here to add text", &click_here_measure)
                   : grey_text(z_font_style::normal, "Text field", &text_field_measure);
    }
    const z_gfx_text_size size = z_gfx_text_draw(ctx, text, flow->x, flow->y, flow->width);
    record(ctx, &field->rect, flow->x - 5, flow->y - 5, size.width + 10, size.height + 10);
    flow->y += size.height + 10;
}

static int32_t draw_row(const z_gfx_text_sheet_context *ctx, int32_t y, z_text_sheet_row *row,
                        z_gfx_placeholder placeholder, const z_gfx_row_columns &columns)
{
    const z_gfx_text header = model_text(z_font_style::bold, row->header, &row->measure);
    const z_gfx_text_size header_size = z_gfx_text_draw(ctx, header, 36, y + 11, columns.header_width - 20);
    if (ctx->editing)
        draw_image(ctx, ctx->menu_icon, ctx->width - 36 - ctx->icon_width, y + 12);

    const int32_t left = columns.header_width + 37;
    field_flow flow{left, columns.fields_width, left, y + 11};
    for (z_text_sheet_field *field : row->fields) {
        if (field->kind == Z_TEXT_SHEET_CHECKBOX)
            draw_checkbox(ctx, field, &flow);
        else
            draw_text_field(ctx, field, placeholder, &flow);
    }
    end_checkbox_line(&flow);
    return std::max(y + 21 + header_size.height, flow.y);
}

static int32_t measure_row(const z_gfx_text_sheet_context *ctx, int32_t y, z_text_sheet_row *row,
                           z_gfx_placeholder placeholder, const z_gfx_row_columns &columns)
{
    z_gfx_text_sheet_context measuring = *ctx;
    measuring.measure_only = true;
    return draw_row(&measuring, y, row, placeholder, columns);
}

// What of a row's box can reach into the clip, so that no coordinate leaves Cairo's range.
struct vertical_span {
    int32_t top;
    int32_t bottom;
};

static vertical_span cut_to_clip(const z_gfx_text_sheet_context *ctx, const z_rectangle &box)
{
    const z_rectangle &clip = ctx->clip;
    return {std::max(box.y, clip.y - clip_border),
            std::min(box.y + box.height, clip.y + clip.height + clip_border)};
}

static void highlight_row(const z_gfx_text_sheet_context *ctx, const z_rectangle &box)
{
    const vertical_span span = cut_to_clip(ctx, box);
    z_gfx_set_color_rgb(ctx->cr, light_grey);
    cairo_rectangle(ctx->cr, box.x, span.top, box.width, span.bottom - span.top);
    cairo_fill(ctx->cr);
    z_gfx_set_color_rgb(ctx->cr, black);
}

static void outline_row(const z_gfx_text_sheet_context *ctx, const z_rectangle &box, int32_t header_width)
{
    const vertical_span span = cut_to_clip(ctx, box);
    cairo_rectangle(ctx->cr, box.x - 0.5, span.top - 0.5, box.width + 1, span.bottom - span.top + 1);
    cairo_stroke(ctx->cr);
    cairo_move_to(ctx->cr, box.x + header_width + 0.5, span.top);
    cairo_rel_line_to(ctx->cr, 0.0, span.bottom - span.top);
    cairo_stroke(ctx->cr);
}

// Returns the bottom of the row's box, the top of the next one's.
int32_t z_gfx_text_sheet_draw_row(const z_gfx_text_sheet_context *ctx, int32_t y, z_text_sheet_row *row,
                                  z_gfx_placeholder placeholder, const z_gfx_row_columns &columns)
{
    z_rectangle box{margin + 1, y + 1, ctx->width - 2 * margin - 2, 0};
    if (row == ctx->highlighted_row && !ctx->measure_only) {
        box.height = measure_row(ctx, y, row, placeholder, columns) - box.y;
        if (z_gfx_text_sheet_is_visible(ctx, ctx->clip.x, box.y, 1, box.height))
            highlight_row(ctx, box);
    }
    const int32_t end = draw_row(ctx, y, row, placeholder, columns);
    box.height = end - box.y;
    if (z_gfx_text_sheet_is_visible(ctx, ctx->clip.x, box.y, 1, box.height))
        outline_row(ctx, box, columns.header_width);
    record(ctx, &row->rect, box.x, box.y, box.width, box.height);
    note_item(ctx, {.kind = z_gfx_item_kind::row,
                    .y = y,
                    .end = end,
                    .element = row,
                    .columns = columns,
                    .placeholder = placeholder});
    return end;
}

// The widest header decides, within limits; so one header can change the wrapping of the whole block.
static z_gfx_row_columns get_columns(const z_gfx_text_sheet_context *ctx, z_text_sheet_block *block)
{
    int32_t widest = 0;
    for (z_text_sheet_row *row : block->rows) {
        const z_gfx_text header = model_text(z_font_style::bold, row->header, &row->measure);
        widest = std::max(widest, z_gfx_text_get_natural_size(ctx, header).width);
    }
    const int32_t available = ctx->width - 2 * margin;
    const int32_t header_width = std::max(std::min(widest + 20, available / 3), min_header_width);
    const int32_t fields_room = std::max(available - header_width - 3, ctx->icon_width + min_field_width);
    const int32_t menu_room = ctx->editing ? ctx->icon_width + 10 : 0;
    return {header_width, fields_room - 20 - menu_room};
}

static int32_t draw_block_header(const z_gfx_text_sheet_context *ctx, int32_t y, z_text_sheet_block *block)
{
    if (block->header == nullptr && !ctx->editing) {
        record(ctx, &block->rect, 0, 0, 0, 0);
        return y;
    }
    const z_gfx_text text = block->header != nullptr
                                ? model_text(z_font_style::bold, block->header, &block->measure)
                                : grey_text(z_font_style::bold, "Untitled block", &untitled_block_measure);
    const int32_t available = ctx->width - 2 * margin;
    const z_gfx_text_size size =
        z_gfx_text_draw(ctx, text, margin, y - 5, available - ctx->space_width - ctx->icon_width);
    if (ctx->editing)
        draw_image(ctx, ctx->menu_icon, ctx->space_width + size.width + margin,
                   (y - 4) + (size.height - ctx->icon_height) / 2);
    record(ctx, &block->rect, margin, y - 5, available, size.height);
    return y - 5 + size.height + (block->rows.is_empty() ? 0 : ctx->space_height);
}

int32_t z_gfx_text_sheet_draw_block_header(const z_gfx_text_sheet_context *ctx, int32_t y,
                                           z_text_sheet_block *block)
{
    const int32_t end = draw_block_header(ctx, y, block);
    note_item(ctx, {.kind = z_gfx_item_kind::block_header, .y = y, .end = end, .element = block});
    return end;
}

int32_t z_gfx_text_sheet_draw_block(const z_gfx_text_sheet_context *ctx, int32_t y, z_text_sheet_block *block,
                                    z_gfx_placeholder placeholder)
{
    y = z_gfx_text_sheet_draw_block_header(ctx, y, block);
    const z_gfx_row_columns columns = get_columns(ctx, block);
    for (z_text_sheet_row *row : block->rows)
        y = z_gfx_text_sheet_draw_row(ctx, y, row, placeholder, columns);
    return y + 26;
}

static int32_t draw_segment_header(const z_gfx_text_sheet_context *ctx, int32_t y,
                                   z_text_sheet_segment *segment)
{
    if (segment->header == nullptr && !ctx->editing) {
        record(ctx, &segment->rect, 0, 0, 0, 0);
        return y;
    }
    const z_gfx_text text =
        segment->header != nullptr
            ? model_text(z_font_style::large_header, segment->header, &segment->measure)
            : grey_text(z_font_style::large_header, "Untitled segment", &untitled_segment_measure);
    const auto icon = ctx->editing ? z_gfx_header_icon::present : z_gfx_header_icon::absent;
    return draw_large_header(ctx, y, text, icon, &segment->rect) + 25;
}

int32_t z_gfx_text_sheet_draw_segment_header(const z_gfx_text_sheet_context *ctx, int32_t y,
                                             z_text_sheet_segment *segment)
{
    const int32_t end = draw_segment_header(ctx, y, segment);
    note_item(ctx, {.kind = z_gfx_item_kind::segment_header, .y = y, .end = end, .element = segment});
    return end;
}

int32_t z_gfx_text_sheet_draw_add_segments(const z_gfx_text_sheet_context *ctx, int32_t y,
                                           z_rectangle *rect_out)
{
    const z_gfx_text text = grey_text(z_font_style::normal, "Add segments", &add_segments_measure);
    const int32_t right = ctx->width - margin;
    const z_gfx_text_size size =
        z_gfx_text_get_size(ctx, text, right - margin - ctx->space_width - ctx->icon_width);
    const int32_t x = right - size.width - ctx->space_width - ctx->icon_width;
    z_gfx_text_draw(ctx, text, x, y - 3, 0);
    record(ctx, rect_out, x - 12, y - 15, size.width + ctx->space_width + 25 + ctx->icon_width,
           size.height + 25);
    draw_image(ctx, ctx->menu_icon, right - ctx->icon_width,
               y - 3 + (size.height - ctx->icon_height) / 2 + 1);
    return y + 22 + size.height;
}

int32_t z_gfx_text_sheet_draw_separator(const z_gfx_text_sheet_context *ctx, int32_t y, z_gfx_line line)
{
    if (z_gfx_text_sheet_is_visible(ctx, ctx->clip.x, y, 1, 1)) {
        const double on = line == z_gfx_line::dotted ? 1.0 : 4.0;
        const double dashes[] = {on, 5.0 - on};
        z_gfx_set_color_rgb(ctx->cr, grey);
        cairo_set_dash(ctx->cr, dashes, 2, 1.0);
        cairo_move_to(ctx->cr, 0.0, y + 0.5);
        cairo_line_to(ctx->cr, ctx->width, y + 0.5);
        cairo_stroke(ctx->cr);
        z_gfx_set_color_rgb(ctx->cr, black);
        cairo_set_dash(ctx->cr, nullptr, 0, 0.0);
    }
    note_item(ctx, {.kind = z_gfx_item_kind::separator, .y = y, .end = y + 26, .line = line});
    return y + 26;
}
