#include "common/gui/gui_font.h"

#include <algorithm>

z_font_description_ptr z_gui_get_font_description(GtkWidget *widget, z_font_style style, double device_size)
{
    GtkStyleContext *context = gtk_widget_get_style_context(widget);
    z_font_description_ptr font;
    gtk_style_context_save(context);
    gtk_style_context_set_state(context, GTK_STATE_FLAG_NORMAL);
    gtk_style_context_get(context, GTK_STATE_FLAG_NORMAL, GTK_STYLE_PROPERTY_FONT,
                          static_cast<PangoFontDescription **>(z_out(font)), nullptr);
    gtk_style_context_restore(context);

    if (!font)
        font = z_gui_create_fallback_font_description(device_size);
    z_gui_apply_font_style(font.get(), style);
    return font;
}

int z_gui_get_char_width(GtkWidget *widget)
{
    PangoContext *context = gtk_widget_get_pango_context(widget);
    const z_font_metrics_ptr metrics(
        pango_context_get_metrics(context, pango_context_get_font_description(context), nullptr));
    return PANGO_PIXELS_CEIL(std::max(pango_font_metrics_get_approximate_char_width(metrics.get()),
                                      pango_font_metrics_get_approximate_digit_width(metrics.get())));
}
