#pragma once

// One whole form of a template, its basic data or one report type: how it is drawn, how high it is, and which
// part of it lies under a point. The editor's widget and the command-line companion both draw through this.

#include "common/gui/gfx_text_sheet_layout.h"

struct z_template;
struct z_template_report_type;

// Where everything stands, for as long as nothing changes that decides it.
struct z_gfx_form_layout {
    z_gfx_text_sheet_layout placed;
    int32_t height = 0;
    const z_template *tmpl = nullptr;
    const z_template_report_type *report_type = nullptr;
    uint64_t list_change_count = 0;
    uint32_t generation = 0;
    int32_t width = 0;
    bool editing = false;
};

// The caller sets the first two, which are borrowed, and keeps the form for as long as it shows it: drawing
// it again where nothing has changed then costs little more than what is seen.
struct z_gfx_form {
    z_template *tmpl = nullptr;
    z_template_report_type *report_type = nullptr; // Null for the basic data.
    z_rectangle add_segments_rect;                 // Where the last draw put that label; empty if nowhere.
    z_gfx_form_layout layout;
};

// The height that drawing the form with this context would report, found without drawing and without moving
// any hit rectangle, so that a scroll position can be corrected first. Needs everything that drawing needs.
[[nodiscard]] int32_t z_gfx_form_get_height(z_gfx_text_sheet_context *ctx, z_gfx_form *form);

// Paints the clip white and draws the form, scrolled up by so many pixels. Returns its height.
int32_t z_gfx_form_draw(z_gfx_text_sheet_context *ctx, z_gfx_form *form, int32_t scroll);

enum class z_gfx_form_part { none, add_segments, segment, block, row };

// The element that was hit and those that it stands in; the others are null.
struct z_gfx_form_hit {
    z_gfx_form_part part = z_gfx_form_part::none;
    z_text_sheet_segment *segment = nullptr;
    z_text_sheet_block *block = nullptr;
    z_text_sheet_row *row = nullptr;
};

// What the last draw that recorded rectangles put under the point. A row goes before its block's header, a
// block before its segment's.
[[nodiscard]] z_gfx_form_hit z_gfx_form_hit_test(const z_gfx_form *form, int32_t x, int32_t y);
