#include "app/editing_window.h"

#include <algorithm>

#include <gtk/gtk.h>

#include "app/application.h"
#include "app/report_type_tab.h"
#include "app/template_gui.h"
#include "app/text_sheet_editor.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/strip.h"
#include "common/gui/gui.h"
#include "common/gui/langstr_editor.h"
#include "common/gui/langstr_scroller.h"
#include "common/gui/langstr_window.h"
#include "common/gui/message.h"
#include "common/gui/spacifying_entry.h"
#include "common/gui/window_stack.h"
#include "common/model/template.h"
#include "common/model/template_io.h"
#include "common/workspace/settings.h"

// What the window opens with, where the screen has that much room: higher if the names in many languages
// would leave less than this of the form. On a small screen the names scroll; what they keep is a share of
// the height.
static const int opening_width_px = 900;
static const int opening_height_px = 700;
static const int page_width_px = 300;
static const int page_minimum_height_px = 100;
static const int page_opening_height_px = 280;
static const int least_percent_for_names = 25;

// One run of the window, a local of the function that runs it.
struct editing_window {
    z_application_context *context;
    const char *path;
    z_fs_identity identity; // The file's as it was read.
    z_template_ptr tmpl;
    GtkWidget *window;
    GtkWidget *names_scroller; // around the names and the version
    ZLangstrEditor *name_editor;
    ZLangstrEditor *author_editor;
    ZSpacifyingEntry *version_entry;
    GtkWidget *notebook;
    ZSpacifyingEntry *codesets_entry;
    z_list<z_template_codeset> original_codesets;
    z_latin1_ptr original_codesets_text; // What codesets_entry was filled with, as it gives it back.
    bool saved;
};

static void show_error(const editing_window *self)
{
    z_message_show_error(self->context->window_stack, z_error_get());
}

// Null stands for the basic data.
static bool add_notebook_page(editing_window *self, z_template_report_type *report_type)
{
    GtkWidget *page = z_gui_create_scrolled_window(page_width_px, page_minimum_height_px, GTK_POLICY_NEVER,
                                                   GTK_POLICY_ALWAYS, GTK_SHADOW_IN);
    GtkWidget *editor =
        report_type == nullptr
            ? text_sheet_editor_new_for_basic_data(self->context, self->tmpl.get())
            : text_sheet_editor_new_for_report_type(self->context, self->tmpl.get(), report_type);
    gtk_widget_show(editor);
    gtk_container_add(GTK_CONTAINER(page), editor);
    if (z_gui_append_notebook_page(self->notebook, page, "Basic data", z_page_margin::none) < 0)
        return false;
    if (report_type != nullptr)
        report_type_tab_attach(self->context, self->notebook, page);
    return true;
}

// Shows the last report type, just added to the template. If that fails, the report type goes again.
static void show_new_report_type(editing_window *self)
{
    z_template_report_type *report_type = self->tmpl->report_types.get_last();
    if (!add_notebook_page(self, report_type)) {
        z_template_report_type_destroy(report_type);
        show_error(self);
        return;
    }
    gtk_notebook_set_current_page(GTK_NOTEBOOK(self->notebook), -1);
}

static void add_new_report_type_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<editing_window *>(data);
    z_error_clear();
    z_langstr_ptr name;
    if (!z_langstr_window_run(self->context->window_stack, self->context->settings->preferred_languages, name,
                              {.title = "Name the new report type", .label = "Report type"}))
        return;
    z_template_add_report_type(self->tmpl.get(), z_template_report_type_new(name.get()));
    show_new_report_type(self);
}

static void add_report_type_from_template_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<editing_window *>(data);
    z_error_clear();
    if (z_template_gui_apply_template_to_template(self->context->window_stack, self->context->workspace,
                                                  Z_TEMPLATE_GUI_REPORT_TYPE, self->tmpl.get(), nullptr,
                                                  nullptr, nullptr))
        show_new_report_type(self);
}

