#include "app/workspace_gui.h"

#include <algorithm>
#include <vector>

#include <gtk/gtk.h>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/gui/file_dialog.h"
#include "common/gui/gui.h"
#include "common/gui/message.h"
#include "common/gui/window_stack.h"
#include "common/workspace/workspace.h"

static constexpr char window_title[] = "Zanvel";
static constexpr char page_title[] = "Zanvel Workspace Setup";
static constexpr int introduction_page = 0;
static constexpr int confirmation_page = 1;
static constexpr int summary_page = 2;
static constexpr int margin_px = 2 * z_gui_get_default_margin();

// One run of the assistant, a local of the function that runs it.
struct workspace_assistant {
    z_window_stack *window_stack;
    GtkWidget *window = nullptr;
    GtkWidget *entry = nullptr;
    std::vector<GtkWidget *> labels; // Of the pages' long texts.
    bool is_created = false;
};

// What the user has entered, as a path in an existing or yet missing folder.
static z_utf8_ptr get_entered_path(const workspace_assistant *self)
{
    z_utf8_ptr path(g_strdup(z_gui_get_entry_text(self->entry)));
    g_strstrip(path.get());
    return path;
}

// Whether nothing is there yet; shows what stands in the way.
static bool check_place(const workspace_assistant *self, const char *path)
{
    z_fs_info info;
    if (!z_fs_path_is_absolute(path) || !z_fs_utils_get_info(path, info)) {
        z_error_append("Cannot access the specified location.");
        z_message_show_error(self->window_stack, z_error_get());
        return false;
    }
    if (info.exists)
        z_message_show_error(
            self->window_stack,
            "There is already a folder or a file with that name.\n\nPlease choose a new location.");
    return !info.exists;
}

static bool create_workspace(const workspace_assistant *self)
{
    z_error_clear();
    const z_utf8_ptr path = get_entered_path(self);
    if (!check_place(self, path.get()))
        return false;
    z_window_stack_busy_begin(self->window_stack, z_busy_display::window);
    const bool is_created = z_workspace_create(path.get());
    z_window_stack_busy_end(self->window_stack);
    if (!is_created)
        z_message_show_error(self->window_stack, "Creating a workspace at the chosen location failed.");
    return is_created;
}

static void apply_callback(GtkAssistant *, gpointer data) noexcept
{
    auto *self = static_cast<workspace_assistant *>(data);
    self->is_created = create_workspace(self);
}

// The assistant goes on by itself after "apply", so this is the way to send it back.
static gint forward_page(gint page, gpointer data) noexcept
{
    const auto *self = static_cast<workspace_assistant *>(data);
    if (page == introduction_page)
        return confirmation_page;
    if (page == confirmation_page)
        return self->is_created ? summary_page : introduction_page;
    return -1;
}

static void browse_callback(GtkButton *, gpointer data) noexcept
{
    const auto *self = static_cast<workspace_assistant *>(data);
    const z_utf8_ptr folder_path =
        z_file_dialog_get_folder_path(self->window_stack, "Select a parent folder for your workspace");
    if (folder_path == nullptr)
        return;
    const z_utf8_ptr path = z_fs_utils_create_path_in_folder(folder_path.get(), z_workspace_folder_name);
    z_gui_set_entry_text(self->entry, path.get());
}

// The toolkit gives the window each page's title.
static void notify_title_callback(GtkWindow *window, GParamSpec *, gpointer) noexcept
{
    if (g_strcmp0(gtk_window_get_title(window), window_title) != 0)
        gtk_window_set_title(window, window_title);
}

static GtkWidget *add_page(workspace_assistant *self, GtkAssistantPageType type)
{
    GtkWidget *page = z_gui_create_vbox(z_spacing::normal);
    z_gui_set_surrounding_margin(page, margin_px);
    gtk_assistant_append_page(GTK_ASSISTANT(self->window), page);
    gtk_assistant_set_page_type(GTK_ASSISTANT(self->window), page, type);
    gtk_assistant_set_page_title(GTK_ASSISTANT(self->window), page, page_title);
    gtk_assistant_set_page_complete(GTK_ASSISTANT(self->window), page, TRUE);
    return page;
}

static void pack_text(workspace_assistant *self, GtkWidget *page, const char *text)
{
    self->labels.push_back(z_gui_pack_label(page, text, 0, 0));
}

