#pragma once

// The forms that the benchmarks draw and change, of any size.

#include <functional>
#include <string>

#include "common/gui/gfx_form.h"
#include "common/model/template.h"
#include "common/workspace/settings.h"

z_langstr_ptr bench_make_text(const std::string &english, const std::string &swedish);
// Segments of five blocks of twenty rows. One row in three has four checkboxes; each has a text field.
z_template_report_type_ptr bench_make_report_type(int row_count);

// A form in a window, drawn as the editor draws it: first the height, for the scroll bar, then the form.
class bench_form {
public:
    explicit bench_form(int row_count);
    void forget_sizes();
    void draw(int scroll);
    void draw_plainly(int scroll);
    // The medians, in seconds: of plain draws, of steps through the middle of the form, and of changes to
    // what is in the middle of the window there, each drawn.
    double time_plain_draw();
    double time_scroll_step();
    double time_edit(const std::function<void(const z_gfx_form_hit &hit)> &edit);

private:
    z_gfx_form_hit find_visible_row() const;

    z_settings settings;
    z_template_report_type_ptr report_type;
    z_cairo_surface_ptr surface;
    z_cairo_ptr cr;
    z_gfx_text_sheet_context ctx;
    z_gfx_form form;
    int content_height = 0;
};
