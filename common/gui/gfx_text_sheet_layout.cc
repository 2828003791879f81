#include "common/gui/gfx_text_sheet_layout.h"

#include <algorithm>
#include <utility>

// Far enough outside the clip that no ink of an item reaches into it.
static constexpr int32_t clip_border = 100;

z_gfx_text_sheet_arranging z_gfx_text_sheet_begin_arranging(const z_gfx_text_sheet_context *ctx,
                                                            z_gfx_text_sheet_layout *layout)
{
    z_gfx_text_sheet_arranging arranging{ctx, layout, std::exchange(layout->parts, {})};
    layout->parts.reserve(arranging.old_parts.size() + 1);
    return arranging;
}

void z_gfx_text_sheet_end_arranging(z_gfx_text_sheet_arranging *arranging)
{
    arranging->layout->change_count = z_text_sheet_change_count;
}

static bool is_same_part(const z_gfx_placed_part &a, const z_gfx_placed_part &b)
{
    return a.element == b.element && a.is_block == b.is_block && a.has_separator == b.has_separator;
}

// Takes over the old part if there is one and nothing has happened to it. Most often it is the next one.
static bool take_over(z_gfx_text_sheet_arranging *arranging, uint64_t change, z_gfx_placed_part *part)
{
    std::vector<z_gfx_placed_part> &old_parts = arranging->old_parts;
    const auto is_same = [part](const z_gfx_placed_part &old) { return is_same_part(old, *part); };
    const auto next = old_parts.begin() + static_cast<ptrdiff_t>(arranging->next_old);
    if (change > arranging->layout->change_count) {
        if (next != old_parts.end() && next->element == part->element)
            ++arranging->next_old;
        return false;
    }
    auto found = std::find_if(next, old_parts.end(), is_same);
    if (found == old_parts.end())
        found = std::find_if(old_parts.begin(), next, is_same);
    if (found == old_parts.end() || !is_same(*found))
        return false;
    arranging->next_old = static_cast<size_t>(found - old_parts.begin()) + 1;
    *part = std::move(*found);
    return true;
}

static void arrange_part(const z_gfx_text_sheet_context *ctx, z_gfx_placed_part *part)
{
    z_gfx_text_sheet_context measuring = *ctx;
    measuring.measure_only = true;
    measuring.record_rects = true;
    measuring.part = part;
    int32_t y = 0;
    if (part->has_separator)
        y = z_gfx_text_sheet_draw_separator(&measuring, y, z_gfx_line::dotted);
    part->end = part->is_block ? z_gfx_text_sheet_draw_block(&measuring, y,
                                                             static_cast<z_text_sheet_block *>(part->element),
                                                             z_gfx_placeholder::plain)
                               : z_gfx_text_sheet_draw_segment_header(
                                     &measuring, y, static_cast<z_text_sheet_segment *>(part->element));
    part->items.shrink_to_fit();
    part->rects.shrink_to_fit();
}

static int32_t place_part(z_gfx_text_sheet_arranging *arranging, int32_t y, uint64_t change,
                          z_gfx_placed_part part)
{
    if (!take_over(arranging, change, &part)) {
        part.y = 0;
        arrange_part(arranging->ctx, &part);
    }
    part.end += y - part.y;
    part.y = y;
    const int32_t end = part.end;
    arranging->layout->parts.push_back(std::move(part));
    return end;
}

int32_t z_gfx_text_sheet_place_segment_header(z_gfx_text_sheet_arranging *arranging, int32_t y,
                                              z_text_sheet_segment *segment, z_gfx_separator separator)
{
    z_gfx_placed_part part{};
    part.element = segment;
    part.has_separator = separator == z_gfx_separator::above;
    return place_part(arranging, y, segment->change, std::move(part));
}

int32_t z_gfx_text_sheet_place_block(z_gfx_text_sheet_arranging *arranging, int32_t y,
                                     z_text_sheet_block *block)
{
    z_gfx_placed_part part{};
    part.element = block;
    part.is_block = true;
    return place_part(arranging, y, block->change, std::move(part));
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

// Both kinds of entry have a `y` and an `end`. The first that may have ink in the clip.
template <typename T>
static auto find_first_visible(const z_gfx_text_sheet_context *ctx, int32_t y, const std::vector<T> &entries)
{
    return std::partition_point(entries.begin(), entries.end(), [ctx, y](const T &entry) {
        return y + entry.end + clip_border < ctx->clip.y;
    });
}

static bool begins_in_clip(const z_gfx_text_sheet_context *ctx, int32_t y)
{
    return y - clip_border < ctx->clip.y + ctx->clip.height;
}

void z_gfx_text_sheet_draw_layout(const z_gfx_text_sheet_context *ctx, int32_t y,
                                  const z_gfx_text_sheet_layout &layout)
{
    z_gfx_text_sheet_context drawing = *ctx;
    drawing.record_rects = false;
    for (auto part = find_first_visible(ctx, y, layout.parts);
         part != layout.parts.end() && begins_in_clip(ctx, y + part->y); ++part) {
        const int32_t top = y + part->y;
        for (auto item = find_first_visible(ctx, top, part->items);
             item != part->items.end() && begins_in_clip(ctx, top + item->y); ++item)
            draw_item(&drawing, top + item->y, *item);
    }
}

// What is not shown has an empty rectangle, which stays where it is.
static void move_rects(int32_t y, const z_gfx_placed_part &part)
{
    for (const z_gfx_placed_rect &placed : part.rects) {
        if (placed.value.height > 0)
            placed.rect->y = placed.value.y + y;
    }
}

void z_gfx_text_sheet_record_layout(int32_t y, z_gfx_text_sheet_layout *layout)
{
    for (z_gfx_placed_part &part : layout->parts) {
        if (part.is_recorded && part.recorded_y == y + part.y)
            continue;
        if (!part.is_recorded) {
            for (const z_gfx_placed_rect &placed : part.rects)
                *placed.rect = placed.value;
        }
        move_rects(y + part.y, part);
        part.is_recorded = true;
        part.recorded_y = y + part.y;
    }
}
