#include "common/gui/gui_set.h"

#include <cstring>

#include "common/base/handles.h"
#include "common/gui/css.h"

void z_gui_set_label_text(GtkWidget *label, const char *text)
{
    gtk_label_set_text(GTK_LABEL(label), text);
}

void z_gui_set_label_markup(GtkWidget *label, const char *markup)
{
    gtk_label_set_markup(GTK_LABEL(label), markup);
}

void z_gui_set_frame_label(GtkWidget *frame, const char *text)
{
    gtk_frame_set_label(GTK_FRAME(frame), text);
}

void z_gui_set_frame_label_markup(GtkWidget *frame, const char *markup)
{
    gtk_frame_set_label_widget(GTK_FRAME(frame), z_gui_create_label_with_markup(markup, 0, 0.5));
}

bool z_gui_set_widget_frame_label(GtkWidget *widget, const char *text)
{
    GtkWidget *parent = gtk_widget_get_parent(widget);
    GtkWidget *frame = parent == nullptr ? nullptr : gtk_widget_get_ancestor(parent, GTK_TYPE_FRAME);
    if (frame == nullptr)
        return false;
    z_gui_set_frame_label(frame, text);
    return true;
}

GtkWidget *z_gui_get_widget_frame_label(GtkWidget *widget)
{
    GtkWidget *frame = gtk_widget_get_ancestor(widget, GTK_TYPE_FRAME);
    return frame != nullptr ? gtk_frame_get_label_widget(GTK_FRAME(frame)) : nullptr;
}

void z_gui_set_button_label(GtkWidget *button, const char *text)
{
    gtk_button_set_label(GTK_BUTTON(button), text);
}

void z_gui_set_entry_text(GtkWidget *entry, const char *text)
{
    gtk_entry_set_text(GTK_ENTRY(entry), text);
}

const char *z_gui_get_entry_text(GtkWidget *entry)
{
    return gtk_entry_get_text(GTK_ENTRY(entry));
}

void z_gui_set_sensitivity(GtkWidget *widget, bool is_sensitive)
{
    gtk_widget_set_sensitive(widget, is_sensitive);
}

bool z_gui_get_sensitivity(GtkWidget *widget)
{
    return gtk_widget_get_sensitive(widget);
}

void z_gui_set_box_spacing(GtkWidget *box, z_spacing spacing)
{
    gtk_box_set_spacing(GTK_BOX(box), spacing == z_spacing::normal ? z_gui_get_default_margin() : 0);
}

void z_gui_set_margins(GtkWidget *widget, int top_px, int right_px, int bottom_px, int left_px)
{
    gtk_widget_set_margin_top(widget, top_px);
    gtk_widget_set_margin_end(widget, right_px);
    gtk_widget_set_margin_bottom(widget, bottom_px);
    gtk_widget_set_margin_start(widget, left_px);
}

void z_gui_set_surrounding_margin(GtkWidget *widget, int margin_px)
{
    if (GTK_IS_CONTAINER(widget))
        gtk_container_set_border_width(GTK_CONTAINER(widget), static_cast<guint>(margin_px));
    else
        z_gui_set_margins(widget, margin_px, margin_px, margin_px, margin_px);
}

void z_gui_set_default_surrounding_margin(GtkWidget *widget)
{
    z_gui_set_surrounding_margin(widget, z_gui_get_default_margin());
}

// The widget keeps its rule under the key, so that a new one takes the old one's place.
static void set_rule(GtkWidget *widget, const char *key, const char *rule)
{
    auto *old_provider = static_cast<GtkStyleProvider *>(g_object_get_data(G_OBJECT(widget), key));
    if (old_provider != nullptr)
        gtk_style_context_remove_provider(gtk_widget_get_style_context(widget), old_provider);
    z_ref<GtkCssProvider> provider = z_css_create_provider(rule);
    z_css_style_widget_with_provider(widget, provider.get());
    g_object_set_data_full(G_OBJECT(widget), key, provider.release(), g_object_unref);
}

void z_gui_set_widget_fg(GtkWidget *widget, uint32_t rgb)
{
    const z_utf8_ptr rule(g_strdup_printf("* { color: #%06x; }", rgb & 0xffffffu));
    set_rule(widget, "zanvel-foreground", rule.get());
}

void z_gui_set_widget_bg(GtkWidget *widget, uint32_t rgb)
{
    const z_utf8_ptr rule(g_strdup_printf("* { background: #%06x; }", rgb & 0xffffffu));
    set_rule(widget, "zanvel-background", rule.get());
}

bool z_gui_does_text_exist_in_list_store(GtkListStore *store, const char *text)
{
    GtkTreeModel *model = GTK_TREE_MODEL(store);
    GtkTreeIter iter;
    for (gboolean found = gtk_tree_model_get_iter_first(model, &iter); found;
         found = gtk_tree_model_iter_next(model, &iter)) {
        z_utf8_ptr row_text;
        gtk_tree_model_get(model, &iter, 0, static_cast<char **>(z_out(row_text)), -1);
        if (row_text && std::strcmp(row_text.get(), text) == 0)
            return true;
    }
    return false;
}

void z_gui_remove_all_from_combo_box_text(GtkWidget *combo)
{
    gtk_combo_box_text_remove_all(GTK_COMBO_BOX_TEXT(combo));
}

static gboolean unselect_callback(gpointer data) noexcept
{
    GtkTreeSelection *selection = GTK_TREE_SELECTION(data);
    // The list may have been destroyed since.
    if (gtk_tree_selection_get_tree_view(selection) != nullptr)
        gtk_tree_selection_unselect_all(selection);
    return G_SOURCE_REMOVE;
}

void z_gui_unselect_when_idle(GtkWidget *tree_view)
{
    GtkTreeSelection *selection = gtk_tree_view_get_selection(GTK_TREE_VIEW(tree_view));
    gtk_tree_selection_unselect_all(selection);
    g_idle_add_full(G_PRIORITY_HIGH_IDLE, unselect_callback, z_share(selection).release(), g_object_unref);
}
