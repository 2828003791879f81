#pragma once

// Handles for Cairo and Pango; needs no toolkit. A PangoLayout or PangoContext is a GObject:
// z_ref<PangoLayout>.

#include <cairo.h>
#include <pango/pango.h>

#include "common/base/handles.h"

using z_cairo_ptr = z_ptr<cairo_t, cairo_destroy>;
using z_cairo_surface_ptr = z_ptr<cairo_surface_t, cairo_surface_destroy>;
using z_cairo_region_ptr = z_ptr<cairo_region_t, cairo_region_destroy>;
using z_cairo_font_options_ptr = z_ptr<cairo_font_options_t, cairo_font_options_destroy>;
using z_font_face_ptr = z_ptr<cairo_font_face_t, cairo_font_face_destroy>;
using z_font_description_ptr = z_ptr<PangoFontDescription, pango_font_description_free>;
using z_font_metrics_ptr = z_ptr<PangoFontMetrics, pango_font_metrics_unref>;
using z_attr_list_ptr = z_ptr<PangoAttrList, pango_attr_list_unref>;

// Saves the drawing state and restores it at the end of the scope.
class z_cairo_state_guard {
public:
    explicit z_cairo_state_guard(cairo_t *context) noexcept : cr(context)
    {
        cairo_save(cr);
    }
    z_cairo_state_guard(const z_cairo_state_guard &) = delete;
    z_cairo_state_guard &operator=(const z_cairo_state_guard &) = delete;
    ~z_cairo_state_guard()
    {
        cairo_restore(cr);
    }

private:
    cairo_t *cr;
};
