#include "common/gui/font.h"

static constexpr double large_header_factor = 1.6;

z_font_description_ptr z_gui_create_fallback_font_description(double device_size)
{
    z_font_description_ptr font(pango_font_description_new());
    pango_font_description_set_family(font.get(), "Sans");
    pango_font_description_set_absolute_size(font.get(), pango_units_from_double(device_size));
    return font;
}

void z_gui_apply_font_style(PangoFontDescription *font, z_font_style style)
{
    switch (style) {
    case z_font_style::normal:
        break;
    case z_font_style::bold:
        pango_font_description_set_weight(font, PANGO_WEIGHT_BOLD);
        break;
    case z_font_style::italic:
        pango_font_description_set_style(font, PANGO_STYLE_ITALIC);
        break;
    case z_font_style::large_header:
        pango_font_description_set_weight(font, PANGO_WEIGHT_BOLD);
        pango_font_description_set_family(font, "Arial,Sans"); // Not every system skips a space there.
        z_gui_scale_font_description(font, large_header_factor);
        break;
    }
}

void z_gui_scale_font_description(PangoFontDescription *font, double factor)
{
    const int size = static_cast<int>(pango_font_description_get_size(font) * factor);
    if (pango_font_description_get_size_is_absolute(font))
        pango_font_description_set_absolute_size(font, size);
    else
        pango_font_description_set_size(font, size);
}
