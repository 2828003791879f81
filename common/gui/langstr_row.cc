#include "common/gui/langstr_row.h"

#include "common/base/error.h"
#include "common/gui/gui.h"
#include "common/gui/language_combo.h"
#include "common/gui/spacifying_entry.h"
#include "common/gui/spacifying_text_view.h"
#include "common/gui/spell_check.h"
#include "common/model/supported_languages.h"

static const int entry_width_chars = 36;
static const int least_entry_width_chars = 14;
static const int text_view_width_px = 360;
static const int text_view_height_px = 90;
static const int text_view_margin_px = 6;

static void name_for_screen_readers(GtkWidget *widget, const char *name)
{
    atk_object_set_name(gtk_widget_get_accessible(widget), name);
}

static void create_input(z_langstr_row *row, z_input_lines lines, const char *text_latin1)
{
    if (lines == z_input_lines::single) {
        row->input =
            z_gui_create_spacifying_entry(z_entry_runs::compacted, text_latin1, z_activates_default::yes);
        row->cell = row->input;
        gtk_entry_set_width_chars(GTK_ENTRY(row->input), least_entry_width_chars);
        gtk_entry_set_max_width_chars(GTK_ENTRY(row->input), entry_width_chars);
        return;
    }
    row->cell = z_gui_create_scrolled_window(text_view_width_px, text_view_height_px, GTK_POLICY_AUTOMATIC,
                                             GTK_POLICY_AUTOMATIC, GTK_SHADOW_IN);
    row->input = z_gui_add_spacifying_text_view(row->cell);
    g_object_set(row->input, "left-margin", text_view_margin_px, "right-margin", text_view_margin_px,
                 "top-margin", text_view_margin_px, "bottom-margin", text_view_margin_px, nullptr);
    z_spacifying_text_view_set_text(Z_SPACIFYING_TEXT_VIEW(row->input), text_latin1);
}

void z_langstr_row_create_widgets(z_langstr_row *row, z_input_lines lines, const char *tag,
                                  const char *text_latin1)
{
    row->combo = z_language_combo_new(tag);
    name_for_screen_readers(row->combo, "Language");
    create_input(row, lines, text_latin1);
    gtk_widget_set_hexpand(row->cell, TRUE);
    row->delete_button = z_gui_create_button("\u2212");
    name_for_screen_readers(row->delete_button, "Delete this language");
    gtk_widget_set_tooltip_text(row->delete_button, "Delete this language");
    gtk_widget_set_valign(row->combo, z_langstr_row_get_alignment(lines));
    gtk_widget_set_valign(row->delete_button, z_langstr_row_get_alignment(lines));
    z_langstr_row_apply_language(row);
}

GtkAlign z_langstr_row_get_alignment(z_input_lines lines)
{
    return lines == z_input_lines::single ? GTK_ALIGN_FILL : GTK_ALIGN_START;
}

void z_langstr_row_attach(z_langstr_row *row, GtkWidget *grid, int top)
{
    z_gui_place_in_grid(grid, 0, top, 1, 1, row->combo);
    z_gui_place_in_grid(grid, 1, top, 1, 1, row->cell);
    z_gui_place_in_grid(grid, 2, top, 1, 1, row->delete_button);
}

void z_langstr_row_move(z_langstr_row *row, GtkWidget *grid, int top)
{
    for (GtkWidget *widget : {row->combo, row->cell, row->delete_button}) {
        if (widget != nullptr)
            gtk_container_child_set(GTK_CONTAINER(grid), widget, "top-attach", top, nullptr);
    }
}

void z_langstr_row_set_sensitivity(z_langstr_row *row, bool may_be_deleted)
{
    if (row->combo != nullptr)
        gtk_widget_set_sensitive(row->combo, !row->locked);
    if (row->input != nullptr)
        gtk_widget_set_sensitive(row->input, !row->input_locked);
    if (row->delete_button != nullptr)
        gtk_widget_set_sensitive(row->delete_button, may_be_deleted && !row->locked);
}

void z_langstr_row_release_widgets(z_langstr_row *row)
{
    for (GtkWidget *widget : {row->combo, row->input, row->cell, row->delete_button}) {
        if (widget != nullptr)
            g_signal_handlers_disconnect_by_data(widget, row);
    }
    row->combo = row->input = row->cell = row->delete_button = nullptr;
}

void z_langstr_row_destroy_widgets(z_langstr_row *row)
{
    GtkWidget *const widgets[] = {row->combo, row->cell, row->delete_button};
    z_langstr_row_release_widgets(row);
    for (GtkWidget *widget : widgets) {
        if (widget != nullptr)
            gtk_widget_destroy(widget);
    }
}

const char *z_langstr_row_get_tag(const z_langstr_row *row)
{
    return row->combo != nullptr ? z_language_combo_get_tag(row->combo) : "";
}

z_latin1_ptr z_langstr_row_get_text(const z_langstr_row *row)
{
    z_latin1_ptr text;
    if (row->input != nullptr && Z_IS_SPACIFYING_ENTRY(row->input))
        text = z_spacifying_entry_get_text(Z_SPACIFYING_ENTRY(row->input));
    else if (row->input != nullptr)
        text = z_spacifying_text_view_get_text(Z_SPACIFYING_TEXT_VIEW(row->input));
    if (!text)
        z_error_set_unknown();
    return text;
}

void z_langstr_row_apply_language(z_langstr_row *row)
{
    const char *tag = z_langstr_row_get_tag(row);
    z_spell_check_set_language(row->input, tag);
    const z_utf8_ptr language = z_supported_languages_format_language_string(tag);
    name_for_screen_readers(row->input, language.get());
}

void z_langstr_row_focus_input(z_langstr_row *row)
{
    if (row->input == nullptr)
        return;
    if (GTK_IS_ENTRY(row->input))
        gtk_entry_grab_focus_without_selecting(GTK_ENTRY(row->input));
    else
        gtk_widget_grab_focus(row->input);
}
