#include "common/gui/langstr_window.h"

#include <algorithm>
#include <utility>

#include "common/base/error.h"
#include "common/gui/gui.h"
#include "common/gui/langstr_editor.h"
#include "common/gui/message.h"
#include "common/gui/window_stack.h"

struct langstr_window {
    z_window_stack *window_stack;
    z_langstr_ptr &langstr;
    const z_langstr_window_options &options;
    GtkWidget *window = nullptr;
    GtkWidget *scrolled_window = nullptr;
    GtkWidget *editor = nullptr;
    bool follows_end = false; // until the row that was just added is in view
    bool is_confirmed = false;
};

// The window is as high as its rows need, but leaves a part of the screen free; beyond that the rows scroll.
static void fit_height_to_rows(const langstr_window &self)
{
    GdkRectangle area;
    gdk_monitor_get_workarea(gdk_display_get_monitor(gtk_widget_get_display(self.window), 0), &area);
    int natural_height = 0;
    gtk_widget_get_preferred_height(self.editor, nullptr, &natural_height);
    const int limit = area.height * 6 / 10;
    const bool scrolls = natural_height > limit;
    auto *scrolled_window = GTK_SCROLLED_WINDOW(self.scrolled_window);
    gtk_scrolled_window_set_policy(scrolled_window, GTK_POLICY_NEVER,
                                   scrolls ? GTK_POLICY_AUTOMATIC : GTK_POLICY_NEVER);
    gtk_scrolled_window_set_min_content_height(scrolled_window, scrolls ? limit : -1);
}

static void grown_callback(ZLangstrEditor *, gpointer data) noexcept
{
    auto *self = static_cast<langstr_window *>(data);
    self->follows_end = true;
    fit_height_to_rows(*self);
}

static void shrunk_callback(ZLangstrEditor *, gpointer data) noexcept
{
    auto *self = static_cast<langstr_window *>(data);
    fit_height_to_rows(*self);
    z_gui_resize_window_to_minimum_height_unless_maximized(self->window);
}

// The room for a new row exists only once the rows have been laid out again.
static void adjustment_changed_callback(GtkAdjustment *adjustment, gpointer data) noexcept
{
    auto *self = static_cast<langstr_window *>(data);
    if (std::exchange(self->follows_end, false))
        gtk_adjustment_set_value(adjustment, gtk_adjustment_get_upper(adjustment));
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
    self.scrolled_window = z_gui_pack_scrolled_window(box, z_expand::yes, -1, -1, GTK_POLICY_NEVER,
                                                      GTK_POLICY_NEVER, GTK_SHADOW_NONE);
    gtk_scrolled_window_set_propagate_natural_width(GTK_SCROLLED_WINDOW(self.scrolled_window), TRUE);
    self.editor =
        z_langstr_editor_new(self.window_stack, languages, options.lines, self.langstr.get(), options.locked);
    z_gui_place_in_container(self.scrolled_window, self.editor);
    if (label != nullptr)
        z_langstr_editor_set_label(Z_LANGSTR_EDITOR(self.editor), label);
    gtk_widget_set_sensitive(self.editor, !options.insensitive);
    fit_height_to_rows(self);
    g_signal_connect(self.editor, "grown", G_CALLBACK(grown_callback), &self);
    g_signal_connect(self.editor, "shrunk", G_CALLBACK(shrunk_callback), &self);
    g_signal_connect(gtk_scrolled_window_get_vadjustment(GTK_SCROLLED_WINDOW(self.scrolled_window)),
                     "changed", G_CALLBACK(adjustment_changed_callback), &self);
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

static GtkWidget *pack_buttons(langstr_window &self, GtkWidget *box)
{
    GtkWidget *buttons = z_gui_pack_hbox(box, z_expand::no, z_spacing::normal);
    const char *ok_label = self.options.ok_label != nullptr ? self.options.ok_label : "OK";
    GtkWidget *ok_button = z_gui_pack_button(buttons, z_default_button::yes, ok_label);
    GtkWidget *cancel_button = z_gui_create_button("Cancel");
    gtk_box_pack_end(GTK_BOX(buttons), cancel_button, FALSE, FALSE, 0);
    g_signal_connect(ok_button, "clicked", G_CALLBACK(ok_callback), &self);
    g_signal_connect_swapped(cancel_button, "clicked", G_CALLBACK(gtk_widget_destroy), self.window);
    z_gui_set_window_cancel_button(self.window, cancel_button);
    return ok_button;
}

bool z_langstr_window_run(z_window_stack *window_stack, const z_list<z_preferred_language> &languages,
                          z_langstr_ptr &langstr, const z_langstr_window_options &options)
{
    langstr_window self{.window_stack = window_stack, .langstr = langstr, .options = options};
    self.window = z_gui_create_window(options.title != nullptr ? options.title : "Enter multilingual text");
    GtkWidget *box = z_gui_add_vbox(self.window, z_spacing::normal);
    pack_editor(self, box, languages);
    pack_note(self, box);
    GtkWidget *ok_button = pack_buttons(self, box);
    gtk_widget_grab_focus(options.insensitive ? ok_button : self.editor);
    z_window_stack_run_window(window_stack, self.window, z_opening_size::as_set, nullptr);
    return self.is_confirmed;
}
