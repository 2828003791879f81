#pragma once

// The fonts of custom drawing. All are derived from one base font, so that a form reads like the window
// around it: the toolkit floor takes the base from a widget's style (z_gui_get_font_description), and whoever
// draws without a widget from z_gui_create_fallback_font_description.

#include "common/gui/cairo_handles.h"

enum class z_font_style {
    normal,
    bold,
    italic,
    // Bold, sans-serif and 1.6 times as large: the headers of a form.
    large_header
};

// "Sans" of a size in device units.
[[nodiscard]] z_font_description_ptr z_gui_create_fallback_font_description(double device_size);

// Changes the base font into the one of that style.
void z_gui_apply_font_style(PangoFontDescription *font, z_font_style style);

// The scaled size is cut to whole Pango units; an absolute size stays absolute, a point size a point size.
void z_gui_scale_font_description(PangoFontDescription *font, double factor);
