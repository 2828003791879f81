#include "app/components_gui.h"

#include <gtk/gtk.h>

#include "app/components_copy.h"
#include "app/item_list_view.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/stream.h"
#include "common/gui/file_dialog.h"
#include "common/gui/gui.h"
#include "common/gui/message.h"
#include "common/gui/window_stack.h"

// What the window opens with: room for a line that names its author and version.
static const int opening_width_px = 600;
static const int opening_height_px = 420;

// One run of the window, a local of the function that runs it.
struct main_window {
    const z_components_gui *components;
    z_utf8_ptr folder_path;
    GtkWidget *window;
    GtkWidget *incompatible_label;
    GtkWidget *list_view;
    GtkWidget *file_name_entry;
    GtkWidget *clone_button; // This and the next are null when nothing can be edited.
    GtkWidget *edit_button;
    GtkWidget *save_copy_button;
    GtkWidget *delete_button;
};

static z_utf8_ptr get_path(const main_window *self, const char *file_name)
{
    return z_fs_utils_create_path_in_folder(self->folder_path.get(), file_name);
}

// Of the selected file, or none.
static z_utf8_ptr get_selected_path(const main_window *self)
{
    const z_utf8_ptr file_name = item_list_view_get_selected_file_name(self->list_view);
    return file_name != nullptr ? get_path(self, file_name.get()) : nullptr;
}

static bool can_edit(const z_components_gui *components, const char *path)
{
    return path != nullptr &&
           (components->is_editable == nullptr || components->is_editable(path, components->user_data));
}

static void update_buttons(main_window *self)
{
    const z_utf8_ptr path = get_selected_path(self);
    const bool is_editable = can_edit(self->components, path.get());
    if (self->edit_button != nullptr) {
        z_gui_set_sensitivity(self->clone_button, is_editable);
        z_gui_set_sensitivity(self->edit_button, is_editable);
    }
    z_gui_set_sensitivity(self->save_copy_button, path != nullptr);
    z_gui_set_sensitivity(self->delete_button, path != nullptr);
    z_gui_set_entry_text(self->file_name_entry,
                         path != nullptr ? z_fs_utils_find_entry_name_in_path(path.get()) : "");
}

static void selection_changed_callback(GtkTreeSelection *, gpointer data) noexcept
{
    update_buttons(static_cast<main_window *>(data));
}

static void refresh_list(main_window *self)
{
    const bool was_visible = gtk_widget_get_visible(self->incompatible_label);
    const bool found_incompatible = item_list_view_fill(
        self->list_view, components_list_folder(self->components, self->folder_path.get()));
    gtk_widget_set_visible(self->incompatible_label, found_incompatible);
    if (was_visible && !found_incompatible)
        z_gui_resize_window_to_chosen_size_unless_maximized(self->window);
    update_buttons(self);
}

static void add_from_file_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<main_window *>(data);
    z_error_clear();
    const z_utf8_ptr path =
        z_file_dialog_get_file_path_for_reading(self->components->window_stack, "Select a file to add",
                                                nullptr, std::span(&self->components->file_type, 1));
    if (path != nullptr)
        components_add_file(self->components, path.get());
    refresh_list(self);
}

static void add_bundled_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<main_window *>(data);
    z_error_clear();
    const z_utf8_ptr path = z_components_gui_get_bundled_file_path(self->components);
    if (path != nullptr)
        components_add_file(self->components, path.get());
    refresh_list(self);
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

static void clone_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<main_window *>(data);
    z_error_clear();
    const z_utf8_ptr source = get_selected_path(self);
    const z_utf8_ptr target = z_components_gui_get_new_file_path(self->components);
    if (source != nullptr && target != nullptr)
        components_clone_file(self->components, source.get(), target.get());
    refresh_list(self);
}

// Whether the installation has this very file: somebody who edits it probably wants a copy of their own.
static bool is_unchanged_bundled_item(const main_window *self, const char *path)
{
    const z_utf8_ptr folder = components_get_bundled_folder_path(self->components);
    if (folder == nullptr)
        return false;
    const z_utf8_ptr bundled_path =
        z_fs_utils_create_path_in_folder(folder.get(), z_fs_utils_find_entry_name_in_path(path));
    z_bytes_ptr own_data;
    z_bytes_ptr bundled_data;
    size_t own_size;
    size_t bundled_size;
    return z_stream_copy_from_file_path_to_memory(bundled_path.get(), bundled_data, bundled_size) &&
           z_stream_copy_from_file_path_to_memory(path, own_data, own_size) && own_size == bundled_size &&
           memcmp(own_data.get(), bundled_data.get(), own_size) == 0;
}

static void edit_selected(main_window *self)
{
    const z_components_gui *components = self->components;
    const z_utf8_ptr path = get_selected_path(self);
    if (components->edit == nullptr || !can_edit(components, path.get()))
        return;
    if (is_unchanged_bundled_item(self, path.get()) &&
        !z_message_ask_yes_no_question(
            components->window_stack, z_answer_if_closed::no, z_question_icon::warning,
            "This item was bundled with Zanvel. You might want to clone it first, to make "
            "your own independent copy.\n\nProceed anyway?"))
        return;
    components->edit(path.get(), components->user_data);
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

static void save_copy_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<main_window *>(data);
    z_error_clear();
    const z_utf8_ptr path = get_selected_path(self);
    if (path != nullptr)
        components_save_copy_of_file(self->components, path.get());
    refresh_list(self);
}

static void delete_selected(main_window *self)
{
    z_window_stack *window_stack = self->components->window_stack;
    const z_utf8_ptr path = get_selected_path(self);
    const z_utf8_ptr text = item_list_view_get_selected_text(self->list_view);
    if (path == nullptr)
        return;
    const char *name = text != nullptr ? text.get() : z_fs_utils_find_entry_name_in_path(path.get());
    if (!z_message_ask_yes_no_question_printf(window_stack, z_answer_if_closed::no, z_question_icon::warning,
                                              "Do you really want to delete \"%s\" from your workspace?",
                                              name))
        return;
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
    self->list_view = item_list_view_pack(box, 300, 250);
    g_signal_connect(self->list_view, "row-activated", G_CALLBACK(row_activated_callback), self);
    g_signal_connect(gtk_tree_view_get_selection(GTK_TREE_VIEW(self->list_view)), "changed",
                     G_CALLBACK(selection_changed_callback), self);

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
    pack_button(self, box, "Add from file", add_from_file_callback);
    if (self->components->has_bundled_items)
        pack_button(self, box, "Add bundled", add_bundled_callback);
    if (self->components->edit != nullptr) {
        pack_button(self, box, "Add new", add_new_callback);
        self->clone_button = pack_button(self, box, "Clone", clone_callback);
        self->edit_button = pack_button(self, box, "Edit", edit_callback);
    }
    self->save_copy_button = pack_button(self, box, "Save a copy", save_copy_callback);
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

void z_components_gui_main_window_run(const z_components_gui *components)
{
    main_window self = {};
    self.components = components;
    self.folder_path = components_get_folder_path(components);
    create_window(&self);
    refresh_list(&self);
    z_window_stack_run_window(components->window_stack, self.window, z_opening_size::as_set, self.list_view);
}
