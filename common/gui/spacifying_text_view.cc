#include "common/gui/spacifying_text_view.h"

#include <cstring>

#include "common/base/convert.h"
#include "common/base/input_repair.h"
#include "common/base/strip.h"
#include "common/gui/gui_create.h"
#include "common/gui/input_bell.h"

// The instance adds nothing to the toolkit's view; the rule for what goes in hangs on its buffer.

struct _ZSpacifyingTextView {
    GtkTextView parent_instance;
};

G_DEFINE_FINAL_TYPE(ZSpacifyingTextView, z_spacifying_text_view, GTK_TYPE_TEXT_VIEW)

// Inserting moves `place` to the end of what went in, as the signal promises its later handlers.
static void insert_text_callback(GtkTextBuffer *buffer, GtkTextIter *place, const char *text, int byte_count,
                                 gpointer data) noexcept
{
    const size_t size = byte_count < 0 ? strlen(text) : static_cast<size_t>(byte_count);
    if (!z_input_needs_repair(text, size, z_input_lines::several))
        return;
    g_signal_stop_emission_by_name(buffer, "insert-text");
    if (const z_utf8_ptr repaired = z_input_repair(text, size, z_input_lines::several))
        gtk_text_buffer_insert(buffer, place, repaired.get(), -1);
    z_input_bell_ring(GTK_WIDGET(data));
}

static gboolean key_press_event(GtkWidget *widget, GdkEventKey *event) noexcept
{
    const bool is_tab = event->keyval == GDK_KEY_Tab || event->keyval == GDK_KEY_KP_Tab ||
                        event->keyval == GDK_KEY_ISO_Left_Tab;
    auto *view_class = GTK_WIDGET_CLASS(z_spacifying_text_view_parent_class);
    auto *handling_class = is_tab ? GTK_WIDGET_CLASS(g_type_class_peek_parent(view_class)) : view_class;
    return handling_class->key_press_event(widget, event);
}

static void z_spacifying_text_view_class_init(ZSpacifyingTextViewClass *klass)
{
    GTK_WIDGET_CLASS(klass)->key_press_event = key_press_event;
}

static void z_spacifying_text_view_init(ZSpacifyingTextView *self)
{
    GtkTextBuffer *buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(self));
    // The buffer may outlive the view, in an undo list or a clipboard.
    g_signal_connect_object(buffer, "insert-text", G_CALLBACK(insert_text_callback), self, GConnectFlags());
}

GtkWidget *z_spacifying_text_view_new()
{
    return GTK_WIDGET(g_object_new(Z_TYPE_SPACIFYING_TEXT_VIEW, nullptr));
}

void z_spacifying_text_view_set_text(ZSpacifyingTextView *self, const char *latin1_text)
{
    const z_utf8_ptr text = z_convert_latin1_to_utf8(latin1_text);
    gtk_text_buffer_set_text(gtk_text_view_get_buffer(GTK_TEXT_VIEW(self)),
                             z_strip_surrounding_and_detabify_within_original_for_utf8(text.get()), -1);
}

z_latin1_ptr z_spacifying_text_view_get_text(ZSpacifyingTextView *self)
{
    GtkTextBuffer *buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(self));
    GtkTextIter start;
    GtkTextIter end;
    gtk_text_buffer_get_bounds(buffer, &start, &end);
    const z_utf8_ptr shown(gtk_text_buffer_get_text(buffer, &start, &end, TRUE));
    const z_latin1_ptr text = z_input_repair_to_latin1(shown.get(), z_input_lines::several);
    return text ? z_strip_surrounding_and_detabify_in_new_for_latin1(text.get()) : nullptr;
}

GtkWidget *z_gui_create_spacifying_text_view()
{
    GtkWidget *view = z_spacifying_text_view_new();
    gtk_text_view_set_wrap_mode(GTK_TEXT_VIEW(view), GTK_WRAP_WORD_CHAR);
    z_gui_disable_emojis_in_text_view(view);
    gtk_widget_show(view);
    return view;
}
