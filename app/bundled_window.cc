#include <gtk/gtk.h>

#include "app/components_gui.h"
#include "app/item_list_view.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/gui/gui.h"
#include "common/gui/message.h"
#include "common/gui/window_stack.h"

// One run of the window, a local of the function that runs it.
struct bundled_window {
    const z_components_gui *components;
    z_utf8_ptr folder_path;
    GtkWidget *window;
    GtkWidget *list_view;
    z_utf8_ptr path; // What OK has accepted.
};

static void ok_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<bundled_window *>(data);
    z_error_clear();
    const z_utf8_ptr file_name = item_list_view_get_selected_file_name(self->list_view);
    if (file_name == nullptr) {
        z_message_show_error(self->components->window_stack, "None selected.");
        return;
    }
    self->path = z_fs_utils_create_path_in_folder(self->folder_path.get(), file_name.get());
    gtk_widget_destroy(self->window);
}

static void row_activated_callback(GtkTreeView *, GtkTreePath *, GtkTreeViewColumn *, gpointer data) noexcept
{
    ok_callback(nullptr, data);
}

static void create_window(bundled_window *self)
{
    self->window = z_gui_create_window("Select one to add");
    GtkWidget *vbox = z_gui_add_vbox(self->window, z_spacing::normal);
    self->list_view = item_list_view_pack(vbox, 400, 300);
    g_signal_connect(self->list_view, "row-activated", G_CALLBACK(row_activated_callback), self);
    z_gui_pack_ok_and_cancel_buttons(vbox, self->window, "OK", ok_callback, self);
}

z_utf8_ptr z_components_gui_get_bundled_file_path(const z_components_gui *components)
{
    bundled_window self = {};
    self.components = components;
    self.folder_path = components_get_bundled_folder_path(components);
    create_window(&self);
    if (self.folder_path != nullptr)
        item_list_view_fill(self.list_view, components_list_folder(components, self.folder_path.get()));
    z_window_stack_run_window(components->window_stack, self.window, z_opening_size::as_set, self.list_view);
    return std::move(self.path);
}
