#pragma once

// The widget that shows one form of a template: the basic data, or the segments of one report type. It is
// scrollable by itself (GtkScrollable) and draws only what is on the screen.
//
// The context and everything below the template are borrowed and must outlive the widget.

#include <gtk/gtk.h>

struct z_application_context;
struct z_template;
struct z_template_report_type;

G_DECLARE_FINAL_TYPE(TextSheetEditor, text_sheet_editor, TEXT_SHEET, EDITOR, GtkWidget)

[[nodiscard]] GtkWidget *text_sheet_editor_new_for_basic_data(z_application_context *context,
                                                              z_template *tmpl);
[[nodiscard]] GtkWidget *text_sheet_editor_new_for_report_type(z_application_context *context,
                                                               z_template *tmpl,
                                                               z_template_report_type *report_type);

// Null for the basic data.
[[nodiscard]] z_template_report_type *text_sheet_editor_get_report_type(TextSheetEditor *editor);
