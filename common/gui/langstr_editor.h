#pragma once

// Edits a langstr as a table, one row per text:
//
//     [ language v ] [ text                       ] [ - ]
//     [ language v ] [ text                       ] [ - ] [ + ]
//
// There is always at least one row. Texts are normalised compactly, as they are when read from a file. What
// the table cannot show comes back unharmed: unknown tags, and several texts without a tag.
//
// Given the focus by gtk_widget_grab_focus, the editor passes it to the first text that can be changed.
//
// Signals: "grown" and "shrunk", when a row has come or gone and the window may follow.

#include <gtk/gtk.h>

#include "common/base/input_repair.h"
#include "common/base/list.h"
#include "common/gui/gui_form.h"
#include "common/model/langstr.h"

struct z_window_stack;

#define Z_TYPE_LANGSTR_EDITOR (z_langstr_editor_get_type())
G_DECLARE_FINAL_TYPE(ZLangstrEditor, z_langstr_editor, Z, LANGSTR_EDITOR, GtkBox)

// A row whose tag `locked` has can be neither changed nor deleted; null locks nothing. The window stack and
// the languages, from which a new row takes its language, must outlive the editor; the langstrs are copied.
[[nodiscard]] GtkWidget *z_langstr_editor_new(z_window_stack *window_stack,
                                              const z_list<z_preferred_language> &languages,
                                              z_input_lines lines, const z_langstr *langstr,
                                              const z_langstr *locked);

// Ties every input, and those of later rows, to the label that stands for the whole editor.
void z_langstr_editor_set_label(ZLangstrEditor *editor, GtkWidget *label);

// Rows without text are left out. On failure, with the reason in z_error, the langstr is empty.
[[nodiscard]] bool z_langstr_editor_get_text(ZLangstrEditor *editor, z_langstr_ptr &langstr);

[[nodiscard]] bool z_langstr_editor_has_locked_texts(ZLangstrEditor *editor);

// Leaves the locked rows, or one empty row if there are none.
void z_langstr_editor_clear(ZLangstrEditor *editor);

inline constexpr auto z_gui_create_langstr_editor = z_langstr_editor_new;
inline constexpr auto z_gui_pack_langstr_editor = z_gui_form<z_langstr_editor_new>::pack_expandable;
inline constexpr auto z_gui_pack_langstr_editor_in_frame_with_input_field_label =
    z_gui_form<z_langstr_editor_new>::pack_in_frame_with_input_field_label;
