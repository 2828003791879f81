#pragma once

// The small things that all custom drawing shares: colours and raster images.

#include <cstddef>
#include <cstdint>
#include <memory>

#include "common/gui/cairo_handles.h"

// A decoded picture, in pixels of the form that it is drawn on.
struct z_gfx_image {
    double width = 0;
    double height = 0;
    z_cairo_surface_ptr surface;
    z_cairo_surface_ptr doubled_surface; // Of the same size, in finer pixels; null for none.
};

using z_gfx_image_ptr = std::unique_ptr<z_gfx_image>;

// Null on failure, with Cairo's reason in z_error.
[[nodiscard]] z_gfx_image_ptr z_gfx_image_new_from_png(const void *data, size_t length);

// Makes `doubled`, the same picture with twice the pixels each way, what is shown where a pixel of the form
// is more than one of the screen.
void z_gfx_image_take_doubled(z_gfx_image *image, z_gfx_image_ptr doubled);

// What to show at a scale factor.
[[nodiscard]] cairo_surface_t *z_gfx_image_get_surface(const z_gfx_image *image, double scale);

// With its top left corner at (x, y). Leaves the source that is set alone.
void z_gfx_image_draw(const z_gfx_image *image, cairo_t *cr, double x, double y);

// 0xRRGGBB.
void z_gfx_set_color_rgb(cairo_t *cr, uint32_t rgb);
