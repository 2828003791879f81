#pragma once

// Where the walk over a text sheet found everything, so that drawing the unchanged sheet again need not visit
// what is out of sight, and a changed text costs what it changes.
//
//     items   what is drawn by itself, in drawing order: headers, rows, separators; none ends before its predecessor
//     rects   every hit rectangle, and what it is to be
//     parts   segment headers and blocks: what a changed text is arranged anew with
//
// So how many entries a part has depends on the lists alone. All y coordinates are those of the walk. A
// layout holds pointers into the model: it is good only until a list changes (z_link_change_count).

#include <vector>

#include "common/gui/gfx_text_sheet.h"

enum class z_gfx_item_kind { segment_header, block_header, row, separator };

// Drawn from `y` to `end`. The element is of the item's kind.
struct z_gfx_placed_item {
    z_gfx_item_kind kind;
    int32_t y;
    int32_t end;
    z_link *element = nullptr; // A separator has none.
    z_gfx_row_columns columns{};
    z_gfx_placeholder placeholder = z_gfx_placeholder::plain;
    z_gfx_line line = z_gfx_line::dotted;
};

struct z_gfx_placed_rect {
    z_rectangle *rect;
    z_rectangle value;
};

struct z_gfx_placed_part {
    z_text_sheet_segment *segment; // Null for a block.
    z_text_sheet_block *block;     // Null for a segment's header.
    z_gfx_placeholder placeholder;
    int32_t y;
    int32_t end;
    size_t items_begin; // Its places in the other two lists.
    size_t items_end;
    size_t rects_begin;
    size_t rects_end;
};

struct z_gfx_text_sheet_layout {
    std::vector<z_gfx_placed_item> items;
    std::vector<z_gfx_placed_rect> rects;
    std::vector<z_gfx_placed_part> parts;
};

// The context for a walk that fills the layout and draws nothing.
[[nodiscard]] z_gfx_text_sheet_context z_gfx_text_sheet_begin_layout(const z_gfx_text_sheet_context *ctx,
                                                                     z_gfx_text_sheet_layout *layout);

// Arranges anew what a changed text decides, and moves what follows. Returns by how much that was. The text
// is that of the element with this rectangle; one that the layout does not have changes nothing.
int32_t z_gfx_text_sheet_rearrange_text(const z_gfx_text_sheet_context *ctx, const z_rectangle *rect,
                                        z_gfx_text_sheet_layout *layout);

// Draws what the layout has within the clip. Records nothing.
void z_gfx_text_sheet_draw_layout(const z_gfx_text_sheet_context *ctx, int32_t y,
                                  const z_gfx_text_sheet_layout &layout);
// Puts every hit rectangle of the layout where drawing it so puts the element.
void z_gfx_text_sheet_record_layout(int32_t y, const z_gfx_text_sheet_layout &layout);
// The same, for a layout that was recorded and is unchanged: touches half the memory.
void z_gfx_text_sheet_record_shift(int32_t y, const z_gfx_text_sheet_layout &layout);