static void add_introduction_page(workspace_assistant *self)
{
    const z_utf8_ptr text(g_strdup_printf(
        "Before you can start using Zanvel we need to create a workspace for you. This is a personal\n"
        "folder on the computer where the following things are stored:\n\n"
        "- The object files you are working with\n"
        "- Your remark codesets\n"
        "- Your object file templates\n"
        "- Your print layouts\n"
        "- Your personal program settings\n\n"
        "The typical place for the workspace is in a folder named \"%s\" in \"My Documents\",\n"
        "but this guide will let you choose a different location should you want to.\n\n"
        "Click [Next] to continue.",
        z_workspace_folder_name));
    pack_text(self, add_page(self, GTK_ASSISTANT_PAGE_INTRO), text.get());
}

static void add_confirmation_page(workspace_assistant *self)
{
    GtkWidget *page = add_page(self, GTK_ASSISTANT_PAGE_CONFIRM);
    GtkWidget *label = z_gui_pack_label(page, "Workspace location", 0, 0);
    GtkWidget *row = z_gui_pack_hbox(page, z_expand::no, z_spacing::normal);
    const z_utf8_ptr default_path = z_workspace_get_default_folder_path();
    self->entry = z_gui_pack_entry(row, z_expand::yes, default_path.get(), z_activates_default::yes);
    gtk_label_set_mnemonic_widget(GTK_LABEL(label), self->entry);
    GtkWidget *button = z_gui_pack_button(row, z_default_button::no, "Browse...");
    g_signal_connect(button, "clicked", G_CALLBACK(browse_callback), self);
    z_gui_pack_default_margin_space(page);
    pack_text(
        self, page,
        "Please make sure that the workspace is located in a folder which can always be reached from\n"
        "this computer. For instance, if this is a portable computer then you should not put it on a server "
        "on\n"
        "the network. This is because when you bring your computer with you into the field, you will want\n"
        "to also bring the material you are working with.\n\n"
        "Click [Apply] to create your workspace.");
}

static void add_summary_page(workspace_assistant *self)
{
    pack_text(self, add_page(self, GTK_ASSISTANT_PAGE_SUMMARY),
              "Your workspace was successfully created, and you can now start using Zanvel.\n\n"
              "Click [Close] to continue.");
}

// Lets the text break its lines at this width instead of where it does; paragraphs and lists stay.
static void wrap_label(GtkWidget *label, int width_px)
{
    const z_utf8_ptr text(g_strdup(gtk_label_get_text(GTK_LABEL(label))));
    for (char *c = text.get(); *c != '\0'; ++c) {
        if (c[0] != '\n' && c[1] == '\n' && c[2] != '\n' && c[2] != '-')
            c[1] = ' ';
    }
    gtk_label_set_text(GTK_LABEL(label), text.get());
    gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
    // The assistant does not ask its pages how high they are at a width.
    int height_px = 0;
    gtk_widget_get_preferred_height_for_width(label, width_px, &height_px, nullptr);
    gtk_widget_set_size_request(label, width_px, height_px);
}

static void fit_on_screen(const workspace_assistant *self)
{
    int window_width_px = 0;
    gtk_widget_get_preferred_width(self->window, nullptr, &window_width_px);
    const int room_px = z_gui_get_room_for_window(self->window).width_px;
    if (window_width_px <= room_px)
        return;
    int text_width_px = 0;
    for (GtkWidget *label : self->labels) {
        int width_px = 0;
        gtk_widget_get_preferred_width(label, nullptr, &width_px);
        text_width_px = std::max(text_width_px, width_px);
    }
    text_width_px = std::max(text_width_px - (window_width_px - room_px), 0);
    for (GtkWidget *label : self->labels)
        wrap_label(label, text_width_px);
    gtk_window_set_default_size(GTK_WINDOW(self->window), room_px, -1);
}

bool z_workspace_gui_create_workspace(z_window_stack *window_stack)
{
    workspace_assistant self = {.window_stack = window_stack, .labels = {}};
    self.window = GTK_WIDGET(g_object_new(GTK_TYPE_ASSISTANT, "use-header-bar", FALSE, "title", "Zanvel",
                                          "window-position", GTK_WIN_POS_CENTER, nullptr));
    add_introduction_page(&self);
    add_confirmation_page(&self);
    add_summary_page(&self);
    fit_on_screen(&self);
    gtk_assistant_set_forward_page_func(GTK_ASSISTANT(self.window), forward_page, &self, nullptr);
    g_signal_connect(self.window, "notify::title", G_CALLBACK(notify_title_callback), nullptr);
    g_signal_connect(self.window, "apply", G_CALLBACK(apply_callback), &self);
    // Close requests and Escape arrive as "cancel".
    g_signal_connect(self.window, "cancel", G_CALLBACK(gtk_widget_destroy), nullptr);
    g_signal_connect(self.window, "close", G_CALLBACK(gtk_widget_destroy), nullptr);
    z_window_stack_run_window(window_stack, self.window, z_opening_size::as_set, nullptr);
    return self.is_created;
}
