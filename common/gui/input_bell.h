#pragma once

// The beep by which an input says that it has changed or refused what was typed, pasted or dropped.

#include <gtk/gtk.h>

using z_input_bell = void (*)(GtkWidget *input);

void z_input_bell_ring(GtkWidget *input);

// Puts another bell in the place of the toolkit's own, which null brings back.
void z_input_bell_replace(z_input_bell bell);
