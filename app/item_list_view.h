#pragma once

// A list of the files of one kind, one line each; files that cannot be read show their name in red. At most
// one line is selected.

#include <vector>

#include <gtk/gtk.h>

#include "common/workspace/item_list.h"

// Packs the list, in a scrolled window of at least this size, and returns it.
GtkWidget *item_list_view_pack(GtkWidget *box, int width_px, int height_px);

// Shows these lines in place of the old ones; none is selected. Returns whether one of the files cannot be
// read.
bool item_list_view_fill(GtkWidget *list_view, const std::vector<z_item> &items);

// Of the selected line; null when there is none, and the text also for a file that cannot be read.
[[nodiscard]] z_utf8_ptr item_list_view_get_selected_file_name(GtkWidget *list_view);
[[nodiscard]] z_utf8_ptr item_list_view_get_selected_text(GtkWidget *list_view);
