#include "bench/plain_form.h"

#include <algorithm>
#include <cmath>

#include <pango/pangocairo.h>

#include "common/base/convert.h"
#include "common/gui/font.h"
#include "common/gui/gfx.h"
#include "common/gui/resources.h"
#include "common/model/template.h"
#include "common/workspace/settings.h"

namespace {

constexpr uint32_t black = 0x000000;
constexpr uint32_t grey = 0xc0c0c0;

struct text_size {
    double width;
    double height;
};

int round_up(double value)
{
    return static_cast<int>(std::ceil(value));
}

// One drawing of one form.
class plain_drawing {
public:
    plain_drawing(const z_gfx_text_sheet_context *context, z_gfx_form *drawn_form)
        : ctx(context), cr(context->cr), form(drawn_form), W(context->width),
          icon(z_get_text_tab_menu_icon_image()), I_w(icon != nullptr ? icon->width : 0.0),
          I_h(icon != nullptr ? icon->height : 0.0)
    {
        double scale_x = 1.0;
        cairo_surface_get_device_scale(cairo_get_group_target(cr), &scale_x, &scale);
        for (const z_font_style style :
             {z_font_style::normal, z_font_style::bold, z_font_style::italic, z_font_style::large_header}) {
            z_font_description_ptr &font = fonts[static_cast<size_t>(style)];
            font = ctx->base_font != nullptr
                       ? z_font_description_ptr(pango_font_description_copy(ctx->base_font))
                       : z_gui_create_fallback_font_description(12.0 * scale);
            z_gui_apply_font_style(font.get(), style);
        }
        const text_size space = text(z_font_style::normal, "T", 0, 0, -1.0, true);
        S_w = round_up(space.width);
        S_h = round_up(space.height);
    }

    int draw(int scroll)
    {
        z_gfx_set_color_rgb(cr, 0xffffff);
        cairo_paint(cr);
        z_gfx_set_color_rgb(cr, black);
        cairo_set_line_width(cr, 1.0);
        const int y0 = 25 - scroll;
        return (form->report_type != nullptr ? draw_report_type(y0) : draw_basic_data(y0)) + scroll;
    }

private:
    text_size text(z_font_style style, const char *latin1, double x, double y, double wrap_width,
                   bool measure_only)
    {
        cairo_surface_t *surface = cairo_get_group_target(cr);
        double sx = 1.0;
        double sy = 1.0;
        cairo_surface_get_device_scale(surface, &sx, &sy);
        cairo_surface_set_device_scale(surface, 1.0, 1.0);
        cairo_matrix_t matrix;
        cairo_get_matrix(cr, &matrix);
        const z_ref<PangoLayout> layout = z_take(pango_cairo_create_layout(cr));
        pango_cairo_context_set_resolution(pango_layout_get_context(layout.get()), ctx->font_resolution * sy);
        pango_layout_context_changed(layout.get());
        pango_layout_set_font_description(layout.get(), fonts[static_cast<size_t>(style)].get());
        const z_utf8_ptr utf8 = z_convert_latin1_to_utf8(latin1 != nullptr ? latin1 : "");
        pango_layout_set_text(layout.get(), utf8.get(), -1);
        if (wrap_width > 0.0) {
            pango_layout_set_width(layout.get(), pango_units_from_double(wrap_width * sx));
            pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
        }
        if (!measure_only) {
            cairo_move_to(cr, sx * x + (sx - 1.0) * matrix.x0, sy * y + (sy - 1.0) * matrix.y0);
            pango_cairo_show_layout(cr, layout.get());
        }
        int width = 0;
        int height = 0;
        pango_layout_get_size(layout.get(), &width, &height);
        cairo_surface_set_device_scale(surface, sx, sy);
        return {pango_units_to_double(width) / sx, pango_units_to_double(height) / sy};
    }

    const char *shown(const z_langstr_ptr &langstr) const
    {
        return z_util_get_langstr_string(ctx->settings, langstr.get());
    }

    void draw_icon(double x, int y)
    {
        if (icon != nullptr)
            z_gfx_image_draw(icon, cr, x, y);
    }

    void record(z_rectangle *rect, int x, int y, int width, int height)
    {
        if (ctx->record_rects)
            *rect = {x, y, width, height};
    }

