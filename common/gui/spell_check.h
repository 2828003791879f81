#pragma once

// Spell checking while typing. Built with a spelling library or without one; the rest of the program cannot
// tell the difference, as a language without a dictionary is not checked either.

#include <gtk/gtk.h>

// Checks what is in the entry or text view in the language of `tag`, or stops checking if the tag has no
// dictionary or the dictionary is not installed.
void z_spell_check_set_language(GtkWidget *input, const char *tag);
