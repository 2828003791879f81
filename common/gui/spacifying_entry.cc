#include "common/gui/spacifying_entry.h"

#include <cstring>

#include "common/base/convert.h"
#include "common/base/input_repair.h"
#include "common/base/strip.h"
#include "common/gui/input_bell.h"

// The instance is an entry and its rule for runs of spaces. The rule for what goes in hangs on "insert-text",
// the one signal that every way in passes through.

struct _ZSpacifyingEntry {
    GtkEntry parent_instance;

    z_entry_runs runs;
};

G_DEFINE_FINAL_TYPE(ZSpacifyingEntry, z_spacifying_entry, GTK_TYPE_ENTRY)

static void insert_text_callback(GtkEditable *editable, const char *text, int byte_count, int *position,
                                 gpointer) noexcept
{
    const size_t size = byte_count < 0 ? strlen(text) : static_cast<size_t>(byte_count);
    if (!z_input_needs_repair(text, size, z_input_lines::single))
        return;
    g_signal_stop_emission_by_name(editable, "insert-text");
    if (const z_utf8_ptr repaired = z_input_repair(text, size, z_input_lines::single))
        gtk_editable_insert_text(editable, repaired.get(), -1, position);
    z_input_bell_ring(GTK_WIDGET(editable));
}

static void z_spacifying_entry_class_init(ZSpacifyingEntryClass *) {}

static void z_spacifying_entry_init(ZSpacifyingEntry *self)
{
    g_signal_connect(self, "insert-text", G_CALLBACK(insert_text_callback), nullptr);
}

GtkWidget *z_spacifying_entry_new(z_entry_runs runs)
{
    auto *self = static_cast<ZSpacifyingEntry *>(g_object_new(Z_TYPE_SPACIFYING_ENTRY, nullptr));
    self->runs = runs;
    return GTK_WIDGET(self);
}

void z_spacifying_entry_set_text(ZSpacifyingEntry *self, const char *latin1_text)
{
    const z_utf8_ptr text = z_convert_latin1_to_utf8(latin1_text);
    gtk_entry_set_text(GTK_ENTRY(self),
                       self->runs == z_entry_runs::compacted
                           ? z_strip_surrounding_and_spacify_compactly_within_original_for_utf8(text.get())
                           : z_strip_surrounding_and_spacify_within_original_for_utf8(text.get()));
}

z_latin1_ptr z_spacifying_entry_get_text(ZSpacifyingEntry *self)
{
    const z_latin1_ptr text =
        z_input_repair_to_latin1(gtk_entry_get_text(GTK_ENTRY(self)), z_input_lines::single);
    if (!text)
        return nullptr;
    return self->runs == z_entry_runs::compacted
               ? z_strip_surrounding_and_spacify_compactly_in_new_for_latin1(text.get())
               : z_strip_surrounding_and_spacify_in_new_for_latin1(text.get());
}

GtkWidget *z_gui_create_spacifying_entry(z_entry_runs runs, const char *latin1_text,
                                         z_activates_default activates_default)
{
    GtkWidget *entry = z_spacifying_entry_new(runs);
    if (latin1_text != nullptr)
        z_spacifying_entry_set_text(Z_SPACIFYING_ENTRY(entry), latin1_text);
    gtk_entry_set_activates_default(GTK_ENTRY(entry), activates_default == z_activates_default::yes);
    z_gui_disable_emojis_in_entry(entry);
    gtk_widget_show(entry);
    return entry;
}