    int large_header(int y, const char *latin1, z_rectangle *rect)
    {
        const int A = W - 50;
        text_size size{};
        if (ctx->editing && icon != nullptr) {
            size = text(z_font_style::large_header, latin1, 24.0, y - 4, A - (S_w + I_w), false);
            draw_icon(S_w + std::ceil(size.width) + 25.0, (y - 3) + (round_up(size.height) - int(I_h)) / 2);
        } else {
            size = text(z_font_style::large_header, latin1, 24.0, y - 4, A, false);
        }
        record(rect, 25, y - 4, A, round_up(size.height));
        return y - 8 + round_up(size.height);
    }

    void checkbox(z_text_sheet_field *field, int X0, int F, int *cx, int *cy, int *L, bool measure_only)
    {
        const z_gfx_image *image = z_get_checkbox_icon_image(field->selected);
        const double image_width = image != nullptr ? image->width : 0.0;
        const double image_height = image != nullptr ? image->height : 0.0;
        const text_size label = text(z_font_style::normal, shown(field->text), 0, 0, -1.0, true);
        if (X0 + F < *cx + image_width + S_w + std::ceil(label.width) && *L != 0) {
            *cy += 10 + *L;
            *L = 0;
            *cx = X0;
        }
        const int x = *cx - 5;
        const int y = *cy - 5;
        if (!measure_only && image != nullptr)
            z_gfx_image_draw(image, cr, *cx, *cy + (round_up(label.height) - int(image_height)) / 2);
        *cx += S_w + int(image_width);
        const text_size size =
            text(z_font_style::normal, shown(field->text), *cx, *cy, (F + X0) - *cx, measure_only);
        record(&field->rect, x, y, (*cx + round_up(size.width)) - x + 5,
               (*cy + round_up(size.height)) - y + 5);
        *cx += round_up(size.width) + 10;
        *L = std::max(*L, round_up(size.height));
    }

    void text_field(z_text_sheet_field *field, int X0, int F, int *cx, int *cy, int *L, bool measure_only)
    {
        if (*L != 0) {
            *cy += 10 + *L;
            *cx = X0;
        }
        *L = 0;
        if (field->text == nullptr && !ctx->editing)
            return;
        const char *latin1 = field->text != nullptr ? shown(field->text) : "Text field";
        z_gfx_set_color_rgb(cr, field->text != nullptr ? black : grey);
        const text_size size = text(z_font_style::normal, latin1, *cx, *cy, F, measure_only);
        z_gfx_set_color_rgb(cr, black);
        record(&field->rect, *cx - 5, *cy - 5, round_up(size.width) + 10,
               (*cy + round_up(size.height)) - (*cy - 5) + 5);
        *cy += round_up(size.height) + 10;
    }

    int row(int y, z_text_sheet_row *row, int H, int F, bool measure_only)
    {
        const int X0 = H + 37;
        const text_size header =
            text(z_font_style::bold, shown(row->header), 36.0, y + 11, H - 20, measure_only);
        const int B = y + 21 + round_up(header.height);
        if (ctx->editing && !measure_only)
            draw_icon((W - 36) - I_w, y + 12);
        int cx = X0;
        int cy = y + 11;
        int L = 0;
        for (z_text_sheet_field *field : row->fields) {
            if (field->kind == Z_TEXT_SHEET_CHECKBOX)
                checkbox(field, X0, F, &cx, &cy, &L, measure_only);
            else
                text_field(field, X0, F, &cx, &cy, &L, measure_only);
        }
        if (L != 0)
            cy += 10 + L;
        return std::max(B, cy);
    }

    int boxed_row(int y, z_text_sheet_row *item, int H, int F)
    {
        if (item == ctx->highlighted_row) {
            const int end = row(y, item, H, F, true);
            z_gfx_set_color_rgb(cr, 0xe0e0e0);
            cairo_rectangle(cr, 26, y + 1, W - 52, end - (y + 1));
            cairo_fill(cr);
            z_gfx_set_color_rgb(cr, black);
        }
        const int end = row(y, item, H, F, false);
        cairo_rectangle(cr, 25.5, y + 0.5, W - 51, (end - (y + 1)) + 1);
        cairo_stroke(cr);
        cairo_move_to(cr, 26 + H + 0.5, y + 1);
        cairo_rel_line_to(cr, 0, end - (y + 1));
        cairo_stroke(cr);
        record(&item->rect, 26, y + 1, W - 52, end - (y + 1));
        return end;
    }

