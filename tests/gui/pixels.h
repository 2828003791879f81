#pragma once

// An image surface to draw on and to look at.

#include <cstdint>
#include <cstring>

#include "common/gui/cairo_handles.h"

class Canvas {
public:
    Canvas(int width, int height)
        : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)),
          context(cairo_create(surface.get()))
    {
    }

    [[nodiscard]] cairo_t *cr() const
    {
        return context.get();
    }
    [[nodiscard]] int width() const
    {
        return cairo_image_surface_get_width(surface.get());
    }
    [[nodiscard]] int height() const
    {
        return cairo_image_surface_get_height(surface.get());
    }
    // 0xAARRGGBB, with the colours multiplied by the alpha.
    [[nodiscard]] uint32_t pixel(int x, int y) const
    {
        cairo_surface_flush(surface.get());
        uint32_t value;
        std::memcpy(&value,
                    cairo_image_surface_get_data(surface.get()) +
                        y * cairo_image_surface_get_stride(surface.get()) + x * 4,
                    sizeof value);
        return value;
    }

private:
    z_cairo_surface_ptr surface;
    z_cairo_ptr context;
};
