#include "app/list_window.h"

#include <gtk/gtk.h>

#include "common/base/error.h"
#include "common/gui/gui.h"
#include "common/gui/window_stack.h"

// One run of the window, a local of the function that runs it.
struct list_window {
    const std::function<bool(int index)> *accept;
    GtkWidget *window;
    GtkWidget *tree_view;
    GtkWidget *ok_button;
    bool accepted;
};

static GtkTreeSelection *get_selection(const list_window *self)
{
    return gtk_tree_view_get_selection(GTK_TREE_VIEW(self->tree_view));
}

// The index of the selected line, or -1.
static int get_selected_index(const list_window *self)
{
    GtkTreeModel *model;
    GtkTreeIter row;
    if (!gtk_tree_selection_get_selected(get_selection(self), &model, &row))
        return -1;
    const z_ptr<GtkTreePath, gtk_tree_path_free> path(gtk_tree_model_get_path(model, &row));
    return gtk_tree_path_get_indices(path.get())[0];
}

static void selection_changed_callback(GtkTreeSelection *, gpointer data) noexcept
{
    const auto *self = static_cast<list_window *>(data);
    z_gui_set_sensitivity(self->ok_button, get_selected_index(self) >= 0);
}

static void ok_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<list_window *>(data);
    const int index = get_selected_index(self);
    z_error_clear();
    if (index < 0 || !(*self->accept)(index))
        return;
    self->accepted = true;
    gtk_widget_destroy(self->window);
}

static void row_activated_callback(GtkTreeView *, GtkTreePath *, GtkTreeViewColumn *, gpointer data) noexcept
{
    ok_callback(nullptr, data);
}

static void create_list(list_window *self, GtkWidget *box, const z_list_window_options &options,
                        const std::vector<z_utf8_ptr> &lines)
{
    const z_ref<GtkListStore> store = z_take(gtk_list_store_new(1, G_TYPE_STRING));
    for (const z_utf8_ptr &line : lines)
        gtk_list_store_insert_with_values(store.get(), nullptr, -1, 0, line.get(), -1);
    GtkWidget *label = z_gui_pack_label(box, options.label, 0.0, 0.5);
    GtkWidget *scrolled_window =
        z_gui_pack_scrolled_window(box, z_expand::yes, options.list_width_px, options.list_height_px,
                                   GTK_POLICY_AUTOMATIC, GTK_POLICY_AUTOMATIC, GTK_SHADOW_IN);
    // Wider for long lines, which scroll only beyond twice the width.
    gtk_scrolled_window_set_propagate_natural_width(GTK_SCROLLED_WINDOW(scrolled_window), TRUE);
    gtk_scrolled_window_set_max_content_width(GTK_SCROLLED_WINDOW(scrolled_window),
                                              2 * options.list_width_px);
    self->tree_view =
        z_gui_add_tree_view(scrolled_window, GTK_TREE_MODEL(store.get()), z_tree_view_headers::visible,
                            z_tree_view_height::by_row, z_tree_view_selection::single);
    gtk_tree_view_insert_column_with_attributes(GTK_TREE_VIEW(self->tree_view), -1, options.column,
                                                gtk_cell_renderer_text_new(), "text", 0, nullptr);
    gtk_label_set_mnemonic_widget(GTK_LABEL(label), self->tree_view);
    g_signal_connect(self->tree_view, "row-activated", G_CALLBACK(row_activated_callback), self);
    g_signal_connect(get_selection(self), "changed", G_CALLBACK(selection_changed_callback), self);
}

bool z_list_window_run(z_window_stack *window_stack, const z_list_window_options &options,
                       const std::vector<z_utf8_ptr> &lines, const std::function<bool(int index)> &accept)
{
    list_window self = {};
    self.accept = &accept;
    self.window = z_gui_create_window(options.title);
    GtkWidget *vbox = z_gui_add_vbox(self.window, z_spacing::normal);
    create_list(&self, vbox, options, lines);
    self.ok_button = z_gui_pack_ok_and_cancel_buttons(vbox, self.window, "OK", ok_callback, &self);
    z_gui_set_sensitivity(self.ok_button, false);
    z_gui_unselect_when_idle(self.tree_view);
    z_window_stack_run_window(window_stack, self.window, z_opening_size::as_set, self.tree_view);
    return self.accepted;
}