    int block_header(int y, z_text_sheet_block *block)
    {
        if (block->header == nullptr && !ctx->editing)
            return y;
        const char *latin1 = block->header != nullptr ? shown(block->header) : "Untitled block";
        z_gfx_set_color_rgb(cr, block->header != nullptr ? black : grey);
        const text_size size = text(z_font_style::bold, latin1, 25.0, y - 5, (W - 50 - S_w) - I_w, false);
        z_gfx_set_color_rgb(cr, black);
        const int h = round_up(size.height);
        if (ctx->editing)
            draw_icon(S_w + std::ceil(size.width) + 25.0, (y - 4) + (h - int(I_h)) / 2);
        record(&block->rect, 25, y - 5, W - 50, h);
        return y - 5 + h + (block->rows.is_empty() ? 0 : S_h);
    }

    int block(int y, z_text_sheet_block *item)
    {
        y = block_header(y, item);
        int widest = 0;
        for (z_text_sheet_row *row : item->rows)
            widest = std::max(widest,
                              round_up(text(z_font_style::bold, shown(row->header), 0, 0, -1.0, true).width));
        const int H = std::max(std::min(widest + 20, (W - 50) / 3), 50);
        int R = (W - 50) - H - 3;
        if (R < I_w + 60.0)
            R = int(I_w) + 60;
        const int F = R - 20 - (ctx->editing ? int(I_w) + 10 : 0);
        for (z_text_sheet_row *row : item->rows)
            y = boxed_row(y, row, H, F);
        return y + 26;
    }

    int segment(int y, z_text_sheet_segment *item, bool show_untitled)
    {
        if (item->header != nullptr) {
            y = large_header(y, shown(item->header), &item->rect) + 25;
        } else if (ctx->editing && show_untitled) {
            z_gfx_set_color_rgb(cr, grey);
            y = large_header(y, "Untitled segment", &item->rect) + 25;
            z_gfx_set_color_rgb(cr, black);
        }
        for (z_text_sheet_block *child : item->blocks)
            y = block(y, child);
        return y;
    }

    int add_segments(int y)
    {
        const char *label = "Add segments";
        const text_size size = text(z_font_style::normal, label, 0, 0, (W - 50 - S_w) - I_w, true);
        const int x = W - 25 - round_up(size.width) - S_w - int(I_w);
        z_gfx_set_color_rgb(cr, grey);
        text(z_font_style::normal, label, x, y - 3, -1.0, false);
        z_gfx_set_color_rgb(cr, black);
        record(&form->add_segments_rect, x - 12, y - 15, round_up(size.width) + S_w + 25 + int(I_w),
               round_up(size.height) + 25);
        draw_icon((W - 25) - I_w, (y - 3) + (round_up(size.height) - int(I_h)) / 2 + 1);
        return y + 22 + round_up(size.height);
    }

    int separator(int y)
    {
        const double dashes[] = {1.0, 4.0};
        z_gfx_set_color_rgb(cr, grey);
        cairo_set_dash(cr, dashes, 2, 1.0);
        cairo_move_to(cr, 0, y + 0.5);
        cairo_line_to(cr, W, y + 0.5);
        cairo_stroke(cr);
        z_gfx_set_color_rgb(cr, black);
        cairo_set_dash(cr, nullptr, 0, 0);
        return y + 26;
    }

    int draw_basic_data(int y)
    {
        y = large_header(y, "Basic data", &form->tmpl->details.rect);
        return segment(y + 25, &form->tmpl->details, false);
    }

    int draw_report_type(int y)
    {
        int end = ctx->editing ? add_segments(y) : y;
        for (z_text_sheet_segment *item : form->report_type->segments) {
            if (!z_link_is_first(item))
                y = separator(end);
            end = segment(y, item, true);
        }
        return end;
    }

    const z_gfx_text_sheet_context *ctx;
    cairo_t *cr;
    z_gfx_form *form;
    int W;
    const z_gfx_image *icon;
    double I_w;
    double I_h;
    double scale = 1.0;
    z_font_description_ptr fonts[4];
    int S_w = 0;
    int S_h = 0;
};

} // namespace

int32_t bench_draw_plain_form(z_gfx_text_sheet_context *ctx, z_gfx_form *form, int32_t scroll)
{
    return plain_drawing(ctx, form).draw(scroll);
}
