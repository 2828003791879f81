#include "common/gui/string_picker.h"

struct _ZStringPicker {
    ZGenericPicker parent_instance;
};

G_DEFINE_FINAL_TYPE(ZStringPicker, z_string_picker, Z_TYPE_GENERIC_PICKER)

static z_utf8_ptr option_text_callback(int, gpointer option, gpointer) noexcept
{
    return z_utf8_ptr(g_strdup(static_cast<const char *>(option)));
}

static void z_string_picker_class_init(ZStringPickerClass *) {}

static void z_string_picker_init(ZStringPicker *self)
{
    ZGenericPicker *picker = Z_GENERIC_PICKER(self);
    z_generic_picker_set_option_text_callback(picker, option_text_callback, nullptr);
    z_generic_picker_set_option_destroy_callback(picker, g_free);
}

GtkWidget *z_string_picker_new()
{
    return static_cast<GtkWidget *>(g_object_new(Z_TYPE_STRING_PICKER, nullptr));
}

int z_string_picker_add_option(ZStringPicker *self, const char *text_utf8)
{
    return z_generic_picker_add_option(Z_GENERIC_PICKER(self), g_strdup(text_utf8));
}

z_utf8_ptr z_string_picker_get_option_at_index(ZStringPicker *self, int index)
{
    const gpointer option = z_generic_picker_get_option_at_index(Z_GENERIC_PICKER(self), index);
    return z_utf8_ptr(g_strdup(static_cast<const char *>(option)));
}
