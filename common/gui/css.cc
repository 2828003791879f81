#include "common/gui/css.h"

// With a handler connected the toolkit is silent about every fault.
static void parsing_error_callback(GtkCssProvider *, GtkCssSection *section, GError *error, gpointer) noexcept
{
    if (!g_error_matches(error, GTK_CSS_PROVIDER_ERROR, GTK_CSS_PROVIDER_ERROR_DEPRECATED))
        g_warning("Style rule, line %u: %s", gtk_css_section_get_start_line(section) + 1, error->message);
}

z_ref<GtkCssProvider> z_css_create_provider(const char *text)
{
    z_ref<GtkCssProvider> provider = z_take(gtk_css_provider_new());
    g_signal_connect(provider.get(), "parsing-error", G_CALLBACK(parsing_error_callback), nullptr);
    gtk_css_provider_load_from_data(provider.get(), text, -1, nullptr);
    return provider;
}

void z_css_style_widget_with_provider(GtkWidget *widget, GtkCssProvider *provider)
{
    gtk_style_context_add_provider(gtk_widget_get_style_context(widget), GTK_STYLE_PROVIDER(provider),
                                   GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
}

void z_css_style_widget(GtkWidget *widget, const char *text)
{
    z_css_style_widget_with_provider(widget, z_css_create_provider(text).get());
}
