#include "common/gui/langstr_display.h"

#include "common/base/convert.h"
#include "common/gui/gui.h"
#include "common/model/supported_languages.h"

// The view owns the buffer, whose only tag is "bold".

struct _ZLangstrDisplay {
    GtkTextView parent_instance;
};

G_DEFINE_FINAL_TYPE(ZLangstrDisplay, z_langstr_display, GTK_TYPE_TEXT_VIEW)

static void z_langstr_display_class_init(ZLangstrDisplayClass *) {}

static void z_langstr_display_init(ZLangstrDisplay *self)
{
    auto *view = GTK_TEXT_VIEW(self);
    gtk_text_view_set_wrap_mode(view, GTK_WRAP_WORD_CHAR);
    gtk_text_view_set_editable(view, FALSE);
    gtk_text_view_set_cursor_visible(view, FALSE);
    gtk_text_view_set_accepts_tab(view, FALSE);
    gtk_text_view_set_left_margin(view, z_gui_get_default_margin());
    gtk_text_view_set_right_margin(view, z_gui_get_default_margin());
    gtk_text_view_set_top_margin(view, z_gui_get_default_margin());
    gtk_text_view_set_bottom_margin(view, z_gui_get_default_margin());
    gtk_text_buffer_create_tag(gtk_text_view_get_buffer(view), "bold", "weight", PANGO_WEIGHT_BOLD, nullptr);
    gtk_widget_show(GTK_WIDGET(self));
}

GtkWidget *z_langstr_display_new()
{
    return static_cast<GtkWidget *>(g_object_new(Z_TYPE_LANGSTR_DISPLAY, nullptr));
}

void z_langstr_display_set_text(ZLangstrDisplay *self, const z_langstr *langstr)
{
    GtkTextBuffer *buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(self));
    gtk_text_buffer_set_text(buffer, "", 0);
    GtkTextIter end;
    gtk_text_buffer_get_end_iter(buffer, &end);
    for (const z_langstr *entry = langstr; entry != nullptr; entry = entry->next.get()) {
        const z_utf8_ptr language = z_supported_languages_format_language_string(entry->tag.get());
        const z_utf8_ptr text = z_convert_latin1_to_utf8(entry->text.get());
        gtk_text_buffer_insert_with_tags_by_name(buffer, &end, language.get(), -1, "bold", nullptr);
        gtk_text_buffer_insert(buffer, &end, "\n\n", -1);
        gtk_text_buffer_insert(buffer, &end, text.get(), -1);
        if (entry->next != nullptr)
            gtk_text_buffer_insert(buffer, &end, "\n\n", -1);
    }
}
