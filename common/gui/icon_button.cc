#include "common/gui/icon_button.h"

#include "common/gui/gui_style.h"
#include "common/gui/resources.h"

struct _ZIconButton {
    GtkButton parent_instance;
};

G_DEFINE_FINAL_TYPE(ZIconButton, z_icon_button, GTK_TYPE_BUTTON)

static void z_icon_button_class_init(ZIconButtonClass *) {}

static void z_icon_button_init(ZIconButton *) {}

// Small images get some room around them, so that their buttons are as high as others.
static GtkWidget *create_image(const z_gfx_image *image, bool has_label, int scale)
{
    GtkWidget *widget = gtk_image_new_from_surface(z_gfx_image_get_surface(image, scale));
    if (image->height == 16) {
        const int extra_width = has_label ? 4 : 4 + 4;
        gtk_widget_set_size_request(widget, static_cast<int>(image->width) + extra_width, 24);
    }
    return widget;
}

GtkWidget *z_icon_button_new(const char *member_name, const char *label)
{
    auto *self = static_cast<ZIconButton *>(g_object_new(Z_TYPE_ICON_BUTTON, nullptr));
    GtkButton *button = GTK_BUTTON(self);
    if (label != nullptr)
        gtk_button_set_label(button, label);
    if (const z_gfx_image_ptr image = z_resources_load_image(member_name)) {
        gtk_button_set_image(button, create_image(image.get(), label != nullptr,
                                                  gtk_widget_get_scale_factor(GTK_WIDGET(self))));
        gtk_button_set_always_show_image(button, TRUE);
        z_gui_style_normalize_button_padding(GTK_WIDGET(self));
    }
    gtk_widget_show(GTK_WIDGET(self));
    return GTK_WIDGET(self);
}