static bool take_names(editing_window *self)
{
    z_template *tmpl = self->tmpl.get();
    tmpl->name.reset();
    if (!z_langstr_editor_get_text(self->name_editor, tmpl->name))
        return false;
    if (tmpl->name == nullptr) {
        z_error_set("The template must have a name.");
        return false;
    }
    tmpl->author.reset();
    if (!z_langstr_editor_get_text(self->author_editor, tmpl->author))
        return false;
    tmpl->version = z_spacifying_entry_get_text(self->version_entry);
    if (tmpl->version == nullptr) {
        z_error_set_unknown();
        return false;
    }
    if (*tmpl->version == '\0')
        tmpl->version.reset();
    return true;
}

// The file gets the report types in the order of their tabs.
static bool take_report_types(editing_window *self)
{
    if (self->tmpl->report_types.is_empty()) {
        z_error_set("The template must have at least one report type.");
        return false;
    }
    const int page_count = gtk_notebook_get_n_pages(GTK_NOTEBOOK(self->notebook));
    for (int page = 1; page < page_count; ++page) {
        z_template_report_type *report_type =
            report_type_tab_get_report_type(gtk_notebook_get_nth_page(GTK_NOTEBOOK(self->notebook), page));
        z_template_add_report_type(self->tmpl.get(), z_template_report_type_remove(report_type));
    }
    return true;
}

static void add_codesets(z_list<z_template_codeset> &target, const z_list<z_template_codeset> &source)
{
    for (const z_template_codeset *codeset : source)
        target.add_last(z_template_codeset_new(codeset->file_name.get()));
}

static void add_codesets_of_text(z_template *tmpl, const char *text)
{
    const z_ptr<char *, g_strfreev> pieces(g_strsplit(text, ",", -1));
    for (char **piece = pieces.get(); *piece != nullptr; ++piece) {
        const char *file_name = z_strip_surrounding_and_spacify_within_original_for_latin1(*piece);
        if (*file_name != '\0')
            z_template_add_codeset(tmpl, z_template_codeset_new(file_name));
    }
}

// File names that nobody has touched stay as they are, also when a save in between has failed: the entry
// cannot hold every name that a file may carry.
static bool take_codesets(editing_window *self)
{
    const z_latin1_ptr text = z_spacifying_entry_get_text(self->codesets_entry);
    if (text == nullptr)
        return false;
    self->tmpl->codesets.destroy_all();
    if (g_strcmp0(text.get(), self->original_codesets_text.get()) == 0)
        add_codesets(self->tmpl->codesets, self->original_codesets);
    else
        add_codesets_of_text(self->tmpl.get(), text.get());
    return true;
}

// What could not be read back is refused before the old file is touched.
static bool take_everything(editing_window *self)
{
    return take_names(self) && take_report_types(self) && take_codesets(self) &&
           z_template_io_check_readable(self->tmpl.get());
}

// Another program, or another window, may have made or changed the file in the meantime. One that has gone is
// simply written again.
static bool may_overwrite(editing_window *self)
{
    z_fs_identity identity;
    if (!z_fs_utils_get_identity(self->path, identity) || !identity.is_file || identity == self->identity)
        return true;
    return z_message_ask_yes_no_question_printf(
        self->context->window_stack, z_answer_if_closed::no, z_question_icon::warning,
        "A file with that name already exists. Really overwrite?\n\n%s", self->path);
}

static void save_button_clicked_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<editing_window *>(data);
    z_error_clear();
    if (!take_everything(self)) {
        show_error(self);
        return;
    }
    if (!may_overwrite(self))
        return;
    if (!z_template_io_put_file(self->tmpl.get(), self->path)) {
        show_error(self);
        return;
    }
    self->saved = true;
    gtk_widget_destroy(self->window);
}

// Asked on every way out, whether or not anything was changed.
static bool close_maybe(editing_window *self)
{
    GtkWidget *dialog = z_message_create_question_dialog(
        "Really close?", "Are you sure you want to close the template without saving?");
    gtk_dialog_add_button(GTK_DIALOG(dialog), "gtk-close", GTK_RESPONSE_CLOSE);
    gtk_dialog_add_button(GTK_DIALOG(dialog), "gtk-cancel", GTK_RESPONSE_CANCEL);
    // Return must not throw the work away.
    gtk_dialog_set_default_response(GTK_DIALOG(dialog), GTK_RESPONSE_CANCEL);
    return z_message_run_and_destroy_dialog(self->context->window_stack, dialog) == GTK_RESPONSE_CLOSE;
}

