#pragma once

// What a form is drawn with, and onto. The caller fills the first part before each draw and then begins the
// draw; the second part is found out by that.

#include <cstdint>

#include "common/base/rectangle.h"
#include "common/gui/cairo_handles.h"

struct z_gfx_image;
struct z_gfx_placed_part;
struct z_settings;
struct z_text_sheet_row;

struct z_gfx_text_sheet_context {
    const z_settings *settings = nullptr;            // Decides in which language texts are shown.
    const PangoFontDescription *base_font = nullptr; // Null for the fallback font.
    double font_resolution = 96.0;                   // Dots per inch, before the device scale.
    cairo_t *cr = nullptr;
    int32_t width = 0;                                 // Pixels that the form may fill.
    const z_text_sheet_row *highlighted_row = nullptr; // Only compared; it may be gone.
    bool record_rects = false;                         // Stores hit rectangles into the model.
    bool editing = false;                              // Shows placeholders and menu icons.

    z_rectangle clip; // What of the form can be seen; nothing else is laid out for showing.
    double scale_x = 1.0;
    double scale_y = 1.0;
    int32_t space_width = 0;
    int32_t space_height = 0;
    const z_gfx_image *menu_icon = nullptr;
    int32_t icon_width = 0; // Zero when there is no icon.
    int32_t icon_height = 0;
    uint32_t generation = 0;           // That of the kept sizes, see gfx_text.h.
    bool measure_only = false;         // Walks without ink.
    z_gfx_placed_part *part = nullptr; // Where a measuring walk notes what it finds; null for nowhere.
};
