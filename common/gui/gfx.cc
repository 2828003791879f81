#include "common/gui/gfx.h"

#include "common/base/error.h"
#include "common/base/input_stream.h"

static cairo_status_t read_png(void *stream, unsigned char *data, unsigned int length) noexcept
{
    size_t count;
    const bool is_read = z_input_stream_read(static_cast<z_input_stream *>(stream), data, length, count);
    return is_read && count == length ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_READ_ERROR;
}

z_gfx_image_ptr z_gfx_image_new_from_png(const void *data, size_t length)
{
    const z_input_stream_ptr stream = z_input_stream_new_for_memory(data, length);
    z_cairo_surface_ptr surface(cairo_image_surface_create_from_png_stream(read_png, stream.get()));
    const cairo_status_t status = cairo_surface_status(surface.get());
    if (status != CAIRO_STATUS_SUCCESS) {
        z_error_set_from_cairo_status(status);
        return nullptr;
    }
    const double width = cairo_image_surface_get_width(surface.get());
    const double height = cairo_image_surface_get_height(surface.get());
    return std::make_unique<z_gfx_image>(z_gfx_image{width, height, std::move(surface), nullptr});
}

void z_gfx_image_take_doubled(z_gfx_image *image, z_gfx_image_ptr doubled)
{
    image->doubled_surface = std::move(doubled->surface);
    cairo_surface_set_device_scale(image->doubled_surface.get(), 2.0, 2.0);
}

cairo_surface_t *z_gfx_image_get_surface(const z_gfx_image *image, double scale)
{
    return scale > 1.0 && image->doubled_surface != nullptr ? image->doubled_surface.get()
                                                            : image->surface.get();
}

void z_gfx_image_draw(const z_gfx_image *image, cairo_t *cr, double x, double y)
{
    const z_cairo_state_guard guard(cr);
    double scale_x = 1.0;
    double scale_y = 1.0;
    cairo_surface_get_device_scale(cairo_get_group_target(cr), &scale_x, &scale_y);
    cairo_set_source_surface(cr, z_gfx_image_get_surface(image, scale_x), x, y);
    cairo_paint(cr);
}

void z_gfx_set_color_rgb(cairo_t *cr, uint32_t rgb)
{
    const auto component = [rgb](int shift) { return ((rgb >> shift) & 0xff) / 255.0; };
    cairo_set_source_rgb(cr, component(16), component(8), component(0));
}