static void close_button_clicked_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<editing_window *>(data);
    if (close_maybe(self))
        gtk_widget_destroy(self->window);
}

static gboolean window_delete_event_callback(GtkWidget *, GdkEvent *, gpointer data) noexcept
{
    return !close_maybe(static_cast<editing_window *>(data));
}

static void shrunk_callback(GtkWidget *, gpointer data) noexcept
{
    z_gui_resize_window_to_chosen_size_unless_maximized(static_cast<editing_window *>(data)->window);
}

static ZLangstrEditor *pack_langstr_editor(editing_window *self, GtkWidget *vbox, const char *label,
                                           z_required required, const z_langstr *langstr)
{
    GtkWidget *frame_box = z_gui_pack_vbox_in_frame_with_input_field_label(vbox, z_expand::no, label,
                                                                           required, z_spacing::normal);
    GtkWidget *editor =
        z_langstr_editor_new(self->context->window_stack, self->context->settings->preferred_languages,
                             z_input_lines::single, langstr, nullptr);
    z_gui_place_in_container(frame_box, editor);
    z_langstr_scroller_follow(self->names_scroller, editor);
    z_langstr_editor_set_label(Z_LANGSTR_EDITOR(editor), z_gui_get_widget_frame_label(frame_box));
    g_signal_connect(editor, "shrunk", G_CALLBACK(shrunk_callback), self);
    return Z_LANGSTR_EDITOR(editor);
}

static ZSpacifyingEntry *pack_entry(GtkWidget *vbox, const char *label, z_entry_runs runs,
                                    const char *text_latin1)
{
    GtkWidget *frame_box = z_gui_pack_vbox_in_frame_with_input_field_label(vbox, z_expand::no, label,
                                                                           z_required::no, z_spacing::normal);
    GtkWidget *entry =
        z_gui_pack_spacifying_entry(frame_box, z_expand::no, runs, text_latin1, z_activates_default::no);
    gtk_label_set_mnemonic_widget(GTK_LABEL(z_gui_get_widget_frame_label(frame_box)), entry);
    return Z_SPACIFYING_ENTRY(entry);
}

static void pack_notebook_actions(editing_window *self)
{
    const int margin = z_gui_get_default_margin();
    GtkWidget *box = z_gui_create_hbox(z_spacing::normal);
    z_gui_set_margins(box, margin / 2, margin, margin / 2, 0);
    z_gui_pack_space(box, 3 * margin, 0);
    GtkWidget *label = z_gui_pack_label(box, "Add report type:", 0.0, 0.5);
    gtk_label_set_ellipsize(GTK_LABEL(label), PANGO_ELLIPSIZE_END); // only in the narrowest window
    GtkWidget *new_button = z_gui_pack_button(box, z_default_button::no, "New");
    g_signal_connect(new_button, "clicked", G_CALLBACK(add_new_report_type_callback), self);
    GtkWidget *template_button = z_gui_pack_button(box, z_default_button::no, "From template");
    g_signal_connect(template_button, "clicked", G_CALLBACK(add_report_type_from_template_callback), self);
    gtk_notebook_set_action_widget(GTK_NOTEBOOK(self->notebook), box, GTK_PACK_END);
}

static bool add_notebook_pages(editing_window *self)
{
    if (!add_notebook_page(self, nullptr))
        return false;
    for (z_template_report_type *report_type : self->tmpl->report_types) {
        if (!add_notebook_page(self, report_type))
            return false;
    }
    return true;
}

static z_latin1_ptr join_codeset_names(const z_template *tmpl)
{
    z_latin1_ptr text(g_strdup(""));
    for (const z_template_codeset *codeset : tmpl->codesets) {
        const char *separator = *text != '\0' ? ", " : "";
        text.reset(g_strconcat(text.get(), separator, codeset->file_name.get(), nullptr));
    }
    return text;
}

static void pack_bottom_row(editing_window *self, GtkWidget *vbox)
{
    GtkWidget *row = z_gui_pack_hbox(vbox, z_expand::no, z_spacing::normal);
    GtkWidget *save_button = z_gui_pack_button(row, z_default_button::no, "Save template");
    g_signal_connect(save_button, "clicked", G_CALLBACK(save_button_clicked_callback), self);
    GtkWidget *close_button =
        z_gui_pack_button_in_alignment(row, z_expand::yes, GTK_ALIGN_END, GTK_ALIGN_FILL, "Close");
    g_signal_connect(close_button, "clicked", G_CALLBACK(close_button_clicked_callback), self);
}

