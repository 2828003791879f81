#include "common/gui/langstr_picker.h"

#include "common/base/convert.h"

struct _ZLangstrPicker {
    ZGenericPicker parent_instance;

    const z_list<z_preferred_language> *languages;
};

G_DEFINE_FINAL_TYPE(ZLangstrPicker, z_langstr_picker, Z_TYPE_GENERIC_PICKER)

static z_utf8_ptr option_text_callback(int, gpointer option, gpointer data) noexcept
{
    const auto *self = static_cast<ZLangstrPicker *>(data);
    const char *text_latin1 =
        z_langstr_get_preferred_string(static_cast<const z_langstr *>(option), *self->languages);
    return text_latin1 != nullptr ? z_convert_latin1_to_utf8(text_latin1) : nullptr;
}

static void option_destroy_callback(gpointer option) noexcept
{
    z_langstr_free(static_cast<z_langstr *>(option));
}

static void z_langstr_picker_class_init(ZLangstrPickerClass *) {}

static void z_langstr_picker_init(ZLangstrPicker *self)
{
    ZGenericPicker *picker = Z_GENERIC_PICKER(self);
    z_generic_picker_set_option_text_callback(picker, option_text_callback, self);
    z_generic_picker_set_option_destroy_callback(picker, option_destroy_callback);
}

GtkWidget *z_langstr_picker_new(const z_list<z_preferred_language> &languages)
{
    auto *self = static_cast<ZLangstrPicker *>(g_object_new(Z_TYPE_LANGSTR_PICKER, nullptr));
    self->languages = &languages;
    return GTK_WIDGET(self);
}

int z_langstr_picker_add_option(ZLangstrPicker *self, const z_langstr *langstr)
{
    return z_generic_picker_add_option(Z_GENERIC_PICKER(self), z_langstr_clone(langstr).release());
}

z_langstr_ptr z_langstr_picker_get_current_option(ZLangstrPicker *self)
{
    ZGenericPicker *picker = Z_GENERIC_PICKER(self);
    const int index = z_generic_picker_get_current_option_index(picker);
    return z_langstr_clone(
        static_cast<const z_langstr *>(z_generic_picker_get_option_at_index(picker, index)));
}

void z_langstr_picker_set_current_option_index(ZLangstrPicker *self, int index)
{
    z_generic_picker_set_current_option_index(Z_GENERIC_PICKER(self), index);
}
