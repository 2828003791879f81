#include "common/gui/generic_picker.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "common/gui/gui.h"
#include "common/gui/gui_menu.h"
#include "common/gui/gui_style.h"

// What the button says follows from the options and the current index alone. Button and label are null once
// the picker is destroyed.

struct z_generic_picker_impl {
    std::vector<gpointer> options;
    z_utf8_ptr no_options_text;
};

struct ZGenericPickerPrivate {
    z_generic_picker_option_destroy destroy_callback;
    z_generic_picker_option_text text_callback;
    gpointer text_data;
    int current_index;
    GtkWidget *button;
    GtkWidget *label;
    gulong clicked_id;
    z_generic_picker_impl *impl;
};

G_DEFINE_TYPE_WITH_PRIVATE(ZGenericPicker, z_generic_picker, GTK_TYPE_BIN)

enum { signal_picked, signal_count };
static guint signals[signal_count];

// Stands in the list of options where the menu has a separator.
static char separator_mark;
static const gpointer separator = &separator_mark;

static ZGenericPickerPrivate *get_private(ZGenericPicker *self)
{
    return static_cast<ZGenericPickerPrivate *>(z_generic_picker_get_instance_private(self));
}

static bool is_option(ZGenericPicker *self, int index)
{
    const std::vector<gpointer> &options = get_private(self)->impl->options;
    return index >= 0 && static_cast<size_t>(index) < options.size() &&
           options[static_cast<size_t>(index)] != separator;
}

// Null if the option has no text.
static z_utf8_ptr get_option_text(ZGenericPicker *self, int index)
{
    const ZGenericPickerPrivate *own = get_private(self);
    if (own->text_callback == nullptr)
        return nullptr;
    return own->text_callback(index, z_generic_picker_get_option_at_index(self, index), own->text_data);
}

static void update_button(ZGenericPicker *self)
{
    const ZGenericPickerPrivate *own = get_private(self);
    if (own->button == nullptr)
        return;
    const bool is_empty = own->impl->options.empty();
    const z_utf8_ptr text =
        is_option(self, own->current_index) ? get_option_text(self, own->current_index) : nullptr;
    const char *shown = is_empty ? own->impl->no_options_text.get() : text.get();
    gtk_label_set_text(GTK_LABEL(own->label), shown != nullptr ? shown : "");
    gtk_widget_set_sensitive(own->button, !is_empty);
}

// The menu

static void item_activate_callback(GtkMenuItem *item, gpointer data) noexcept
{
    auto *self = static_cast<ZGenericPicker *>(data);
    const int index = z_gui_menu_get_item_data(item);
    z_generic_picker_set_current_option_index(self, index);
    g_signal_emit(self, signals[signal_picked], 0, index);
}

static void append_option(ZGenericPicker *self, GtkWidget *menu, int index)
{
    const z_utf8_ptr text = get_option_text(self, index);
    GtkWidget *item = z_gui_menu_append_item_with_activate_callback(
        menu, text ? text.get() : "", index, z_menu_item::sensitive, item_activate_callback, self);
    if (index == get_private(self)->current_index)
        z_gui_style_selected_menu_item(item);
}

static GtkWidget *create_menu(ZGenericPicker *self)
{
    GtkWidget *menu = gtk_menu_new();
    const int count = static_cast<int>(get_private(self)->impl->options.size());
    for (int index = 0; index < count; ++index) {
        if (is_option(self, index))
            append_option(self, menu, index);
        else
            z_gui_menu_append_separator(menu);
    }
    return menu;
}

// Setting the button inactive emits "clicked" again.
static void clicked_callback(GtkButton *button, gpointer data) noexcept
{
    if (!gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(button)))
        return;
    auto *self = static_cast<ZGenericPicker *>(data);
    const z_ref<ZGenericPicker> held = z_share(self);
    z_gui_menu_run_and_destroy(create_menu(self), GTK_WIDGET(button));
    if (GtkWidget *remaining_button = get_private(self)->button)
        gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(remaining_button), FALSE);
}

// The class

static void grab_focus(GtkWidget *widget) noexcept
{
    if (GtkWidget *button = get_private(Z_GENERIC_PICKER(widget))->button)
        gtk_widget_grab_focus(button);
}

