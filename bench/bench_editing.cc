// What it costs to change a form through its menus and to open the windows of the editor.

#include <cstdio>
#include <cstdlib>

#include <gtk/gtk.h>

#include "app/application.h"
#include "app/editing_window.h"
#include "app/template_gui.h"
#include "app/text_sheet_action.h"
#include "app/text_sheet_fields_gui.h"
#include "bench/measure.h"
#include "bench/sample_form.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/gui/langstr_window.h"
#include "common/gui/resources.h"
#include "common/gui/window_stack.h"
#include "common/model/supported_languages.h"
#include "common/model/template_io.h"

static std::string next_header;

// The windows that menu entries open, as if answered at once.
static bool enter_header(const z_text_sheet_target *, const char *, bool, z_langstr_ptr &header)
{
    header = bench_make_text(next_header, "Rad");
    return true;
}

static bool say_yes(const z_text_sheet_target *, const char *)
{
    return true;
}

static bool replace_last_field(const z_text_sheet_target *target)
{
    z_text_sheet_field_ptr field = z_text_sheet_field_new(Z_TEXT_SHEET_CHECKBOX);
    z_text_sheet_field_set_text(field.get(), bench_make_text(next_header, "Kryssruta"));
    z_text_sheet_field_remove(target->row->fields.get_last()).reset();
    z_text_sheet_row_add_field(target->row, std::move(field));
    return true;
}

struct menu_case {
    const char *name;
    z_text_sheet_action action;
    bool on_block;
    const char *header;
};

static const menu_case menu_cases[] = {
    {"edit-rename-row", z_text_sheet_action::edit_row_header, false, "Renamed"},
    {"edit-rename-row-to-widest", z_text_sheet_action::edit_row_header, false,
     "Renamed to what is now the widest header of its block"},
    {"edit-add-row", z_text_sheet_action::add_row_below, false, "Added"},
    {"edit-delete-row", z_text_sheet_action::delete_row, false, ""},
    {"edit-move-row", z_text_sheet_action::move_row_down, false, ""},
    {"edit-set-up-fields", z_text_sheet_action::set_up_fields, false, "Replaced"},
    {"edit-rename-block", z_text_sheet_action::edit_block_header, true, "Renamed"},
    {"edit-add-block", z_text_sheet_action::add_block_below, true, "Added"},
    {"edit-delete-block", z_text_sheet_action::delete_block, true, ""},
    {"edit-move-block", z_text_sheet_action::move_block_down, true, ""},
};

static bool compare_menu_actions()
{
    bool success = true;
    z_text_sheet_action_dialogs = {enter_header, say_yes, replace_last_field, nullptr};
    for (const menu_case &test : menu_cases) {
        bench_form form(10000);
        const double step = form.time_scroll_step();
        int count = 0;
        const double edit = form.time_edit([&](const z_gfx_form_hit &hit) {
            next_header = test.header + (" " + std::to_string(count++));
            const z_text_sheet_target target = {nullptr,
                                                nullptr,
                                                nullptr,
                                                nullptr,
                                                hit.segment,
                                                hit.block,
                                                test.on_block ? nullptr : hit.row};
            (void)z_text_sheet_action_run(&target, test.action);
        });
        success &= bench_print(test.name, {edit / step, edit * 1e3, step * 1e3}, 2.0, "ms");
    }
    return success;
}

// A window's time ends when it has been drawn; then it is closed.
struct opening {
    double seconds;
};

static GtkWidget *find_window()
{
    const z_ptr<GList, g_list_free> windows(gtk_window_list_toplevels());
    for (const GList *item = windows.get(); item != nullptr; item = item->next) {
        if (gtk_widget_get_mapped(GTK_WIDGET(item->data)))
            return GTK_WIDGET(item->data);
    }
    return nullptr;
}

static gboolean close_callback(gpointer data) noexcept
{
    gtk_widget_destroy(GTK_WIDGET(data));
    return G_SOURCE_REMOVE;
}

static gboolean draw_callback(GtkWidget *window, cairo_t *, gpointer data) noexcept
{
    auto *self = static_cast<opening *>(data);
    if (self->seconds < 0.0) {
        self->seconds = bench_get_time();
        g_idle_add(close_callback, window);
    }
    return FALSE;
}

