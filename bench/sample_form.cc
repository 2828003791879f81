#include "bench/sample_form.h"

#include "bench/measure.h"
#include "bench/plain_form.h"

static constexpr int width = 900;
static constexpr int height = 700;

z_langstr_ptr bench_make_text(const std::string &english, const std::string &swedish)
{
    z_langstr_ptr langstr;
    z_langstr_set_translation(langstr, "en-uk", english.c_str());
    z_langstr_set_translation(langstr, "sv", swedish.c_str());
    return langstr;
}

static z_text_sheet_row_ptr make_row(int index)
{
    static const char *const headers[] = {"Surface layer", "Support", "Frame and glazing",
                                          "Inscriptions and labels",
                                          "Previous treatments that have left traces"};
    const std::string number = std::to_string(index);
    z_text_sheet_row_ptr row =
        z_text_sheet_row_new(bench_make_text(headers[index % 5] + (" " + number), "Rad " + number).get());
    if (index % 3 == 0) {
        for (const char *label : {"Good", "Worn", "Damaged", "Not examined"}) {
            z_text_sheet_field_ptr field = z_text_sheet_field_new(Z_TEXT_SHEET_CHECKBOX);
            z_text_sheet_field_set_text(field.get(), bench_make_text(label, label));
            z_text_sheet_row_add_field(row.get(), std::move(field));
        }
    }
    z_text_sheet_row_add_field(row.get(), z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
    return row;
}

z_template_report_type_ptr bench_make_report_type(int row_count)
{
    z_template_report_type_ptr report_type =
        z_template_report_type_new(bench_make_text("Report", "Rapport").get());
    for (int index = 0; index < row_count; ++index) {
        if (index % 100 == 0)
            z_template_report_type_add_segment(
                report_type.get(), z_text_sheet_segment_new(bench_make_text("Segment", "Segment").get()));
        z_text_sheet_segment *segment = report_type->segments.get_last();
        if (index % 20 == 0)
            z_text_sheet_segment_add_block(segment,
                                           z_text_sheet_block_new(bench_make_text("Block", "Block").get()));
        z_text_sheet_block_add_row(segment->blocks.get_last(), make_row(index));
    }
    return report_type;
}

bench_form::bench_form(int row_count)
    : report_type(bench_make_report_type(row_count)),
      surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)), cr(cairo_create(surface.get()))
{
    z_settings_add_preferred_language(&settings, z_settings_language_new("en-uk"));
    ctx.settings = &settings;
    ctx.cr = cr.get();
    ctx.width = width;
    ctx.record_rects = true;
    ctx.editing = true;
    form.report_type = report_type.get();
}

void bench_form::forget_sizes()
{
    report_type = z_template_report_type_clone(report_type.get());
    form.report_type = report_type.get();
}

void bench_form::draw(int scroll)
{
    content_height = z_gfx_form_get_height(&ctx, &form);
    z_gfx_form_draw(&ctx, &form, scroll);
}

void bench_form::draw_plainly(int scroll)
{
    bench_draw_plain_form(&ctx, &form, scroll);
}

double bench_form::time_plain_draw()
{
    std::vector<double> times;
    for (int run = 0; run < 3; ++run)
        times.push_back(bench_seconds([this, run] { draw_plainly(1000 * run); }));
    return bench_median(times);
}

double bench_form::time_scroll_step()
{
    draw(0);
    std::vector<double> times;
    for (int step = 0; step < 51; ++step)
        times.push_back(bench_seconds([&] { draw(content_height / 2 + 70 * step); }));
    return bench_median(times);
}

double bench_form::time_edit(const std::function<void(const z_gfx_form_hit &hit)> &edit)
{
    draw(0);
    std::vector<double> times;
    for (int step = 0; step < 51; ++step) {
        const int scroll = content_height / 2 + height * step;
        draw(scroll);
        const z_gfx_form_hit hit = find_visible_row();
        times.push_back(bench_seconds([&] {
            edit(hit);
            draw(scroll);
        }));
    }
    return bench_median(times);
}

z_gfx_form_hit bench_form::find_visible_row() const
{
    for (int y = height / 2; y < height; ++y) {
        const z_gfx_form_hit hit = z_gfx_form_hit_test(&form, width / 2, y);
        if (hit.row != nullptr)
            return hit;
    }
    return {};
}
