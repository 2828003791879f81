#include "app/components_gui.h"

#include <gtk/gtk.h>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/stream.h"
#include "common/base/utf8.h"
#include "common/gui/gui.h"
#include "common/gui/message.h"
#include "common/gui/window_stack.h"
#include "common/workspace/platform.h"
#include "common/workspace/template_list.h"
#include "common/workspace/workspace.h"

// What the window opens with: room for a line that names its author and version.
static const int opening_width_px = 600;
static const int opening_height_px = 420;

enum list_column { column_text, column_file_name, column_sort_key, column_count };

// One run of the window, a local of the function that runs it.
struct main_window {
    const z_components_gui *components;
    z_utf8_ptr folder_path;
    z_ref<GtkListStore> list_store;
    GtkWidget *window;
    GtkWidget *incompatible_label;
    GtkWidget *list_view;
    GtkWidget *file_name_entry;
    GtkWidget *edit_button;
    GtkWidget *delete_button;
};

static GtkTreeSelection *get_selection(const main_window *self)
{
    return gtk_tree_view_get_selection(GTK_TREE_VIEW(self->list_view));
}

// A cell's text, or none for an empty cell.
static z_utf8_ptr get_cell(GtkTreeModel *model, GtkTreeIter *row, list_column column)
{
    z_utf8_ptr text;
    gtk_tree_model_get(model, row, column, static_cast<char **>(z_out(text)), -1);
    return text;
}

static z_utf8_ptr get_selected_cell(const main_window *self, list_column column)
{
    GtkTreeModel *model;
    GtkTreeIter row;
    if (!gtk_tree_selection_get_selected(get_selection(self), &model, &row))
        return nullptr;
    return get_cell(model, &row, column);
}

static z_utf8_ptr get_path(const main_window *self, const char *file_name)
{
    return z_fs_utils_create_path_in_folder(self->folder_path.get(), file_name);
}

static void update_buttons(main_window *self)
{
    const z_utf8_ptr file_name = get_selected_cell(self, column_file_name);
    z_gui_set_sensitivity(self->edit_button, file_name != nullptr);
    z_gui_set_sensitivity(self->delete_button, file_name != nullptr);
    z_gui_set_entry_text(self->file_name_entry, file_name != nullptr ? file_name.get() : "");
}

static void selection_changed_callback(GtkTreeSelection *, gpointer data) noexcept
{
    update_buttons(static_cast<main_window *>(data));
}

static int compare_rows_callback(GtkTreeModel *model, GtkTreeIter *a, GtkTreeIter *b, gpointer) noexcept
{
    return g_strcmp0(get_cell(model, a, column_sort_key).get(), get_cell(model, b, column_sort_key).get());
}

// A file that cannot be read shows its name.
static void cell_data_callback(GtkTreeViewColumn *, GtkCellRenderer *renderer, GtkTreeModel *model,
                               GtkTreeIter *row, gpointer) noexcept
{
    const z_utf8_ptr text = get_cell(model, row, column_text);
    const z_utf8_ptr file_name = get_cell(model, row, column_file_name);
    g_object_set(renderer, "text", text != nullptr ? text.get() : file_name.get(), "foreground",
                 text != nullptr ? nullptr : "Red", nullptr);
}

// Appends the folder's files; returns whether one of them could not be read.
static bool fill_list(main_window *self)
{
    const z_components_gui *components = self->components;
    const char *extension = z_file_type_get_default_file_name_extension_with_period(components->file_type);
    const z_folder_ptr folder = z_fs_utils_open_folder(self->folder_path.get());
    if (folder == nullptr)
        return false;
    bool found_incompatible = false;
    z_utf8_ptr name;
    while (z_fs_utils_next_folder_entry(folder.get(), name) && name != nullptr) {
        const z_utf8_ptr path = get_path(self, name.get());
        z_fs_info info;
        if (!z_utf8_has_suffix_case_insensitive_ascii(name.get(), extension) ||
            !z_fs_utils_get_info(path.get(), info) || !info.is_file)
            continue;
        const z_utf8_ptr text = components->get_item_text(path.get(), components->user_data);
        found_incompatible |= text == nullptr;
        const auto sort_key = z_template_list_create_sort_key(text.get(), name.get());
        gtk_list_store_insert_with_values(self->list_store.get(), nullptr, -1, column_text, text.get(),
                                          column_file_name, name.get(), column_sort_key, sort_key.get(), -1);
    }
    return found_incompatible;
}

