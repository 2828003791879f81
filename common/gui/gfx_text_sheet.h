#pragma once

// Draws the parts of a text sheet. Layout and drawing are one walk over the elements: every function takes
// the y coordinate of its top and returns the one where the next item begins. With `record_rects` each
// element gets the rectangle that it covers, at the place where it is now drawn; what is not shown gets an
// empty one.
//
// The walk always visits every element, so that insertions, removals and moves need no notice; but it only
// adds kept sizes, lays out nothing whose sizes still hold, and shows only what meets the clip.
//
// All functions need a draw begun on the context (z_gfx_text_sheet_begin).

#include "common/gui/gfx_text.h"

enum class z_gfx_header_icon { absent, present };
enum class z_gfx_untitled { hidden, shown };
enum class z_gfx_placeholder { plain, inviting };
enum class z_gfx_line { dashed, dotted };

// The menu icon stands right of the text. `rect_out` may be null.
int32_t z_gfx_text_sheet_draw_large_header(const z_gfx_text_sheet_context *ctx, int32_t y,
                                           const char *text_latin1, z_gfx_header_icon icon,
                                           z_rectangle *rect_out);

// `untitled` says whether an editor sees a substitute for a missing header.
int32_t z_gfx_text_sheet_draw_segment(const z_gfx_text_sheet_context *ctx, int32_t y,
                                      z_text_sheet_segment *segment, z_gfx_untitled untitled,
                                      z_gfx_placeholder placeholder);

// The label at the right edge, on the line of the first segment's header.
int32_t z_gfx_text_sheet_draw_add_segments(const z_gfx_text_sheet_context *ctx, int32_t y,
                                           z_rectangle *rect_out);

int32_t z_gfx_text_sheet_draw_separator(const z_gfx_text_sheet_context *ctx, int32_t y, z_gfx_line line);
