#pragma once

// A picker (common/gui/generic_picker.h) whose options are langstrs, each shown in the language that the user
// prefers.

#include "common/base/list.h"
#include "common/gui/generic_picker.h"
#include "common/gui/gui_form.h"
#include "common/model/langstr.h"

#define Z_TYPE_LANGSTR_PICKER (z_langstr_picker_get_type())
G_DECLARE_FINAL_TYPE(ZLangstrPicker, z_langstr_picker, Z, LANGSTR_PICKER, ZGenericPicker)

// The languages must outlive the picker.
[[nodiscard]] GtkWidget *z_langstr_picker_new(const z_list<z_preferred_language> &languages);

// Copies the langstr and returns its index.
int z_langstr_picker_add_option(ZLangstrPicker *picker, const z_langstr *langstr);

// A copy of the chosen langstr; empty if none is chosen.
[[nodiscard]] z_langstr_ptr z_langstr_picker_get_current_option(ZLangstrPicker *picker);
void z_langstr_picker_set_current_option_index(ZLangstrPicker *picker, int index);

inline constexpr auto z_gui_create_langstr_picker = z_langstr_picker_new;
inline constexpr auto z_gui_pack_langstr_picker = z_gui_form<z_langstr_picker_new>::pack_expandable;
