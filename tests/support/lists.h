#pragma once

// Reads and works what is listed in windows.

#include <string>

#include <gtk/gtk.h>

#include "tests/support/windows.h"

[[nodiscard]] inline GtkTreeView *find_list(GtkWidget *window)
{
    return GTK_TREE_VIEW(
        find_widget(window, [](GtkWidget *widget) { return GTK_IS_TREE_VIEW(widget) != 0; }));
}

// All lines, each ended by ";" and the selected one begun by ">"; its texts are divided by ",".
[[nodiscard]] inline std::string get_list_lines(GtkWidget *window)
{
    GtkTreeView *view = find_list(window);
    GtkTreeModel *model = gtk_tree_view_get_model(view);
    std::string lines;
    GtkTreeIter row;
    for (gboolean valid = gtk_tree_model_get_iter_first(model, &row); valid;
         valid = gtk_tree_model_iter_next(model, &row)) {
        if (gtk_tree_selection_iter_is_selected(gtk_tree_view_get_selection(view), &row))
            lines += '>';
        for (int column = 0; column < gtk_tree_model_get_n_columns(model); ++column) {
            if (gtk_tree_model_get_column_type(model, column) != G_TYPE_STRING)
                continue;
            z_utf8_ptr text;
            gtk_tree_model_get(model, &row, column, static_cast<char **>(z_out(text)), -1);
            lines.append(column == 0 ? "" : ",").append(text.get());
        }
        lines += ';';
    }
    return lines;
}

// As a click does, which also moves the cursor there; Return would go by that.
inline void select_line(GtkWidget *window, int index)
{
    const z_ptr<GtkTreePath, gtk_tree_path_free> path(gtk_tree_path_new_from_indices(index, -1));
    gtk_tree_view_set_cursor(find_list(window), path.get(), nullptr, FALSE);
}

// As a double click does.
inline void activate_line(GtkWidget *window, int index)
{
    select_line(window, index);
    const z_ptr<GtkTreePath, gtk_tree_path_free> path(gtk_tree_path_new_from_indices(index, -1));
    gtk_tree_view_row_activated(find_list(window), path.get(),
                                gtk_tree_view_get_column(find_list(window), 0));
}