static void pack_names(editing_window *self, GtkWidget *window_box)
{
    const z_template *tmpl = self->tmpl.get();
    GtkWidget *vbox = z_gui_create_vbox(z_spacing::normal);
    self->names_scroller = z_langstr_scroller_pack(window_box, z_expand::no, vbox, G_MAXINT);
    self->name_editor = pack_langstr_editor(self, vbox, "Template name", z_required::yes, tmpl->name.get());
    self->author_editor = pack_langstr_editor(self, vbox, "Author", z_required::no, tmpl->author.get());
    self->version_entry = pack_entry(vbox, "Version", z_entry_runs::compacted, tmpl->version.get());
}

static int get_minimum_height(GtkWidget *widget)
{
    int height_px = 0;
    gtk_widget_get_preferred_height(widget, &height_px, nullptr);
    return height_px;
}

static void set_opening_size(const editing_window *self)
{
    const int room_px = z_gui_get_room_for_window(self->window).height_px;
    const int rest_px = get_minimum_height(self->window) - get_minimum_height(self->names_scroller) -
                        page_minimum_height_px + page_opening_height_px;
    z_langstr_scroller_set_max_height(self->names_scroller,
                                      std::max(room_px - rest_px, room_px * least_percent_for_names / 100));
    const int wanted_height_px = rest_px + get_minimum_height(self->names_scroller);
    z_gui_set_window_chosen_size(self->window, opening_width_px,
                                 std::max(opening_height_px, wanted_height_px));
}

static bool create_window(editing_window *self)
{
    const z_utf8_ptr title(
        g_strdup_printf("Edit template - %s", z_fs_utils_find_entry_name_in_path(self->path)));
    const z_template *tmpl = self->tmpl.get();
    self->window = z_gui_create_window(title.get());
    GtkWidget *vbox = z_gui_add_vbox(self->window, z_spacing::normal);
    pack_names(self, vbox);
    self->notebook = z_gui_pack_notebook(vbox, z_expand::yes);
    pack_notebook_actions(self);
    const z_latin1_ptr codesets = join_codeset_names(tmpl);
    self->codesets_entry =
        pack_entry(vbox, "Codeset file name(s), comma-separated", z_entry_runs::kept, codesets.get());
    add_codesets(self->original_codesets, tmpl->codesets);
    self->original_codesets_text = z_spacifying_entry_get_text(self->codesets_entry);
    pack_bottom_row(self, vbox);
    g_signal_connect(self->window, "delete-event", G_CALLBACK(window_delete_event_callback), self);
    if (!add_notebook_pages(self))
        return false;
    set_opening_size(self);
    return true;
}

// The template at the path, or a new one if there is none. Null after telling the user what is wrong.
static z_template_ptr open_template(z_window_stack *window_stack, const char *path, z_fs_identity &identity)
{
    z_fs_info info;
    if (!z_fs_utils_get_info(path, info) || !z_fs_utils_get_identity(path, identity)) {
        z_message_show_error_printf(window_stack,
                                    "Something went wrong when accessing the template file:\n\n%s", path);
        return nullptr;
    }
    if (!info.exists)
        return z_template_new();
    z_template_ptr tmpl = z_template_io_read_from_file(path);
    if (tmpl == nullptr) {
        z_error_append_utf8_printf("Error when loading the template file:\n\n%s", path);
        z_message_show_error(window_stack, z_error_get());
    }
    return tmpl;
}

bool run_editing_window(z_application_context *context, const char *path_utf8)
{
    editing_window self = {};
    self.context = context;
    self.path = path_utf8;
    self.tmpl = open_template(context->window_stack, path_utf8, self.identity);
    if (self.tmpl == nullptr)
        return false;
    if (!create_window(&self)) {
        gtk_widget_destroy(self.window);
        z_error_append("Failed creating window.");
        show_error(&self);
        return false;
    }
    z_window_stack_run_window(context->window_stack, self.window, z_opening_size::as_set,
                              GTK_WIDGET(self.name_editor));
    return self.saved;
}
