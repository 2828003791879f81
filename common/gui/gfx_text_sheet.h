#pragma once

// Draws the parts of a text sheet. Layout and drawing are one walk over the elements: every function takes
// the y coordinate of its top and returns the one where the next item begins. With `record_rects` each
// element gets the rectangle that it covers, at the place where it is now drawn; what is not shown gets an
// empty one. The walk only adds kept sizes, lays out nothing whose sizes still hold, and shows only what
// meets the clip. A measuring walk can note where everything stands, see gfx_text_sheet_layout.h.
//
// All functions need a draw begun on the context (z_gfx_text_sheet_begin).

#include "common/gui/gfx_text.h"

enum class z_gfx_header_icon { absent, present };
enum class z_gfx_placeholder { plain, inviting };
enum class z_gfx_line { dashed, dotted };

// The columns of a block's rows.
struct z_gfx_row_columns {
    int32_t header_width = 0;
    int32_t fields_width = 0;
};

// The menu icon stands right of the text. `rect_out` may be null.
int32_t z_gfx_text_sheet_draw_large_header(const z_gfx_text_sheet_context *ctx, int32_t y,
                                           const char *text_latin1, z_gfx_header_icon icon,
                                           z_rectangle *rect_out);

int32_t z_gfx_text_sheet_draw_segment_header(const z_gfx_text_sheet_context *ctx, int32_t y,
                                             z_text_sheet_segment *segment);
int32_t z_gfx_text_sheet_draw_block(const z_gfx_text_sheet_context *ctx, int32_t y, z_text_sheet_block *block,
                                    z_gfx_placeholder placeholder);
int32_t z_gfx_text_sheet_draw_block_header(const z_gfx_text_sheet_context *ctx, int32_t y,
                                           z_text_sheet_block *block);
// With its box.
int32_t z_gfx_text_sheet_draw_row(const z_gfx_text_sheet_context *ctx, int32_t y, z_text_sheet_row *row,
                                  z_gfx_placeholder placeholder, const z_gfx_row_columns &columns);

// The label at the right edge, on the line of the first segment's header.
int32_t z_gfx_text_sheet_draw_add_segments(const z_gfx_text_sheet_context *ctx, int32_t y,
                                           z_rectangle *rect_out);

int32_t z_gfx_text_sheet_draw_separator(const z_gfx_text_sheet_context *ctx, int32_t y, z_gfx_line line);
