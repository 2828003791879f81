#include "common/gui/list_control_panel.h"

#include "common/gui/gtk_handles.h"
#include "common/gui/gui.h"

// The panel follows the view's selection and the store's rows until one of the three is destroyed; store,
// view and selection are null from then on.

struct _ZListControlPanel {
    GtkBox parent_instance;

    GtkListStore *list_store;
    GtkTreeView *tree_view;
    GtkTreeSelection *selection;
    GtkWidget *up_button;
    GtkWidget *down_button;
    GtkWidget *remove_button; // null until it is asked for
    z_list_control_panel_confirm confirm_callback;
    gpointer confirm_data;
};

G_DEFINE_FINAL_TYPE(ZListControlPanel, z_list_control_panel, GTK_TYPE_BOX)

using z_step = gboolean (*)(GtkTreeModel *model, GtkTreeIter *row);

static bool get_selected(ZListControlPanel *self, GtkTreeIter *row)
{
    return self->selection != nullptr && gtk_tree_selection_get_selected(self->selection, nullptr, row);
}

static bool has_neighbour(ZListControlPanel *self, GtkTreeIter row, z_step step)
{
    return step(GTK_TREE_MODEL(self->list_store), &row);
}

// A button that can do nothing more hands the keyboard on to the list.
static void set_sensitivity(ZListControlPanel *self, GtkWidget *button, bool is_sensitive)
{
    if (button == nullptr)
        return;
    if (!is_sensitive && gtk_widget_is_focus(button) && self->tree_view != nullptr)
        gtk_widget_grab_focus(GTK_WIDGET(self->tree_view));
    gtk_widget_set_sensitive(button, is_sensitive);
}

static void apply_rules(ZListControlPanel *self)
{
    GtkTreeIter row;
    const bool is_selected = get_selected(self, &row);
    set_sensitivity(self, self->up_button,
                    is_selected && has_neighbour(self, row, gtk_tree_model_iter_previous));
    set_sensitivity(self, self->down_button,
                    is_selected && has_neighbour(self, row, gtk_tree_model_iter_next));
    set_sensitivity(self, self->remove_button, is_selected);
}

// Selects the row, lets the keyboard go on from there and scrolls it into view.
static void select_row(ZListControlPanel *self, GtkTreeIter *row)
{
    const z_tree_path_ptr path(gtk_tree_model_get_path(GTK_TREE_MODEL(self->list_store), row));
    gtk_tree_view_set_cursor(self->tree_view, path.get(), nullptr, FALSE);
}

static void move_selected_row(ZListControlPanel *self, z_step step)
{
    GtkTreeIter row;
    if (!get_selected(self, &row))
        return;
    GtkTreeIter neighbour = row;
    if (!step(GTK_TREE_MODEL(self->list_store), &neighbour))
        return;
    gtk_list_store_swap(self->list_store, &row, &neighbour);
    select_row(self, &row);
    apply_rules(self);
}

static void remove_row(ZListControlPanel *self, GtkTreeIter *row)
{
    GtkTreeModel *model = GTK_TREE_MODEL(self->list_store);
    GtkTreeIter neighbour = *row;
    bool has_other = gtk_tree_model_iter_next(model, &neighbour);
    if (!has_other) {
        neighbour = *row;
        has_other = gtk_tree_model_iter_previous(model, &neighbour);
    }
    gtk_list_store_remove(self->list_store, row);
    if (has_other)
        select_row(self, &neighbour);
}

// Callbacks

static void up_callback(GtkButton *, gpointer data) noexcept
{
    move_selected_row(static_cast<ZListControlPanel *>(data), gtk_tree_model_iter_previous);
}

static void down_callback(GtkButton *, gpointer data) noexcept
{
    move_selected_row(static_cast<ZListControlPanel *>(data), gtk_tree_model_iter_next);
}

