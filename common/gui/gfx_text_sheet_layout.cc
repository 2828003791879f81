#include "common/gui/gfx_text_sheet_layout.h"

#include <algorithm>
#include <cassert>

// Far enough outside the clip that no ink of an item reaches into it.
static constexpr int32_t clip_border = 100;

z_gfx_text_sheet_context z_gfx_text_sheet_begin_layout(const z_gfx_text_sheet_context *ctx,
                                                       z_gfx_text_sheet_layout *layout)
{
    z_gfx_text_sheet_context measuring = *ctx;
    measuring.measure_only = true;
    measuring.record_rects = true;
    measuring.layout = layout;
    return measuring;
}

// What is not shown has an empty rectangle, which stays where it is.
static void move_rect(z_rectangle *rect, int32_t delta)
{
    if (rect->height > 0)
        rect->y += delta;
}

static void move_what_follows(z_gfx_text_sheet_layout *layout, size_t part_index, int32_t delta)
{
    const z_gfx_placed_part &changed = layout->parts[part_index];
    for (size_t index = changed.items_end; index < layout->items.size(); ++index) {
        layout->items[index].y += delta;
        layout->items[index].end += delta;
    }
    for (size_t index = changed.rects_end; index < layout->rects.size(); ++index)
        move_rect(&layout->rects[index].value, delta);
    for (size_t index = part_index + 1; index < layout->parts.size(); ++index) {
        layout->parts[index].y += delta;
        layout->parts[index].end += delta;
    }
}

static int32_t arrange_part(const z_gfx_text_sheet_context *ctx, const z_gfx_placed_part &part,
                            z_gfx_text_sheet_layout *layout)
{
    const z_gfx_text_sheet_context measuring = z_gfx_text_sheet_begin_layout(ctx, layout);
    if (part.block != nullptr)
        return z_gfx_text_sheet_draw_block(&measuring, part.y, part.block, part.placeholder);
    return z_gfx_text_sheet_draw_segment_header(&measuring, part.y, part.segment);
}

static int32_t rearrange_part(const z_gfx_text_sheet_context *ctx, size_t part_index,
                              z_gfx_text_sheet_layout *layout)
{
    z_gfx_placed_part &part = layout->parts[part_index];
    z_gfx_text_sheet_layout fresh;
    const int32_t end = arrange_part(ctx, part, &fresh);
    assert(fresh.items.size() == part.items_end - part.items_begin &&
           fresh.rects.size() == part.rects_end - part.rects_begin);
    std::copy(fresh.items.begin(), fresh.items.end(), &layout->items[part.items_begin]);
    std::copy(fresh.rects.begin(), fresh.rects.end(), &layout->rects[part.rects_begin]);
    const int32_t delta = end - part.end;
    part.end = end;
    if (delta != 0)
        move_what_follows(layout, part_index, delta);
    return delta;
}

int32_t z_gfx_text_sheet_rearrange_text(const z_gfx_text_sheet_context *ctx, const z_rectangle *rect,
                                        z_gfx_text_sheet_layout *layout)
{
    const auto placed = std::find_if(layout->rects.begin(), layout->rects.end(),
                                     [rect](const z_gfx_placed_rect &entry) { return entry.rect == rect; });
    if (placed == layout->rects.end())
        return 0;
    const auto place = static_cast<size_t>(placed - layout->rects.begin());
    const auto part =
        std::partition_point(layout->parts.begin(), layout->parts.end(),
                             [place](const z_gfx_placed_part &entry) { return entry.rects_end <= place; });
    if (part == layout->parts.end() || part->rects_begin > place)
        return 0;
    return rearrange_part(ctx, static_cast<size_t>(part - layout->parts.begin()), layout);
}

static void draw_item(const z_gfx_text_sheet_context *ctx, int32_t y, const z_gfx_placed_item &item)
{
    switch (item.kind) {
    case z_gfx_item_kind::segment_header:
        z_gfx_text_sheet_draw_segment_header(ctx, y, static_cast<z_text_sheet_segment *>(item.element));
        break;
    case z_gfx_item_kind::block_header:
        z_gfx_text_sheet_draw_block_header(ctx, y, static_cast<z_text_sheet_block *>(item.element));
        break;
    case z_gfx_item_kind::row:
        z_gfx_text_sheet_draw_row(ctx, y, static_cast<z_text_sheet_row *>(item.element), item.placeholder,
                                  item.columns);
        break;
    case z_gfx_item_kind::separator:
        z_gfx_text_sheet_draw_separator(ctx, y, item.line);
        break;
    }
}

void z_gfx_text_sheet_draw_layout(const z_gfx_text_sheet_context *ctx, int32_t y,
                                  const z_gfx_text_sheet_layout &layout)
{
    z_gfx_text_sheet_context drawing = *ctx;
    drawing.record_rects = false;
    const auto is_above = [ctx, y](const z_gfx_placed_item &item) {
        return y + item.end + clip_border < ctx->clip.y;
    };
    auto item = std::partition_point(layout.items.begin(), layout.items.end(), is_above);
    for (; item != layout.items.end() && y + item->y - clip_border < ctx->clip.y + ctx->clip.height; ++item)
        draw_item(&drawing, y + item->y, *item);
}

void z_gfx_text_sheet_record_layout(int32_t y, const z_gfx_text_sheet_layout &layout)
{
    for (const z_gfx_placed_rect &placed : layout.rects) {
        *placed.rect = placed.value;
        move_rect(placed.rect, y);
    }
}

void z_gfx_text_sheet_record_shift(int32_t y, const z_gfx_text_sheet_layout &layout)
{
    for (const z_gfx_placed_rect &placed : layout.rects) {
        if (placed.value.height > 0)
            placed.rect->y = placed.value.y + y;
    }
}
