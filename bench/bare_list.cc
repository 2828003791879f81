// What the program's start is measured against: the toolkit alone, with a list of made-up lines.

#include <gtk/gtk.h>

#include "bench/first_drawing.h"
#include "common/base/handles.h"

static const int line_count = 30;

int main(int argc, char **argv)
{
    static const char title[] = "Bare list";
    bench_exit_when_drawn(title);
    gtk_init(&argc, &argv);
    GtkListStore *store = gtk_list_store_new(1, G_TYPE_STRING);
    for (int i = 0; i < line_count; ++i) {
        const z_utf8_ptr line(g_strdup_printf("Condition report %d (Zanvel) 1.0", i));
        gtk_list_store_insert_with_values(store, nullptr, -1, 0, line.get(), -1);
    }
    GtkWidget *list = gtk_tree_view_new_with_model(GTK_TREE_MODEL(store));
    gtk_tree_view_append_column(
        GTK_TREE_VIEW(list),
        gtk_tree_view_column_new_with_attributes("Item", gtk_cell_renderer_text_new(), "text", 0, nullptr));
    GtkWidget *scrolled_window = gtk_scrolled_window_new(nullptr, nullptr);
    gtk_container_add(GTK_CONTAINER(scrolled_window), list);
    GtkWidget *window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_title(GTK_WINDOW(window), title);
    gtk_window_set_default_size(GTK_WINDOW(window), 600, 420);
    gtk_container_add(GTK_CONTAINER(window), scrolled_window);
    gtk_widget_show_all(window);
    gtk_main();
    return 0;
}
