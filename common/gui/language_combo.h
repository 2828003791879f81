#pragma once

// The combo box that says in which language a text is. Each line shows a language and carries its tag unseen,
// so a tag that the language table does not have comes back as it went in. The mouse wheel does not change
// the language: scrolling past must not relabel a text.

#include <gtk/gtk.h>

// The languages of the table, in its order, with `tag` chosen; nothing is chosen if it is null. An untagged
// text adds "Undefined" in front, an unknown tag its own line at the end.
[[nodiscard]] GtkWidget *z_language_combo_new(const char *tag);

// The chosen line's tag, borrowed; "" when nothing is chosen.
[[nodiscard]] const char *z_language_combo_get_tag(GtkWidget *combo);
