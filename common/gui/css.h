#pragma once

// Style rules for single widgets. They hold for the widget itself, not for its children, and stand above the
// theme.

#include <gtk/gtk.h>

#include "common/base/handles.h"

// A rule that the toolkit calls deprecated is accepted silently; any other fault in the text is a warning.
[[nodiscard]] z_ref<GtkCssProvider> z_css_create_provider(const char *text);
void z_css_style_widget_with_provider(GtkWidget *widget, GtkCssProvider *provider);
// For rules that only one widget has.
void z_css_style_widget(GtkWidget *widget, const char *text);