// Comes before anything that the main loop draws.
static gboolean watch_callback(gpointer data) noexcept
{
    GtkWidget *window = find_window();
    if (window != nullptr)
        g_signal_connect_after(window, "draw", G_CALLBACK(draw_callback), data);
    return window == nullptr;
}

// The median, in seconds, of running the window until it is drawn.
static double time_opening(const std::function<void()> &run)
{
    std::vector<double> times;
    for (int round = 0; round < 5; ++round) {
        opening self = {-1.0};
        g_idle_add_full(G_PRIORITY_HIGH, watch_callback, &self, nullptr);
        const double start = bench_get_time();
        run();
        times.push_back(self.seconds - start);
    }
    return bench_median(times);
}

static z_template_ptr make_template(int row_count)
{
    z_template_ptr tmpl = z_template_new();
    tmpl->name = bench_make_text("Template", "Mall");
    z_template_add_report_type(tmpl.get(), bench_make_report_type(row_count));
    for (const z_text_sheet_segment *segment : tmpl->report_types.get_first()->segments)
        z_text_sheet_segment_copy_contents(&tmpl->details, segment);
    return tmpl;
}

static z_text_sheet_row_ptr make_row_with_fields(int field_count)
{
    z_text_sheet_row_ptr row = z_text_sheet_row_new(bench_make_text("Row", "Rad").get());
    for (int index = 0; index < field_count; ++index) {
        z_text_sheet_field_ptr field = z_text_sheet_field_new(Z_TEXT_SHEET_CHECKBOX);
        z_text_sheet_field_set_text(field.get(),
                                    bench_make_text("Checkbox " + std::to_string(index), "Ruta"));
        z_text_sheet_row_add_field(row.get(), std::move(field));
    }
    return row;
}

static z_langstr_ptr make_text_in_every_language()
{
    z_langstr_ptr text;
    for (int index = 0; index < z_supported_languages_get_count(); ++index)
        z_langstr_set_translation(text, z_supported_languages_get_tag(index),
                                  ("Text " + std::to_string(index)).c_str());
    return text;
}

// The yardstick is a plain draw of a form of 1,000 rows.
static bool compare_openings()
{
    const z_window_stack_ptr stack = z_window_stack_new();
    z_settings settings;
    z_settings_add_preferred_language(&settings, z_settings_language_new("en-uk"));
    z_application_context context = {stack.get(), nullptr, &settings};
    const double plain = bench_form(1000).time_plain_draw();
    const auto compare = [plain](const char *name, double bound, const std::function<void()> &run) {
        const double ours = time_opening(run);
        return bench_print(name, {ours / plain, ours * 1e3, plain * 1e3}, bound, "ms");
    };

    const z_template_ptr tmpl = make_template(1000);
    const z_utf8_ptr path(g_strdup_printf("%s/bench-%u.template", g_get_tmp_dir(), g_random_int()));
    if (!z_template_io_write_to_file(tmpl.get(), path.get())) {
        std::fprintf(stderr, "%s\n", z_error_get());
        return false;
    }
    bool success = compare("open-template-1000-rows", 3.0, [&] { run_editing_window(&context, path.get()); });
    (void)z_fs_utils_delete_file_if_exists(path.get());
    const z_text_sheet_row_ptr row = make_row_with_fields(200);
    success &= compare("open-fields-200", 1.0,
                       [&] { (void)z_text_sheet_fields_gui_run(stack.get(), &settings, row.get()); });
    const z_template_ptr source = make_template(20000);
    success &= compare("open-picker-1000-blocks", 1.0, [&] {
        (void)z_template_gui_block_window_run(stack.get(), &settings, &source->details,
                                              Z_TEMPLATE_GUI_BASIC_DATA_BLOCK);
    });
    z_langstr_ptr text = make_text_in_every_language();
    success &= compare("open-text-every-language", 8.0, [&] {
        (void)z_langstr_window_run(stack.get(), settings.preferred_languages, text, {.label = "Text"});
    });
    return success;
}

int main(int argument_count, char **arguments)
{
    gtk_init(&argument_count, &arguments);
    if (!z_resources_open() || !z_resources_load_shared_images()) {
        std::fprintf(stderr, "%s\n", z_error_get());
        return EXIT_FAILURE;
    }
    bool success = compare_menu_actions();
    success &= compare_openings();
    return success ? EXIT_SUCCESS : EXIT_FAILURE;
}
