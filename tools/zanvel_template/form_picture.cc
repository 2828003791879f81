#include "tools/zanvel_template/form_picture.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include "common/base/error.h"
#include "common/base/utf8.h"

struct format_row {
    z_picture_format format;
    const char *extension;
    double units_per_pixel; // A PDF counts in points.
    int32_t max_height;     // Images end there; beyond the other Cairo's coordinates wrap.
};

static constexpr format_row formats[] = {
    {z_picture_format::png, ".png", 1.0, 32767},
    {z_picture_format::pdf, ".pdf", 0.75, 8000000},
    {z_picture_format::svg, ".svg", 1.0, 8000000},
};

bool z_picture_format_for_path(z_picture_format &format, const char *path)
{
    for (const format_row &row : formats) {
        if (z_utf8_has_suffix_case_insensitive_ascii(path, row.extension)) {
            format = row.format;
            return true;
        }
    }
    z_error_set("The name of a picture ends in .png, .pdf or .svg.");
    return false;
}

static cairo_status_t write_bytes(void *stream, const unsigned char *data, unsigned int length) noexcept
{
    return z_output_stream_write(static_cast<z_output_stream *>(stream), data, length)
               ? CAIRO_STATUS_SUCCESS
               : CAIRO_STATUS_WRITE_ERROR;
}

static z_cairo_surface_ptr create_surface(z_output_stream *stream, const format_row &format, int32_t width,
                                          int32_t height)
{
    const double paper_width = width * format.units_per_pixel;
    const double paper_height = height * format.units_per_pixel;
    z_cairo_surface_ptr surface;
    switch (format.format) {
    case z_picture_format::png:
        surface.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height));
        break;
    case z_picture_format::pdf:
        surface.reset(cairo_pdf_surface_create_for_stream(write_bytes, stream, paper_width, paper_height));
        break;
    case z_picture_format::svg:
        surface.reset(cairo_svg_surface_create_for_stream(write_bytes, stream, paper_width, paper_height));
        cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
        break;
    }
    return surface;
}

static z_cairo_ptr create_context(cairo_surface_t *surface, const format_row &format)
{
    z_cairo_ptr cr(cairo_create(surface));
    cairo_scale(cr.get(), format.units_per_pixel, format.units_per_pixel);
    return cr;
}

// How texts are measured depends on the kind of surface, so it takes one to learn the height of another.
static int32_t get_form_height(const format_row &format, z_gfx_text_sheet_context ctx, z_gfx_form *form)
{
    const z_output_stream_ptr nowhere = z_output_stream_new_for_memory();
    const z_cairo_surface_ptr surface = create_surface(nowhere.get(), format, 1, 1);
    const z_cairo_ptr cr = create_context(surface.get(), format);
    ctx.cr = cr.get();
    const int32_t height = z_gfx_form_get_height(&ctx, form);
    cairo_surface_finish(surface.get());
    return height;
}

static bool finish(cairo_surface_t *surface, cairo_t *cr, const format_row &format, z_output_stream *stream)
{
    cairo_status_t status = cairo_status(cr);
    if (status == CAIRO_STATUS_SUCCESS && format.format == z_picture_format::png)
        status = cairo_surface_write_to_png_stream(surface, write_bytes, stream);
    cairo_surface_finish(surface);
    if (status == CAIRO_STATUS_SUCCESS)
        status = cairo_surface_status(surface);
    if (status != CAIRO_STATUS_SUCCESS)
        z_error_set_from_cairo_status(status);
    return status == CAIRO_STATUS_SUCCESS;
}

bool z_picture_draw_form(z_output_stream *stream, z_picture_format format,
                         const z_gfx_text_sheet_context &settings, z_gfx_form *form)
{
    const format_row &row = formats[static_cast<size_t>(format)];
    const int32_t height = get_form_height(row, settings, form);
    if (height > row.max_height) {
        z_error_set_utf8_printf("The form is %d pixels high, but a picture of this kind at most %d.", height,
                                row.max_height);
        return false;
    }
    const z_cairo_surface_ptr surface = create_surface(stream, row, settings.width, height);
    const z_cairo_ptr cr = create_context(surface.get(), row);
    z_gfx_text_sheet_context ctx = settings;
    ctx.cr = cr.get();
    z_gfx_form_draw(&ctx, form, 0);
    return finish(surface.get(), cr.get(), row, stream);
}
