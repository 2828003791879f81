#pragma once

// A single-line entry that can only hold what the document model accepts (common/base/input_repair.h). What
// is typed, pasted, dropped or composed by an input method is repaired at the place where it goes in, with a
// beep. Spaces at the ends and in runs are let be while typing; setting and reading the text normalise them.

#include <gtk/gtk.h>

#include "common/base/handles.h"
#include "common/gui/gui_create.h"
#include "common/gui/gui_form.h"

// What becomes of a run of spaces inside the text when it is set or read.
enum class z_entry_runs { kept, compacted };

#define Z_TYPE_SPACIFYING_ENTRY (z_spacifying_entry_get_type())
G_DECLARE_FINAL_TYPE(ZSpacifyingEntry, z_spacifying_entry, Z, SPACIFYING_ENTRY, GtkEntry)

[[nodiscard]] GtkWidget *z_spacifying_entry_new(z_entry_runs runs);

void z_spacifying_entry_set_text(ZSpacifyingEntry *entry, const char *latin1_text);

// Null if the text cannot be converted, with the reason in z_error.
[[nodiscard]] z_latin1_ptr z_spacifying_entry_get_text(ZSpacifyingEntry *entry);

// The initial text is optional.
GtkWidget *z_gui_create_spacifying_entry(z_entry_runs runs, const char *latin1_text,
                                         z_activates_default activates_default);
inline constexpr auto z_gui_pack_spacifying_entry =
    z_gui_form<z_gui_create_spacifying_entry>::pack_expandable;