static void destroy(GtkWidget *widget) noexcept
{
    ZGenericPickerPrivate *own = get_private(Z_GENERIC_PICKER(widget));
    if (own->button != nullptr)
        g_clear_signal_handler(&own->clicked_id, own->button);
    own->button = own->label = nullptr;
    for (gpointer option : std::exchange(own->impl->options, {})) {
        if (option != separator && option != nullptr && own->destroy_callback != nullptr)
            own->destroy_callback(option);
    }
    GTK_WIDGET_CLASS(z_generic_picker_parent_class)->destroy(widget);
}

static void finalize(GObject *object) noexcept
{
    delete get_private(Z_GENERIC_PICKER(object))->impl;
    G_OBJECT_CLASS(z_generic_picker_parent_class)->finalize(object);
}

static void z_generic_picker_class_init(ZGenericPickerClass *klass)
{
    G_OBJECT_CLASS(klass)->finalize = finalize;
    auto *widget_class = GTK_WIDGET_CLASS(klass);
    widget_class->destroy = destroy;
    widget_class->grab_focus = grab_focus;
    signals[signal_picked] = g_signal_new("picked", Z_TYPE_GENERIC_PICKER, G_SIGNAL_RUN_LAST, 0, nullptr,
                                          nullptr, nullptr, G_TYPE_NONE, 1, G_TYPE_INT);
}

// A long option ends in an ellipsis; the menu has it whole.
static GtkWidget *pack_option_label(GtkWidget *box)
{
    GtkWidget *label = z_gui_place_in_box(box, z_expand::yes, z_gui_create_label("", 0, 0.5));
    gtk_label_set_ellipsize(GTK_LABEL(label), PANGO_ELLIPSIZE_END);
    gtk_label_set_max_width_chars(GTK_LABEL(label), 40);
    return label;
}

static void z_generic_picker_init(ZGenericPicker *self)
{
    ZGenericPickerPrivate *own = get_private(self);
    own->impl = new z_generic_picker_impl;
    own->current_index = -1;
    own->button = z_gui_add_toggle_button(GTK_WIDGET(self), nullptr);
    GtkWidget *box = z_gui_add_hbox(own->button, z_spacing::normal);
    own->label = pack_option_label(box);
    GtkWidget *arrow = z_gui_pack_image_from_icon_name(box, "pan-down-symbolic", GTK_ICON_SIZE_BUTTON);
    gtk_widget_set_margin_start(arrow, 3);
    own->clicked_id = g_signal_connect(own->button, "clicked", G_CALLBACK(clicked_callback), self);
    update_button(self);
    gtk_widget_show(GTK_WIDGET(self));
}

GtkWidget *z_generic_picker_new()
{
    return static_cast<GtkWidget *>(g_object_new(Z_TYPE_GENERIC_PICKER, nullptr));
}

void z_generic_picker_set_option_text_callback(ZGenericPicker *self, z_generic_picker_option_text callback,
                                               gpointer user_data)
{
    ZGenericPickerPrivate *own = get_private(self);
    own->text_callback = callback;
    own->text_data = user_data;
    update_button(self);
}

void z_generic_picker_set_option_destroy_callback(ZGenericPicker *self,
                                                  z_generic_picker_option_destroy callback)
{
    get_private(self)->destroy_callback = callback;
}

int z_generic_picker_add_option(ZGenericPicker *self, gpointer option)
{
    std::vector<gpointer> &options = get_private(self)->impl->options;
    options.push_back(option);
    update_button(self);
    return static_cast<int>(options.size()) - 1;
}

void z_generic_picker_add_separator(ZGenericPicker *self)
{
    z_generic_picker_add_option(self, separator);
}

void z_generic_picker_set_no_options_text(ZGenericPicker *self, const char *text_utf8)
{
    get_private(self)->impl->no_options_text.reset(g_strdup(text_utf8));
    update_button(self);
}

gpointer z_generic_picker_get_option_at_index(ZGenericPicker *self, int index)
{
    return is_option(self, index) ? get_private(self)->impl->options[static_cast<size_t>(index)] : nullptr;
}

int z_generic_picker_get_current_option_index(ZGenericPicker *self)
{
    return get_private(self)->current_index;
}

void z_generic_picker_set_current_option_index(ZGenericPicker *self, int index)
{
    get_private(self)->current_index = index;
    update_button(self);
}

bool z_generic_picker_set_current_option(ZGenericPicker *self, gpointer option)
{
    const std::vector<gpointer> &options = get_private(self)->impl->options;
    const auto place = std::find(options.begin(), options.end(), option);
    if (place == options.end())
        return false;
    z_generic_picker_set_current_option_index(self, static_cast<int>(place - options.begin()));
    return true;
}
