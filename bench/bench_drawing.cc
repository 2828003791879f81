// How much less a form costs to draw than laying out and showing every text each time, and how little of the
// cost of a scroll step depends on what is not on the screen. A ratio is ours to the yardstick, which stands behind it.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "common/base/error.h"
#include "common/gui/gfx_form.h"
#include "common/gui/resources.h"
#include "common/model/template.h"
#include "common/workspace/settings.h"
#include "tests/support/reference_text_sheet.h"

namespace {

constexpr int width = 900;
constexpr int height = 700;

// Of the processor, so that other work on the machine counts less.
double seconds(const std::function<void()> &action)
{
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

z_langstr_ptr make_text(const std::string &english, const std::string &swedish)
{
    z_langstr_ptr langstr;
    z_langstr_set_translation(langstr, "en-uk", english.c_str());
    z_langstr_set_translation(langstr, "sv", swedish.c_str());
    return langstr;
}

z_text_sheet_row_ptr make_row(int index)
{
    static const char *const headers[] = {"Surface layer", "Support", "Frame and glazing",
                                          "Inscriptions and labels",
                                          "Previous treatments that have left traces"};
    const std::string number = std::to_string(index);
    z_text_sheet_row_ptr row =
        z_text_sheet_row_new(make_text(headers[index % 5] + (" " + number), "Rad " + number).get());
    if (index % 3 == 0) {
        for (const char *label : {"Good", "Worn", "Damaged", "Not examined"}) {
            z_text_sheet_field_ptr field = z_text_sheet_field_new(Z_TEXT_SHEET_CHECKBOX);
            z_text_sheet_field_set_text(field.get(), make_text(label, label));
            z_text_sheet_row_add_field(row.get(), std::move(field));
        }
    }
    z_text_sheet_row_add_field(row.get(), z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
    return row;
}

// Segments of five blocks of twenty rows.
z_template_report_type_ptr make_report_type(int row_count)
{
    z_template_report_type_ptr report_type = z_template_report_type_new(make_text("Report", "Rapport").get());
    for (int index = 0; index < row_count; ++index) {
        if (index % 100 == 0)
            z_template_report_type_add_segment(
                report_type.get(), z_text_sheet_segment_new(make_text("Segment", "Segment").get()));
        z_text_sheet_segment *segment = report_type->segments.get_last();
        if (index % 20 == 0)
            z_text_sheet_segment_add_block(segment,
                                           z_text_sheet_block_new(make_text("Block", "Block").get()));
        z_text_sheet_block_add_row(segment->blocks.get_last(), make_row(index));
    }
    return report_type;
}

// A form in a window, drawn as the editor draws it: first the height, for the scroll bar, then the form.
class bench_form {
public:
    explicit bench_form(int row_count)
        : report_type(make_report_type(row_count)),
          surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height)),
          cr(cairo_create(surface.get()))
    {
        z_settings_add_preferred_language(&settings, z_settings_language_new("en-uk"));
        ctx.settings = &settings;
        ctx.cr = cr.get();
        ctx.width = width;
        ctx.record_rects = true;
        ctx.editing = true;
        form.report_type = report_type.get();
    }

    void forget_sizes()
    {
        report_type = z_template_report_type_clone(report_type.get());
        form.report_type = report_type.get();
    }
    void draw(int scroll)
    {
        content_height = z_gfx_form_get_height(&ctx, &form);
        z_gfx_form_draw(&ctx, &form, scroll);
    }
    void draw_plainly(int scroll)
    {
        reference_form_draw(&ctx, &form, scroll);
    }
    // The median of many steps through the middle of the form.
    double time_scroll_step()
    {
        draw(0);
        std::vector<double> times;
        for (int step = 0; step < 51; ++step)
            times.push_back(seconds([&] { draw(content_height / 2 + 70 * step); }));
        return median(times);
    }
    // The median of scroll steps that each follow a new header for one row that is on the screen.
    double time_edit(const std::string &header)
    {
        draw(0);
        std::vector<double> times;
        for (int step = 0; step < 51; ++step) {
            const int scroll = content_height / 2 + 70 * step;
            draw(scroll);
            const z_gfx_form_hit hit = find_visible_row();
            times.push_back(seconds([&] {
                z_text_sheet_row_set_header(hit.row, make_text(header + std::to_string(step), "Rad"));
                draw(scroll);
            }));
        }
        return median(times);
    }

private:
    z_gfx_form_hit find_visible_row() const
    {
        for (int y = height / 2; y < height; ++y) {
            const z_gfx_form_hit hit = z_gfx_form_hit_test(&form, width / 2, y);
            if (hit.row != nullptr)
                return hit;
        }
        return {};
    }

    z_settings settings;
    z_template_report_type_ptr report_type;
    z_cairo_surface_ptr surface;
    z_cairo_ptr cr;
    z_gfx_text_sheet_context ctx;
    z_gfx_form form;
    int content_height = 0;
};

double time_plain_draw(bench_form *form)
{
    std::vector<double> times;
    for (int run = 0; run < 3; ++run)
        times.push_back(seconds([form, run] { form->draw_plainly(1000 * run); }));
    return median(times);
}

double time_first_draw(bench_form *form)
{
    std::vector<double> times;
    for (int run = 0; run < 3; ++run) {
        form->forget_sizes();
        times.push_back(seconds([form] { form->draw(0); }));
    }
    return median(times);
}

} // namespace

int main()
{
    if (!z_resources_open() || !z_resources_load_shared_images()) {
        std::fprintf(stderr, "%s\n", z_error_get());
        return EXIT_FAILURE;
    }
    bench_form small(1000);
    bench_form middle(10000);
    bench_form large(100000);

    const double plain = time_plain_draw(&middle);
    const double first = time_first_draw(&middle);
    const double small_plain = time_plain_draw(&small);
    const double small_first = time_first_draw(&small);
    const double small_step = small.time_scroll_step();
    const double middle_step = middle.time_scroll_step();
    const double large_step = large.time_scroll_step();
    const double edit = middle.time_edit("Renamed ");
    const double widening = middle.time_edit("Renamed to what is now the widest header of its block ");

    const auto print = [](const char *name, double ours, double yardstick, double bound) {
        return bench_print(name, {ours / yardstick, ours * 1e3, yardstick * 1e3}, bound, "ms");
    };
    // At least 300 times faster.
    bool success = print("draw-scroll-step-10000", middle_step, plain, 1.0 / 300.0);
    success &= print("draw-scroll-step-100000-to-1000", large_step, small_step, 10.0);
    success &= print("draw-first-10000", first, plain, 0.75);
    success &= print("draw-first-1000", small_first, small_plain, 0.75);
    success &= print("draw-edit-10000-to-scroll-step", edit, middle_step, 2.0);
    success &= print("draw-widening-edit-to-scroll-step", widening, middle_step, 2.0);
    return success ? EXIT_SUCCESS : EXIT_FAILURE;
}
