#include "common/gui/langstr_window.h"

#include <algorithm>
#include <utility>

#include "common/base/error.h"
#include "common/gui/gui.h"
#include "common/gui/langstr_editor.h"
#include "common/gui/langstr_scroller.h"
#include "common/gui/message.h"
#include "common/gui/window_stack.h"

struct langstr_window {
    z_window_stack *window_stack;
    z_langstr_ptr &langstr;
    const z_langstr_window_options &options;
    GtkWidget *window = nullptr;
    GtkWidget *editor = nullptr;
    bool is_confirmed = false;
};

// Of the screen's height; the rest is for what else the window shows, and to be left free.
static const int max_percent_for_rows = 60;

static void shrunk_callback(ZLangstrEditor *, gpointer data) noexcept
{
    auto *self = static_cast<langstr_window *>(data);
    z_gui_resize_window_to_minimum_height_unless_maximized(self->window);
}

static void ok_callback(GtkButton *, gpointer data) noexcept
{
    auto *self = static_cast<langstr_window *>(data);
    if (!self->options.insensitive) {
        z_langstr_ptr entered;
        if (!z_langstr_editor_get_text(Z_LANGSTR_EDITOR(self->editor), entered))
            return z_message_show_error(self->window_stack, z_error_get());
        if (!entered && !self->options.allow_empty)
            return z_message_show(self->window_stack, "You haven't entered anything.");
        self->langstr = std::move(entered);
    }
    self->is_confirmed = true;
    gtk_widget_destroy(self->window);
}

static void wrap(GtkWidget *label)
{
    gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
    gtk_label_set_max_width_chars(GTK_LABEL(label), 60);
}

static void pack_editor(langstr_window &self, GtkWidget *box, const z_list<z_preferred_language> &languages)
{
    const z_langstr_window_options &options = self.options;
    GtkWidget *label = nullptr;
    if (options.label != nullptr) {
        label = z_gui_pack_label_for_input_field(box, options.label,
                                                 options.allow_empty ? z_required::no : z_required::yes);
        wrap(label);
    }
    self.editor =
        z_langstr_editor_new(self.window_stack, languages, options.lines, self.langstr.get(), options.locked);
    const int max_height_px = z_gui_get_room_for_window(box).height_px * max_percent_for_rows / 100;
    GtkWidget *scroller = z_langstr_scroller_pack(box, z_expand::yes, self.editor, max_height_px);
    z_langstr_scroller_follow(scroller, self.editor);
    if (label != nullptr)
        z_langstr_editor_set_label(Z_LANGSTR_EDITOR(self.editor), label);
    gtk_widget_set_sensitive(self.editor, !options.insensitive);
    g_signal_connect(self.editor, "shrunk", G_CALLBACK(shrunk_callback), &self);
}

static void pack_note(const langstr_window &self, GtkWidget *box)
{
    const bool is_restricted =
        self.options.insensitive || z_langstr_editor_has_locked_texts(Z_LANGSTR_EDITOR(self.editor));
    if (self.options.note == nullptr || !is_restricted)
        return;
    GtkWidget *note = z_gui_pack_label(box, self.options.note, 0, 0.5);
    wrap(note);
}

bool z_langstr_window_run(z_window_stack *window_stack, const z_list<z_preferred_language> &languages,
                          z_langstr_ptr &langstr, const z_langstr_window_options &options)
{
    langstr_window self{.window_stack = window_stack, .langstr = langstr, .options = options};
    self.window = z_gui_create_window(options.title != nullptr ? options.title : "Enter multilingual text");
    GtkWidget *box = z_gui_add_vbox(self.window, z_spacing::normal);
    pack_editor(self, box, languages);
    pack_note(self, box);
    GtkWidget *ok_button = z_gui_pack_ok_and_cancel_buttons(
        box, self.window, options.ok_label != nullptr ? options.ok_label : "OK", ok_callback, &self);
    gtk_widget_grab_focus(options.insensitive ? ok_button : self.editor);
    z_window_stack_run_window(window_stack, self.window, z_opening_size::as_set, nullptr);
    return self.is_confirmed;
}
