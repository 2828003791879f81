#pragma once

// The tab of a report type in the editing window's notebook: its name, and the icon that opens its menu.

#include <gtk/gtk.h>

struct z_application_context;
struct z_template_report_type;

// The report type of a page; null for the basic data. A page is a scrolled window around a TextSheetEditor.
[[nodiscard]] z_template_report_type *report_type_tab_get_report_type(GtkWidget *page);

// Gives a page of the notebook, already appended, the tab of its report type. The context is borrowed and
// outlives the notebook. Erasing through the menu takes the page away and then destroys the report type.
void report_type_tab_attach(z_application_context *context, GtkWidget *notebook, GtkWidget *page);
