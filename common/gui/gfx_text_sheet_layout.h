#pragma once

// Where the walk over a text sheet found everything, so that drawing the unchanged sheet again need not visit
// what is out of sight, and a change costs what it changes.
//
// A part is a segment's header or a whole block. It has
//
//     items   what is drawn by itself, in drawing order: headers, rows, separators; none ends before the one
//             before it
//     rects   every hit rectangle, and what it is to be
//
// whose y coordinates count from its top. A layout holds pointers into the model. Before each use it is
// arranged anew, which takes over the parts that nothing has happened to.

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
    z_link *element; // A segment, which stands for its header, or a block.
    bool is_block;
    bool has_separator; // Above a segment's header.
    int32_t y;
    int32_t end;
    std::vector<z_gfx_placed_item> items;
    std::vector<z_gfx_placed_rect> rects;
    bool is_recorded = false; // The hit rectangles are right for `recorded_y`.
    int32_t recorded_y = 0;
};

struct z_gfx_text_sheet_layout {
    std::vector<z_gfx_placed_part> parts;
    uint64_t change_count = 0; // z_text_sheet_change_count when it was arranged.
};

// One pass over the sheet that the layout is of. Parts must be placed from top to bottom; those that are not
// placed again are dropped.
struct z_gfx_text_sheet_arranging {
    const z_gfx_text_sheet_context *ctx;
    z_gfx_text_sheet_layout *layout;
    std::vector<z_gfx_placed_part> old_parts;
    size_t next_old = 0;
};
[[nodiscard]] z_gfx_text_sheet_arranging z_gfx_text_sheet_begin_arranging(const z_gfx_text_sheet_context *ctx,
                                                                          z_gfx_text_sheet_layout *layout);
void z_gfx_text_sheet_end_arranging(z_gfx_text_sheet_arranging *arranging);

enum class z_gfx_separator { absent, above };

// Each takes the y coordinate of the part's top and returns the one where the next part begins.
int32_t z_gfx_text_sheet_place_segment_header(z_gfx_text_sheet_arranging *arranging, int32_t y,
                                              z_text_sheet_segment *segment, z_gfx_separator separator);
int32_t z_gfx_text_sheet_place_block(z_gfx_text_sheet_arranging *arranging, int32_t y,
                                     z_text_sheet_block *block);

// Draws what the layout has within the clip. Records nothing.
void z_gfx_text_sheet_draw_layout(const z_gfx_text_sheet_context *ctx, int32_t y,
                                  const z_gfx_text_sheet_layout &layout);
// Puts every hit rectangle of the layout where drawing it so puts the element.
void z_gfx_text_sheet_record_layout(int32_t y, z_gfx_text_sheet_layout *layout);
