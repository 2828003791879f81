#include "common/gui/langstr_scroller.h"

#include <memory>
#include <utility>

#include "common/gui/gui.h"
#include "common/gui/gui_window.h"
#include "common/gui/langstr_editor.h"

// Belongs to the scrolled window.
struct z_langstr_scroller {
    GtkScrolledWindow *scrolled_window;
    GtkWidget *editor;
    int max_percent;
    bool follows_end; // until the row that was just added is in view
};

static const char scroller_key[] = "zanvel-langstr-scroller";

static void fit_height_to_rows(const z_langstr_scroller *self)
{
    int natural_height = 0;
    gtk_widget_get_preferred_height(self->editor, nullptr, &natural_height);
    const int limit = z_gui_get_work_area(self->editor).height * self->max_percent / 100;
    const bool scrolls = natural_height > limit;
    gtk_scrolled_window_set_policy(self->scrolled_window, GTK_POLICY_NEVER,
                                   scrolls ? GTK_POLICY_AUTOMATIC : GTK_POLICY_NEVER);
    gtk_scrolled_window_set_min_content_height(self->scrolled_window, scrolls ? limit : -1);
}

static void grown_callback(ZLangstrEditor *, gpointer data) noexcept
{
    auto *self = static_cast<z_langstr_scroller *>(data);
    self->follows_end = true;
    fit_height_to_rows(self);
}

static void shrunk_callback(ZLangstrEditor *, gpointer data) noexcept
{
    fit_height_to_rows(static_cast<z_langstr_scroller *>(data));
}

// The room for a new row exists only once the rows have been laid out again.
static void adjustment_changed_callback(GtkAdjustment *adjustment, gpointer data) noexcept
{
    auto *self = static_cast<z_langstr_scroller *>(data);
    if (std::exchange(self->follows_end, false))
        gtk_adjustment_set_value(adjustment, gtk_adjustment_get_upper(adjustment));
}

void z_langstr_scroller_pack(GtkWidget *box, GtkWidget *editor, int max_percent_of_screen)
{
    auto *scrolled_window = GTK_SCROLLED_WINDOW(z_gui_pack_scrolled_window(
        box, z_expand::yes, -1, -1, GTK_POLICY_NEVER, GTK_POLICY_NEVER, GTK_SHADOW_NONE));
    gtk_scrolled_window_set_propagate_natural_width(scrolled_window, TRUE);
    z_gui_place_in_container(GTK_WIDGET(scrolled_window), editor);

    auto owner = std::make_unique<z_langstr_scroller>(
        z_langstr_scroller{scrolled_window, editor, max_percent_of_screen, false});
    z_langstr_scroller *self = owner.get();
    g_object_set_data_full(
        G_OBJECT(scrolled_window), scroller_key, owner.release(),
        +[](gpointer data) { delete static_cast<z_langstr_scroller *>(data); });
    fit_height_to_rows(self);
    g_signal_connect(editor, "grown", G_CALLBACK(grown_callback), self);
    g_signal_connect(editor, "shrunk", G_CALLBACK(shrunk_callback), self);
    g_signal_connect(gtk_scrolled_window_get_vadjustment(scrolled_window), "changed",
                     G_CALLBACK(adjustment_changed_callback), self);
}