static void refresh_list(main_window *self)
{
    gtk_list_store_clear(self->list_store.get());
    const bool was_visible = gtk_widget_get_visible(self->incompatible_label);
    const bool found_incompatible = fill_list(self);
    z_error_clear();
    gtk_widget_set_visible(self->incompatible_label, found_incompatible);
    if (was_visible && !found_incompatible)
        z_gui_resize_window_to_chosen_size_unless_maximized(self->window);
    z_gui_unselect_when_idle(self->list_view);
    update_buttons(self);
}

static void add_new_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<main_window *>(data);
    z_error_clear();
    const z_utf8_ptr path = z_components_gui_get_new_file_path(self->components);
    if (path != nullptr)
        self->components->edit(path.get(), self->components->user_data);
    refresh_list(self);
}

// Whether the installation has this very file: somebody who edits it probably wants a copy of their own.
static bool is_unchanged_bundled_item(const main_window *self, const char *file_name)
{
    const z_utf8_ptr install_folder = z_platform_get_install_folder_path();
    if (install_folder == nullptr)
        return false;
    const z_utf8_ptr bundled_path =
        z_fs_utils_create_path_in_folder(install_folder.get(), self->components->sub_folder_name, file_name);
    z_bytes_ptr own_data;
    z_bytes_ptr bundled_data;
    size_t own_size;
    size_t bundled_size;
    return z_stream_copy_from_file_path_to_memory(bundled_path.get(), bundled_data, bundled_size) &&
           z_stream_copy_from_file_path_to_memory(get_path(self, file_name).get(), own_data, own_size) &&
           own_size == bundled_size && memcmp(own_data.get(), bundled_data.get(), own_size) == 0;
}

static void edit_selected(main_window *self)
{
    const z_utf8_ptr file_name = get_selected_cell(self, column_file_name);
    if (file_name == nullptr)
        return;
    if (is_unchanged_bundled_item(self, file_name.get()) &&
        !z_message_ask_yes_no_question(
            self->components->window_stack, z_answer_if_closed::no, z_question_icon::warning,
            "This item was bundled with Zanvel. You might want to clone it first, to make "
            "your own independent copy.\n\nProceed anyway?"))
        return;
    self->components->edit(get_path(self, file_name.get()).get(), self->components->user_data);
}

static void edit_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<main_window *>(data);
    z_error_clear();
    edit_selected(self);
    refresh_list(self);
}

static void row_activated_callback(GtkTreeView *, GtkTreePath *, GtkTreeViewColumn *, gpointer data) noexcept
{
    edit_callback(nullptr, data);
}

static void delete_selected(main_window *self)
{
    z_window_stack *window_stack = self->components->window_stack;
    const z_utf8_ptr file_name = get_selected_cell(self, column_file_name);
    const z_utf8_ptr text = get_selected_cell(self, column_text);
    if (file_name == nullptr)
        return;
    if (!z_message_ask_yes_no_question_printf(window_stack, z_answer_if_closed::no, z_question_icon::warning,
                                              "Do you really want to delete \"%s\" from your workspace?",
                                              text != nullptr ? text.get() : file_name.get()))
        return;
    const z_utf8_ptr path = get_path(self, file_name.get());
    if (!z_fs_utils_delete_file_if_exists(path.get()))
        z_message_show_error_printf(window_stack, "Couldn't delete the file.\n\n%s", path.get());
}

static void delete_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<main_window *>(data);
    z_error_clear();
    delete_selected(self);
    refresh_list(self);
}

static void refresh_callback(GtkButton *, gpointer data) noexcept
{
    refresh_list(static_cast<main_window *>(data));
}

