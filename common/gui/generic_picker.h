#pragma once

// A compact chooser: a button that shows the current option and opens a menu of all of them.
//
//     [ Swedish          v ]
//     | Danish             |
//     |--------------------|      a separator
//     |#Swedish############|      the current option
//
// Options are opaque pointers, null included. They and the separators are numbered together from 0 in the
// order in which they were added. The base of pickers for one kind of option each, which own their options.
//
// Signal: "picked", with the option's index, after the user has chosen one. Its handler may destroy the
// picker.

#include <gtk/gtk.h>

#include "common/base/handles.h"

#define Z_TYPE_GENERIC_PICKER (z_generic_picker_get_type())
G_DECLARE_DERIVABLE_TYPE(ZGenericPicker, z_generic_picker, Z, GENERIC_PICKER, GtkBin)

struct _ZGenericPickerClass {
    GtkBinClass parent_class;
};

// Comes back shown, as all pickers do.
[[nodiscard]] GtkWidget *z_generic_picker_new();

// What an option is called, in UTF-8. Without a callback options have no text.
using z_generic_picker_option_text = z_utf8_ptr (*)(int index, gpointer option, gpointer user_data);
void z_generic_picker_set_option_text_callback(ZGenericPicker *picker, z_generic_picker_option_text callback,
                                               gpointer user_data);

// Gets every option but null when the picker is destroyed.
using z_generic_picker_option_destroy = void (*)(gpointer option);
void z_generic_picker_set_option_destroy_callback(ZGenericPicker *picker,
                                                  z_generic_picker_option_destroy callback);

// Returns the option's index.
int z_generic_picker_add_option(ZGenericPicker *picker, gpointer option);
void z_generic_picker_add_separator(ZGenericPicker *picker);

// What the button says as long as nothing has been added and it cannot be pressed.
void z_generic_picker_set_no_options_text(ZGenericPicker *picker, const char *text_utf8);

// Null at a separator and out of range.
[[nodiscard]] gpointer z_generic_picker_get_option_at_index(ZGenericPicker *picker, int index);

// The index that was set or picked last, at first -1. It is kept as it is; where it names no option the
// button shows none. Setting it is no picking.
[[nodiscard]] int z_generic_picker_get_current_option_index(ZGenericPicker *picker);
void z_generic_picker_set_current_option_index(ZGenericPicker *picker, int index);
// The first option that is this very pointer; false if there is none.
bool z_generic_picker_set_current_option(ZGenericPicker *picker, gpointer option);
