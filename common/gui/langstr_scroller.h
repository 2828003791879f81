#pragma once

// Keeps a multilingual editor from making its window higher than the screen: it is as high as its rows need, up to
// a share of the screen; beyond that the rows scroll. A row that was just added is brought into view.

#include <gtk/gtk.h>

// The handlers that follow "grown" and "shrunk" and are connected later find the new height in effect.
void z_langstr_scroller_pack(GtkWidget *box, GtkWidget *editor, int max_percent_of_screen);
