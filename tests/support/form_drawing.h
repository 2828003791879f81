#pragma once

// Forms drawn on surfaces of their own, to be compared: how high they are, where their parts lie, and every
// pixel.

#include <array>
#include <string>
#include <vector>

#include "common/gui/gfx_form.h"
#include "common/model/template.h"

// What one draw is asked for, beside the form.
struct Scene {
    int width = 500;
    int scroll = 0;
    double scale = 1.0;
    double offset = 0.0; // Of the form within the surface, both ways.
    bool editing = true;
    bool in_group = false;
    z_rectangle clip = {};
    bool highlights_a_row = false;
    const char *font = nullptr;
    double font_resolution = 96.0;
};

struct Drawing {
    int height = 0;
    std::vector<std::array<int32_t, 4>> rects; // x, y, width, height
    std::string pixels;
};

inline Drawing draw_scene(z_gfx_form *form, const Scene &scene, const z_settings *settings,
                          decltype(z_gfx_form_draw) *function = z_gfx_form_draw)
{
    const z_cairo_surface_ptr surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24,
                                                                 static_cast<int>(scene.width * scene.scale),
                                                                 static_cast<int>(300 * scene.scale)));
    cairo_surface_set_device_scale(surface.get(), scene.scale, scene.scale);
    const z_cairo_ptr cr(cairo_create(surface.get()));
    if (scene.clip.width > 0) {
        cairo_rectangle(cr.get(), scene.clip.x, scene.clip.y, scene.clip.width, scene.clip.height);
        cairo_clip(cr.get());
    }
    if (scene.in_group)
        cairo_push_group(cr.get());
    cairo_translate(cr.get(), scene.offset, scene.offset);
    const z_font_description_ptr font(scene.font != nullptr ? pango_font_description_from_string(scene.font)
                                                            : nullptr);
    std::vector<const z_text_sheet_segment *> segments;
    if (form->report_type == nullptr)
        segments.push_back(&form->tmpl->details);
    else
        for (const z_text_sheet_segment *segment : form->report_type->segments)
            segments.push_back(segment);
    z_gfx_text_sheet_context ctx;
    ctx.settings = settings;
    ctx.base_font = font.get();
    ctx.font_resolution = scene.font_resolution;
    ctx.cr = cr.get();
    ctx.width = scene.width;
    ctx.record_rects = true;
    ctx.editing = scene.editing;
    for (const z_text_sheet_segment *segment : segments)
        for (const z_text_sheet_block *block : segment->blocks)
            if (scene.highlights_a_row && !block->rows.is_empty())
                ctx.highlighted_row = block->rows.get_last();
    Drawing drawing;
    drawing.height = function(&ctx, form, scene.scroll);
    if (scene.in_group) {
        cairo_pop_group_to_source(cr.get());
        cairo_paint(cr.get());
    }
    const auto add = [&](const z_rectangle &rect) {
        drawing.rects.push_back({rect.x, rect.y, rect.width, rect.height});
    };
    add(form->add_segments_rect);
    for (const z_text_sheet_segment *segment : segments) {
        add(segment->rect);
        for (const z_text_sheet_block *block : segment->blocks) {
            add(block->rect);
            for (const z_text_sheet_row *row : block->rows) {
                add(row->rect);
                for (const z_text_sheet_field *field : row->fields)
                    add(field->rect);
            }
        }
    }
    cairo_surface_flush(surface.get());
    drawing.pixels.assign(reinterpret_cast<const char *>(cairo_image_surface_get_data(surface.get())),
                          static_cast<size_t>(cairo_image_surface_get_stride(surface.get()) *
                                              cairo_image_surface_get_height(surface.get())));
    return drawing;
}
