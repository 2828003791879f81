#include <gtk/gtk.h>

#include "app/components_gui.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/strip.h"
#include "common/base/utf8.h"
#include "common/gui/gui.h"
#include "common/gui/message.h"
#include "common/gui/window_stack.h"
#include "common/workspace/workspace.h"

// One run of the window, a local of the function that runs it.
struct new_file_window {
    const z_components_gui *components;
    const char *extension; // With its period.
    GtkWidget *window;
    GtkWidget *entry;
    z_utf8_ptr path; // What OK has accepted.
};

static bool is_permitted(char c)
{
    return g_ascii_islower(c) || g_ascii_isdigit(c) || c == '_';
}

// Checks the part of the name in front of the extension; shows what is wrong.
static bool check_name(const new_file_window *self, const char *name)
{
    z_window_stack *window_stack = self->components->window_stack;
    const size_t extension_length = strlen(self->extension);
    if (strlen(name) <= extension_length ||
        !z_utf8_has_suffix_case_insensitive_ascii(name, self->extension)) {
        z_message_show_error_printf(
            window_stack, "The file name must contain at least one character and then end with \"%s\"",
            self->extension);
        return false;
    }
    const char *end = name + strlen(name) - extension_length;
    for (const char *c = name; c < end; c = g_utf8_next_char(c)) {
        if (!is_permitted(*c)) {
            z_message_show_error_printf(window_stack, "The character \"%.*s\" is not permitted.",
                                        static_cast<int>(g_utf8_next_char(c) - c), c);
            return false;
        }
    }
    return true;
}

// Whether the path is free; shows whose it is if it is not.
static bool check_free(const new_file_window *self, const char *path)
{
    const z_components_gui *components = self->components;
    z_fs_info info;
    if (z_fs_utils_get_info(path, info) && !info.exists)
        return true;
    const z_item_line *line = z_item_list_get_line(path, components->item_text_context,
                                                   components->get_item_text, components->user_data);
    if (line->text == nullptr)
        z_message_show_error(components->window_stack, "That file name is already taken.");
    else
        z_message_show_error_printf(components->window_stack, "That file name is already taken for \"%s\"",
                                    line->text.get());
    return false;
}

static void ok_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<new_file_window *>(data);
    const z_components_gui *components = self->components;
    z_error_clear();
    const z_utf8_ptr name =
        z_strip_surrounding_and_spacify_in_new_for_utf8(z_gui_get_entry_text(self->entry));
    if (!check_name(self, name.get()))
        return;
    z_utf8_ptr path = z_fs_utils_create_path_in_folder(components->workspace->folder_path.get(),
                                                       components->sub_folder_name, name.get());
    if (!check_free(self, path.get()))
        return;
    self->path = std::move(path);
    gtk_widget_destroy(self->window);
}

// Typing goes in front of the extension: what an entry selects when it is given the focus is dropped again.
static void grab_focus_callback(GtkWidget *entry, gpointer) noexcept
{
    int start;
    int end;
    if (gtk_editable_get_selection_bounds(GTK_EDITABLE(entry), &start, &end))
        gtk_editable_select_region(GTK_EDITABLE(entry), start, start);
}

static void create_window(new_file_window *self)
{
    self->window = z_gui_create_window("Add new");
    GtkWidget *vbox = z_gui_add_vbox(self->window, z_spacing::normal);
    GtkWidget *label = z_gui_pack_label(vbox, "Enter new file name", 0.0, 0.5);
    self->entry = z_gui_pack_entry(vbox, z_expand::no, self->extension, z_activates_default::yes);
    gtk_label_set_mnemonic_widget(GTK_LABEL(label), self->entry);
    g_signal_connect_after(self->entry, "grab-focus", G_CALLBACK(grab_focus_callback), nullptr);
    z_gui_pack_label(vbox, "Permitted characters: Lowercase letters, digits and underscores.", 0.0, 0.5);

    z_gui_pack_ok_and_cancel_buttons(vbox, self->window, "OK", ok_callback, self);
}

z_utf8_ptr z_components_gui_get_new_file_path(const z_components_gui *components)
{
    new_file_window self = {};
    self.components = components;
    self.extension = z_file_type_get_default_file_name_extension_with_period(components->file_type);
    create_window(&self);
    z_window_stack_run_window(components->window_stack, self.window, z_opening_size::as_set, self.entry);
    return std::move(self.path);
}
