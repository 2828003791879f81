#include "common/gui/gui_notebook.h"

#include <algorithm>

#include "common/base/error.h"
#include "common/gui/gui_create.h"
#include "common/gui/gui_font.h"
#include "common/gui/gui_set.h"
#include "common/gui/gui_window.h"

static constexpr int tab_label_max_chars = 30;
static constexpr int tab_label_max_part = 4; // Of the screen's width.

static int get_max_width_chars(GtkWidget *label)
{
    const int max_px = z_gui_get_room_for_window(label).width_px / tab_label_max_part;
    return std::clamp(max_px / z_gui_get_char_width(label), 1, tab_label_max_chars);
}

GtkWidget *z_gui_create_tab_label(const char *text)
{
    GtkWidget *label = z_gui_create_label("", 0.5, 0.5);
    z_gui_set_tab_label_text(label, text);
    return label;
}

static void set_width_chars(GtkLabel *label, PangoEllipsizeMode ellipsize, int width_chars)
{
    gtk_label_set_ellipsize(label, ellipsize);
    gtk_label_set_width_chars(label, width_chars);
    gtk_label_set_max_width_chars(label, width_chars);
}

void z_gui_set_tab_label_text(GtkWidget *label, const char *text)
{
    gtk_label_set_text(GTK_LABEL(label), text);
    gtk_label_set_single_line_mode(GTK_LABEL(label), TRUE);
    set_width_chars(GTK_LABEL(label), PANGO_ELLIPSIZE_NONE, -1);
    int whole_px = 0;
    gtk_widget_get_preferred_width(label, nullptr, &whole_px);
    const int max_chars = get_max_width_chars(label);
    const bool is_long = whole_px > max_chars * z_gui_get_char_width(label);
    if (is_long)
        set_width_chars(GTK_LABEL(label), PANGO_ELLIPSIZE_END, max_chars);
    gtk_widget_set_tooltip_text(label, is_long ? text : nullptr);
}

int z_gui_append_notebook_page(GtkWidget *notebook, GtkWidget *page, const char *label, z_page_margin margin)
{
    const int index = gtk_notebook_append_page(GTK_NOTEBOOK(notebook), page, nullptr);
    if (index < 0) {
        z_error_set("Error when adding notebook page.");
        return index;
    }
    if (label != nullptr)
        z_gui_set_notebook_label_text(notebook, page, label);
    if (margin == z_page_margin::normal)
        z_gui_set_default_surrounding_margin(page);
    return index;
}

void z_gui_set_notebook_tab_label_text(GtkWidget *notebook, GtkWidget *page, const char *text)
{
    gtk_notebook_set_tab_label(GTK_NOTEBOOK(notebook), page, z_gui_create_tab_label(text));
}

void z_gui_set_notebook_tab_label_markup(GtkWidget *notebook, GtkWidget *page, const char *markup)
{
    gtk_notebook_set_tab_label(GTK_NOTEBOOK(notebook), page,
                               z_gui_create_label_with_markup(markup, 0.5, 0.5));
}

void z_gui_set_notebook_menu_label_text(GtkWidget *notebook, GtkWidget *page, const char *text)
{
    gtk_notebook_set_menu_label(GTK_NOTEBOOK(notebook), page, z_gui_create_label(text, 0, 0.5));
}

void z_gui_set_notebook_menu_label_markup(GtkWidget *notebook, GtkWidget *page, const char *markup)
{
    gtk_notebook_set_menu_label(GTK_NOTEBOOK(notebook), page, z_gui_create_label_with_markup(markup, 0, 0.5));
}

void z_gui_set_notebook_label_text(GtkWidget *notebook, GtkWidget *page, const char *text)
{
    z_gui_set_notebook_tab_label_text(notebook, page, text);
    z_gui_set_notebook_menu_label_text(notebook, page, text);
}

void z_gui_set_notebook_label_markup(GtkWidget *notebook, GtkWidget *page, const char *markup)
{
    z_gui_set_notebook_tab_label_markup(notebook, page, markup);
    z_gui_set_notebook_menu_label_markup(notebook, page, markup);
}