static void create_list(main_window *self, GtkWidget *box)
{
    GtkWidget *scrolled_window = z_gui_pack_scrolled_window(
        box, z_expand::yes, 300, 250, GTK_POLICY_AUTOMATIC, GTK_POLICY_AUTOMATIC, GTK_SHADOW_IN);
    self->list_view = z_gui_add_tree_view(scrolled_window, GTK_TREE_MODEL(self->list_store.get()),
                                          z_tree_view_headers::visible, z_tree_view_height::by_row,
                                          z_tree_view_selection::single);
    GtkCellRenderer *renderer = gtk_cell_renderer_text_new();
    GtkTreeViewColumn *column = gtk_tree_view_column_new_with_attributes("Item", renderer, nullptr);
    gtk_tree_view_column_set_cell_data_func(column, renderer, cell_data_callback, nullptr, nullptr);
    gtk_tree_view_append_column(GTK_TREE_VIEW(self->list_view), column);
    g_signal_connect(self->list_view, "row-activated", G_CALLBACK(row_activated_callback), self);
    g_signal_connect(get_selection(self), "changed", G_CALLBACK(selection_changed_callback), self);

    GtkWidget *label = z_gui_pack_label(box, "File name of selected item:", 0.0, 0.5);
    self->file_name_entry = z_gui_pack_entry(box, z_expand::no, nullptr, z_activates_default::no);
    gtk_editable_set_editable(GTK_EDITABLE(self->file_name_entry), FALSE);
    gtk_label_set_mnemonic_widget(GTK_LABEL(label), self->file_name_entry);
}

static GtkWidget *pack_button(main_window *self, GtkWidget *box, const char *label,
                              void (*clicked_callback)(GtkButton *, gpointer))
{
    GtkWidget *button = z_gui_pack_button(box, z_default_button::no, label);
    g_signal_connect(button, "clicked", G_CALLBACK(clicked_callback), self);
    return button;
}

static void create_buttons(main_window *self, GtkWidget *box)
{
    pack_button(self, box, "Add new", add_new_callback);
    self->edit_button = pack_button(self, box, "Edit", edit_callback);
    self->delete_button = pack_button(self, box, "Delete", delete_callback);
    z_gui_pack_space(box, 10, 10);
    GtkWidget *refresh_button =
        z_gui_pack_button_in_alignment(box, z_expand::yes, GTK_ALIGN_END, GTK_ALIGN_END, "Refresh list");
    g_signal_connect(refresh_button, "clicked", G_CALLBACK(refresh_callback), self);
}

static void create_window(main_window *self)
{
    self->window = z_gui_create_window(self->components->title);
    GtkWidget *vbox = z_gui_add_vbox(self->window, z_spacing::normal);
    self->incompatible_label = z_gui_pack_label_with_markup(
        vbox,
        "Some incompatible files found. They are marked with <span color=\"red\">red</span> in the list:",
        0.0, 0.5);
    gtk_widget_hide(self->incompatible_label);
    GtkWidget *hbox = z_gui_pack_hbox(vbox, z_expand::yes, z_spacing::normal);
    create_list(self, z_gui_pack_vbox(hbox, z_expand::yes, z_spacing::normal));
    create_buttons(self, z_gui_pack_vbox(hbox, z_expand::no, z_spacing::normal));
    z_gui_set_window_chosen_size(self->window, opening_width_px, opening_height_px);
}

static z_ref<GtkListStore> create_list_store()
{
    z_ref<GtkListStore> store =
        z_take(gtk_list_store_new(column_count, G_TYPE_STRING, G_TYPE_STRING, G_TYPE_STRING));
    GtkTreeSortable *sortable = GTK_TREE_SORTABLE(store.get());
    gtk_tree_sortable_set_sort_func(sortable, column_sort_key, compare_rows_callback, nullptr, nullptr);
    gtk_tree_sortable_set_sort_column_id(sortable, column_sort_key, GTK_SORT_ASCENDING);
    return store;
}

void z_components_gui_main_window_run(const z_components_gui *components)
{
    main_window self = {};
    self.components = components;
    self.folder_path = z_fs_utils_create_path_in_folder(components->workspace->folder_path.get(),
                                                        components->sub_folder_name);
    self.list_store = create_list_store();
    create_window(&self);
    refresh_list(&self);
    z_window_stack_run_window(components->window_stack, self.window, z_opening_size::as_set, self.list_view);
}