// While the user is asked, the list may change and the panel may go.
static bool may_be_removed(ZListControlPanel *self, GtkTreeIter *row)
{
    if (self->confirm_callback == nullptr)
        return true;
    GtkTreeModel *model = GTK_TREE_MODEL(self->list_store);
    const z_tree_path_ptr path(gtk_tree_model_get_path(model, row));
    const z_ptr<GtkTreeRowReference, gtk_tree_row_reference_free> reference(
        gtk_tree_row_reference_new(model, path.get()));
    const bool is_agreed = self->confirm_callback(self, row, self->confirm_data);
    const z_tree_path_ptr new_path(gtk_tree_row_reference_get_path(reference.get()));
    return is_agreed && self->list_store != nullptr && new_path &&
           gtk_tree_model_get_iter(GTK_TREE_MODEL(self->list_store), row, new_path.get());
}

static void remove_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<ZListControlPanel *>(data);
    const z_ref<ZListControlPanel> held = z_share(self);
    GtkTreeIter row;
    if (get_selected(self, &row) && may_be_removed(self, &row))
        remove_row(self, &row);
}

static void release_list(ZListControlPanel *self)
{
    if (self->list_store == nullptr)
        return;
    for (gpointer object : {gpointer(self->list_store), gpointer(self->tree_view), gpointer(self->selection)})
        g_signal_handlers_disconnect_by_data(object, self);
    g_clear_object(&self->list_store);
    g_clear_object(&self->tree_view);
    g_clear_object(&self->selection);
}

static void tree_view_destroy_callback(GtkWidget *, gpointer data) noexcept
{
    auto *self = static_cast<ZListControlPanel *>(data);
    release_list(self);
    apply_rules(self);
}

// The class

static void destroy(GtkWidget *widget) noexcept
{
    auto *self = Z_LIST_CONTROL_PANEL(widget);
    release_list(self);
    self->up_button = self->down_button = self->remove_button = nullptr;
    GTK_WIDGET_CLASS(z_list_control_panel_parent_class)->destroy(widget);
}

static void z_list_control_panel_class_init(ZListControlPanelClass *klass)
{
    GTK_WIDGET_CLASS(klass)->destroy = destroy;
}

static GtkWidget *pack_button(ZListControlPanel *self, const char *label, GCallback callback)
{
    GtkWidget *button = z_gui_pack_button(GTK_WIDGET(self), z_default_button::no, label);
    g_signal_connect(button, "clicked", callback, self);
    return button;
}

static void z_list_control_panel_init(ZListControlPanel *self)
{
    gtk_orientable_set_orientation(GTK_ORIENTABLE(self), GTK_ORIENTATION_VERTICAL);
    z_gui_set_box_spacing(GTK_WIDGET(self), z_spacing::normal);
    self->up_button = pack_button(self, "Move up", G_CALLBACK(up_callback));
    self->down_button = pack_button(self, "Move down", G_CALLBACK(down_callback));
}

GtkWidget *z_list_control_panel_new(GtkListStore *list_store, GtkTreeView *tree_view)
{
    auto *self = static_cast<ZListControlPanel *>(g_object_new(Z_TYPE_LIST_CONTROL_PANEL, nullptr));
    self->list_store = z_share(list_store).release();
    self->tree_view = z_share(tree_view).release();
    self->selection = z_share(gtk_tree_view_get_selection(tree_view)).release();
    g_signal_connect_swapped(self->selection, "changed", G_CALLBACK(apply_rules), self);
    for (const char *signal : {"row-inserted", "row-deleted", "rows-reordered"})
        g_signal_connect_swapped(list_store, signal, G_CALLBACK(apply_rules), self);
    g_signal_connect(tree_view, "destroy", G_CALLBACK(tree_view_destroy_callback), self);
    apply_rules(self);
    gtk_widget_show(GTK_WIDGET(self));
    return GTK_WIDGET(self);
}

void z_list_control_panel_pack_remove_button(ZListControlPanel *self, const char *label,
                                             z_list_control_panel_confirm confirm_callback,
                                             gpointer user_data)
{
    if (self->remove_button != nullptr)
        return;
    self->confirm_callback = confirm_callback;
    self->confirm_data = user_data;
    self->remove_button = pack_button(self, label, G_CALLBACK(remove_callback));
    apply_rules(self);
}
