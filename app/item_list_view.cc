#include "app/item_list_view.h"

#include "common/gui/gui.h"

enum list_column { column_text, column_file_name, column_count };

// A cell's text, or none for an empty cell.
static z_utf8_ptr get_cell(GtkTreeModel *model, GtkTreeIter *row, list_column column)
{
    z_utf8_ptr text;
    gtk_tree_model_get(model, row, column, static_cast<char **>(z_out(text)), -1);
    return text;
}

static z_utf8_ptr get_selected_cell(GtkWidget *list_view, list_column column)
{
    GtkTreeModel *model;
    GtkTreeIter row;
    GtkTreeSelection *selection = gtk_tree_view_get_selection(GTK_TREE_VIEW(list_view));
    return gtk_tree_selection_get_selected(selection, &model, &row) ? get_cell(model, &row, column) : nullptr;
}

static void cell_data_callback(GtkTreeViewColumn *, GtkCellRenderer *renderer, GtkTreeModel *model,
                               GtkTreeIter *row, gpointer) noexcept
{
    const z_utf8_ptr text = get_cell(model, row, column_text);
    const z_utf8_ptr file_name = get_cell(model, row, column_file_name);
    g_object_set(renderer, "text", text != nullptr ? text.get() : file_name.get(), "foreground",
                 text != nullptr ? nullptr : "Red", nullptr);
}

GtkWidget *item_list_view_pack(GtkWidget *box, int width_px, int height_px)
{
    const z_ref<GtkListStore> store = z_take(gtk_list_store_new(column_count, G_TYPE_STRING, G_TYPE_STRING));
    GtkWidget *scrolled_window = z_gui_pack_scrolled_window(
        box, z_expand::yes, width_px, height_px, GTK_POLICY_AUTOMATIC, GTK_POLICY_AUTOMATIC, GTK_SHADOW_IN);
    GtkWidget *list_view =
        z_gui_add_tree_view(scrolled_window, GTK_TREE_MODEL(store.get()), z_tree_view_headers::visible,
                            z_tree_view_height::by_row, z_tree_view_selection::single);
    GtkCellRenderer *renderer = gtk_cell_renderer_text_new();
    GtkTreeViewColumn *column = gtk_tree_view_column_new_with_attributes("Item", renderer, nullptr);
    gtk_tree_view_column_set_cell_data_func(column, renderer, cell_data_callback, nullptr, nullptr);
    gtk_tree_view_append_column(GTK_TREE_VIEW(list_view), column);
    atk_object_set_name(gtk_widget_get_accessible(list_view), "Items");
    return list_view;
}

// The view follows only when all lines are there.
bool item_list_view_fill(GtkWidget *list_view, const std::vector<z_item> &items)
{
    const z_ref<GtkTreeModel> model = z_share(gtk_tree_view_get_model(GTK_TREE_VIEW(list_view)));
    GtkListStore *store = GTK_LIST_STORE(model.get());
    gtk_tree_view_set_model(GTK_TREE_VIEW(list_view), nullptr);
    gtk_list_store_clear(store);
    bool found_incompatible = false;
    for (const z_item &item : items) {
        found_incompatible |= item.line->text == nullptr;
        gtk_list_store_insert_with_values(store, nullptr, -1, column_text, item.line->text.get(),
                                          column_file_name, item.file_name.get(), -1);
    }
    gtk_tree_view_set_model(GTK_TREE_VIEW(list_view), model.get());
    z_gui_unselect_when_idle(list_view);
    return found_incompatible;
}

z_utf8_ptr item_list_view_get_selected_file_name(GtkWidget *list_view)
{
    return get_selected_cell(list_view, column_file_name);
}

z_utf8_ptr item_list_view_get_selected_text(GtkWidget *list_view)
{
    return get_selected_cell(list_view, column_text);
}
