#pragma once

// A picker (common/gui/generic_picker.h) whose options are texts.

#include "common/gui/generic_picker.h"
#include "common/gui/gui_form.h"

#define Z_TYPE_STRING_PICKER (z_string_picker_get_type())
G_DECLARE_FINAL_TYPE(ZStringPicker, z_string_picker, Z, STRING_PICKER, ZGenericPicker)

[[nodiscard]] GtkWidget *z_string_picker_new();

// Copies the text and returns its index.
int z_string_picker_add_option(ZStringPicker *picker, const char *text_utf8);

// Null at a separator and out of range.
[[nodiscard]] z_utf8_ptr z_string_picker_get_option_at_index(ZStringPicker *picker, int index);

inline constexpr auto z_gui_create_string_picker = z_string_picker_new;
inline constexpr auto z_gui_pack_string_picker = z_gui_form<z_string_picker_new>::pack_expandable;
