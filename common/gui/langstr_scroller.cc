#include "common/gui/langstr_scroller.h"

#include <memory>
#include <utility>

#include "common/gui/gui.h"
#include "common/gui/langstr_editor.h"

// Belongs to the scrolled window.
struct z_langstr_scroller {
    GtkScrolledWindow *scrolled_window;
    GtkWidget *content;
    int max_height_px;
    GtkWidget *grown_editor; // Null once the row that was just added is in view.
};

static const char scroller_key[] = "zanvel-langstr-scroller";

static void fit_height_to_content(const z_langstr_scroller *self)
{
    int natural_height_px = 0;
    gtk_widget_get_preferred_height(self->content, nullptr, &natural_height_px);
    const bool scrolls = natural_height_px > self->max_height_px;
    gtk_scrolled_window_set_policy(self->scrolled_window, GTK_POLICY_NEVER,
                                   scrolls ? GTK_POLICY_AUTOMATIC : GTK_POLICY_NEVER);
    gtk_scrolled_window_set_min_content_height(self->scrolled_window, scrolls ? self->max_height_px : -1);
    gtk_widget_set_margin_end(self->content, scrolls ? z_gui_get_default_margin() : 0); // Off the bar.
}

static void grown_callback(ZLangstrEditor *editor, gpointer data) noexcept
{
    auto *self = static_cast<z_langstr_scroller *>(data);
    self->grown_editor = GTK_WIDGET(editor);
    fit_height_to_content(self);
}

static void shrunk_callback(ZLangstrEditor *, gpointer data) noexcept
{
    auto *self = static_cast<z_langstr_scroller *>(data);
    self->grown_editor = nullptr;
    fit_height_to_content(self);
}

// The room for a new row exists only once the rows have been laid out again, which they need not be when it
// is announced: what lies below the editor, whose last row it is, stays as high as it was.
static void adjustment_changed_callback(GtkAdjustment *adjustment, gpointer data) noexcept
{
    auto *self = static_cast<z_langstr_scroller *>(data);
    GtkWidget *editor = std::exchange(self->grown_editor, nullptr);
    if (editor == nullptr)
        return;
    int editor_end_px = 0;
    gtk_widget_translate_coordinates(editor, self->content, 0, gtk_widget_get_allocated_height(editor),
                                     nullptr, &editor_end_px);
    const int below_px = gtk_widget_get_allocated_height(self->content) - editor_end_px;
    const double end_px = gtk_adjustment_get_upper(adjustment) - below_px;
    gtk_adjustment_clamp_page(adjustment, end_px, end_px);
}

GtkWidget *z_langstr_scroller_pack(GtkWidget *box, z_expand expand, GtkWidget *content, int max_height_px)
{
    GtkWidget *scroller =
        z_gui_pack_scrolled_window(box, expand, -1, -1, GTK_POLICY_NEVER, GTK_POLICY_NEVER, GTK_SHADOW_NONE);
    gtk_scrolled_window_set_propagate_natural_width(GTK_SCROLLED_WINDOW(scroller), TRUE);
    z_gui_place_in_container(scroller, content);

    auto owner = std::make_unique<z_langstr_scroller>(
        z_langstr_scroller{GTK_SCROLLED_WINDOW(scroller), content, max_height_px, nullptr});
    z_langstr_scroller *self = owner.get();
    g_object_set_data_full(
        G_OBJECT(scroller), scroller_key, owner.release(),
        +[](gpointer data) { delete static_cast<z_langstr_scroller *>(data); });
    fit_height_to_content(self);
    g_signal_connect(gtk_scrolled_window_get_vadjustment(self->scrolled_window), "changed",
                     G_CALLBACK(adjustment_changed_callback), self);
    return scroller;
}

static z_langstr_scroller *get_record(GtkWidget *scroller)
{
    return static_cast<z_langstr_scroller *>(g_object_get_data(G_OBJECT(scroller), scroller_key));
}

void z_langstr_scroller_set_max_height(GtkWidget *scroller, int max_height_px)
{
    z_langstr_scroller *self = get_record(scroller);
    self->max_height_px = max_height_px;
    fit_height_to_content(self);
}

void z_langstr_scroller_follow(GtkWidget *scroller, GtkWidget *editor)
{
    z_langstr_scroller *self = get_record(scroller);
    g_signal_connect(editor, "grown", G_CALLBACK(grown_callback), self);
    g_signal_connect(editor, "shrunk", G_CALLBACK(shrunk_callback), self);
}
