#pragma once

// The fonts of custom drawing on a widget; font.h has what needs no widget.

#include <gtk/gtk.h>

#include "common/gui/font.h"

// The font of the widget's style in the normal state. Where the theme gives none, the fallback of that size
// in device units stands in.
[[nodiscard]] z_font_description_ptr z_gui_get_font_description(GtkWidget *widget, z_font_style style,
                                                                double device_size);

// What the widget counts for a character where widths are told in characters.
[[nodiscard]] int z_gui_get_char_width(GtkWidget *widget);
