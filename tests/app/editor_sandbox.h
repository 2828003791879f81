#pragma once

// An editor of one form on the screen, and the same form drawn by itself, which has to look and lie the same.

#include <string>

#include "app/text_sheet_editor.h"
#include "common/gui/gfx_form.h"
#include "common/gui/gtk_handles.h"
#include "common/gui/gui_font.h"
#include "common/model/template_io.h"
#include "tests/support/workspace_sandbox.h"

struct EditorSandboxTest : WorkspaceSandboxTest {
    ~EditorSandboxTest() override
    {
        close();
    }

    // Reads the basic data and the only report type.
    void load(const std::string &blocks, const std::string &segments)
    {
        const std::string details = "<details>" + blocks + "</details>";
        const std::string file = print_template("N", details, print_report_type("R", segments));
        tmpl = z_template_io_read_from_file(write_file("x.template", file).c_str());
        report_type = tmpl->report_types.get_first();
    }
    void show(bool is_basic_data, int width, int height)
    {
        close();
        shown = is_basic_data ? nullptr : report_type;
        editor = is_basic_data ? text_sheet_editor_new_for_basic_data(&context, tmpl.get())
                               : text_sheet_editor_new_for_report_type(&context, tmpl.get(), report_type);
        g_object_set(editor, "hadjustment", hadjustment.get(), "vadjustment", vadjustment.get(), nullptr);
        window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
        gtk_window_set_default_size(GTK_WINDOW(window), width, height);
        gtk_container_add(GTK_CONTAINER(window), editor);
        gtk_widget_show(editor);
        z_window_stack_push_window(stack.get(), window);
        show_and_wait_for_draw(window);
    }
    void close()
    {
        if (window != nullptr)
            gtk_widget_destroy(window);
        window = nullptr;
    }

    // Draws the form as the editor shows it now; returns its height. The elements' places are then known.
    int draw_form(cairo_t *cr)
    {
        const z_font_description_ptr font = z_gui_get_font_description(editor, z_font_style::normal, 12.0);
        z_gfx_text_sheet_context ctx;
        ctx.settings = context.settings;
        ctx.base_font = font.get();
        ctx.font_resolution = gdk_screen_get_resolution(gtk_widget_get_screen(editor));
        ctx.cr = cr;
        ctx.width = gtk_widget_get_allocated_width(editor);
        ctx.editing = ctx.record_rects = true;
        form = {tmpl.get(), shown, {}, {}};
        return z_gfx_form_draw(&ctx, &form, static_cast<int>(gtk_adjustment_get_value(vadjustment.get())));
    }

    z_template_ptr tmpl;
    z_template_report_type *report_type = nullptr;
    z_template_report_type *shown = nullptr;
    z_gfx_form form;
    const z_ref<GtkAdjustment> hadjustment = z_sink(gtk_adjustment_new(7, 0, 9, 1, 1, 1));
    const z_ref<GtkAdjustment> vadjustment = z_sink(gtk_adjustment_new(0, 0, 9, 1, 1, 1));
    GtkWidget *window = nullptr;
    GtkWidget *editor = nullptr;
};
