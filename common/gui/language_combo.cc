#include "common/gui/language_combo.h"

#include "common/base/handles.h"
#include "common/gui/gui_create.h"
#include "common/model/supported_languages.h"

static void append_line(GtkComboBoxText *combo, const char *tag)
{
    const z_utf8_ptr line = z_supported_languages_format_language_string(tag);
    gtk_combo_box_text_append(combo, tag, line.get());
}

// A tag can be of any length; the combo box does not grow beyond the table's own names.
static void limit_width(GtkWidget *combo)
{
    GList *cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(combo));
    g_object_set(cells->data, "ellipsize", PANGO_ELLIPSIZE_END, "width-chars", 34, "max-width-chars", 34,
                 nullptr);
    g_list_free(cells);
    // The chosen line alone is measured, not all of them.
    g_object_set(gtk_bin_get_child(GTK_BIN(combo)), "fit-model", FALSE, nullptr);
}

// Ends the emission unanswered, so that the event goes on to whatever scrolls around the combo box.
static gboolean scroll_event_callback(GtkWidget *combo, GdkEvent *, gpointer) noexcept
{
    g_signal_stop_emission_by_name(combo, "scroll-event");
    return FALSE;
}

GtkWidget *z_language_combo_new(const char *tag)
{
    GtkWidget *combo = z_gui_create_combo_box_text();
    auto *lines = GTK_COMBO_BOX_TEXT(combo);
    const bool has_tag = tag != nullptr && *tag != '\0';
    if (tag != nullptr && !has_tag)
        append_line(lines, tag);
    for (int index = 0; index < z_supported_languages_get_count(); ++index)
        append_line(lines, z_supported_languages_get_tag(index));
    if (has_tag && z_supported_languages_get_index_for_tag(tag) < 0)
        append_line(lines, tag);
    if (tag != nullptr)
        gtk_combo_box_set_active_id(GTK_COMBO_BOX(combo), tag);
    limit_width(combo);
    g_signal_connect(combo, "scroll-event", G_CALLBACK(scroll_event_callback), nullptr);
    return combo;
}

const char *z_language_combo_get_tag(GtkWidget *combo)
{
    const char *tag = gtk_combo_box_get_active_id(GTK_COMBO_BOX(combo));
    return tag != nullptr ? tag : "";
}
