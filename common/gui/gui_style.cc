#include "common/gui/gui_style.h"

#include "common/gui/css.h"

static const char image_and_label_class[] = "zanvel-image-and-label-button";
static const char image_only_class[] = "zanvel-image-only-button";

// Made on first use, released together.
static struct {
    z_ref<GtkCssProvider> hscale;
    z_ref<GtkCssProvider> selected_menu_item;
    z_ref<GtkCssProvider> transparent_image;
    z_ref<GtkCssProvider> image_and_label_button;
    z_ref<GtkCssProvider> image_only_button;
} providers;

static void style_with_cached_provider(GtkWidget *widget, z_ref<GtkCssProvider> &provider, const char *text)
{
    if (!provider)
        provider = z_css_create_provider(text);
    z_css_style_widget_with_provider(widget, provider.get());
}

void z_gui_style_hscale(GtkWidget *scale)
{
    style_with_cached_provider(scale, providers.hscale,
                               "scale { padding: 0px 8px 0px 5px; } contents { padding: 0px 0px 0px 10px; }");
}

void z_gui_style_selected_menu_item(GtkWidget *item)
{
    style_with_cached_provider(item, providers.selected_menu_item,
                               "menuitem { background-color: #808080; color: #ffffff; }");
}

void z_gui_style_transparent_image(GtkWidget *image)
{
    style_with_cached_provider(image, providers.transparent_image, "image { opacity: 0.5; }");
}

// The theme's padding as it is on a plain button.
static GtkBorder measure_button_padding()
{
    const z_ref<GtkWidget> button = z_sink(gtk_button_new_with_label("Dummy"));
    GtkStyleContext *style = gtk_widget_get_style_context(button.get());
    GtkBorder padding;
    gtk_style_context_get_padding(style, gtk_style_context_get_state(style), &padding);
    return padding;
}

static void create_button_providers()
{
    const GtkBorder padding = measure_button_padding();
    const int top = padding.top;
    const int right = padding.right;
    const z_utf8_ptr image_and_label(
        g_strdup_printf(".%s { padding: %dpx %dpx %dpx %dpx; -GtkButton-image-spacing: %dpx; }",
                        image_and_label_class, top, right, top, top, right - 3));
    const z_utf8_ptr image_only(g_strdup_printf(".%s { padding: %dpx; }", image_only_class, top));
    providers.image_and_label_button = z_css_create_provider(image_and_label.get());
    providers.image_only_button = z_css_create_provider(image_only.get());
}

void z_gui_style_normalize_button_padding(GtkWidget *button)
{
    if (gtk_button_get_image(GTK_BUTTON(button)) == nullptr)
        return;
    if (!providers.image_only_button)
        create_button_providers();
    const bool has_label = gtk_button_get_label(GTK_BUTTON(button)) != nullptr;
    z_css_style_widget_with_provider(
        button, (has_label ? providers.image_and_label_button : providers.image_only_button).get());
    gtk_style_context_add_class(gtk_widget_get_style_context(button),
                                has_label ? image_and_label_class : image_only_class);
}

void z_gui_style_clean_up()
{
    providers = {};
}
