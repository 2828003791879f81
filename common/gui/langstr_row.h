#pragma once

// One row of the multilingual editor: a language, a text in it and a button that deletes the two. The widgets
// are made once and belong to the editor's table; where they stand is the only thing that changes later.

#include <gtk/gtk.h>

#include "common/base/input_repair.h"
#include "common/base/list.h"

struct _ZLangstrEditor;

struct z_langstr_row : z_link {
    _ZLangstrEditor *editor = nullptr;
    // Each widget is null once somebody else has destroyed it.
    GtkWidget *combo = nullptr;
    GtkWidget *input = nullptr; // spacifying entry or text view
    GtkWidget *cell = nullptr;  // the input, or the scrolled window around it
    GtkWidget *delete_button = nullptr;
    bool locked = false;       // the language stays and the row too
    bool input_locked = false; // the text stays
};

// Makes the row's widgets, shown and floating. No language is chosen if `tag` is null.
void z_langstr_row_create_widgets(z_langstr_row *row, z_input_lines lines, const char *tag,
                                  const char *text_latin1);

// Beside a text of one line what else the row has is as high; beside several it stands at the first.
[[nodiscard]] GtkAlign z_langstr_row_get_alignment(z_input_lines lines);

// Their place in the table: the first three columns of one line.
void z_langstr_row_attach(z_langstr_row *row, GtkWidget *grid, int top);
void z_langstr_row_move(z_langstr_row *row, GtkWidget *grid, int top);
void z_langstr_row_set_sensitivity(z_langstr_row *row, bool may_be_deleted);

// Destroying and releasing both end the connections that have the row as their data.
void z_langstr_row_release_widgets(z_langstr_row *row);
void z_langstr_row_destroy_widgets(z_langstr_row *row);

// The chosen language, borrowed; "" if there is none.
[[nodiscard]] const char *z_langstr_row_get_tag(const z_langstr_row *row);
// Null, with the unknown error, if the input is gone.
[[nodiscard]] z_latin1_ptr z_langstr_row_get_text(const z_langstr_row *row);

// Lets the spelling and what a screen reader says follow the chosen language.
void z_langstr_row_apply_language(z_langstr_row *row);

// Puts the keyboard focus into the text, without selecting it.
void z_langstr_row_focus_input(z_langstr_row *row);
