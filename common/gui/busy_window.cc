#include "common/gui/busy_window.h"

#include "common/gui/css.h"
#include "common/gui/gui.h"
#include "common/gui/gui_events.h"

static constexpr int margin_px = 20;
static constexpr int spacing_px = 15;
static constexpr int message_min_width_px = 280;
static constexpr int message_max_width_chars = 60;
static constexpr guint painting_deadline_ms = 250;

z_busy::~z_busy()
{
    if (window != nullptr)
        gtk_widget_destroy(window);
}

// Keeps the window in the middle of its parent as it grows and shrinks.
static void size_allocate_callback(GtkWidget *window, GtkAllocation *allocation, gpointer) noexcept
{
    GtkWindow *parent = gtk_window_get_transient_for(GTK_WINDOW(window));
    if (parent == nullptr)
        return;
    int x = 0;
    int y = 0;
    int width_px = 0;
    int height_px = 0;
    gtk_window_get_position(parent, &x, &y);
    gtk_window_get_size(parent, &width_px, &height_px);
    gtk_window_move(GTK_WINDOW(window), x + (width_px - allocation->width) / 2,
                    y + (height_px - allocation->height) / 2);
}

void z_busy_create_window(z_busy *busy, GtkWidget *parent)
{
    busy->window = z_gui_create_window(nullptr);
    GtkWindow *window = GTK_WINDOW(busy->window);
    gtk_window_set_decorated(window, FALSE);
    gtk_window_set_resizable(window, FALSE);
    gtk_window_set_modal(window, TRUE);
    if (parent != nullptr) {
        gtk_window_set_transient_for(window, GTK_WINDOW(parent));
        gtk_window_set_skip_taskbar_hint(window, TRUE);
        g_signal_connect(window, "size-allocate", G_CALLBACK(size_allocate_callback), nullptr);
    }
    gtk_window_set_position(window,
                            parent == nullptr ? GTK_WIN_POS_CENTER_ALWAYS : GTK_WIN_POS_CENTER_ON_PARENT);
    g_signal_connect(window, "delete-event", G_CALLBACK(gtk_true), nullptr);

    z_gui_set_surrounding_margin(busy->window, margin_px);
    z_css_style_widget(busy->window, "window { background-color: #ffffff; border: 1px solid #808080; }");

    busy->content_box = z_gui_add_vbox(busy->window, z_spacing::none);
    gtk_box_set_spacing(GTK_BOX(busy->content_box), spacing_px);
    busy->message_label = z_gui_pack_label(busy->content_box, "", 0.5, 0.5);
    z_gui_set_widget_fg(busy->message_label, 0x000000);
    gtk_widget_set_size_request(busy->message_label, message_min_width_px, -1);
    gtk_label_set_line_wrap(GTK_LABEL(busy->message_label), TRUE);
    gtk_label_set_line_wrap_mode(GTK_LABEL(busy->message_label), PANGO_WRAP_WORD_CHAR);
    gtk_label_set_max_width_chars(GTK_LABEL(busy->message_label), message_max_width_chars);
    busy->abort_box = z_gui_pack_hbox(busy->content_box, z_expand::no, z_spacing::none);
    gtk_widget_hide(busy->abort_box);
    z_busy_set_message(busy, nullptr);
}

void z_busy_wait_until_painted(z_busy *busy)
{
    bool is_over = false;
    const auto end_wait = +[](gpointer data) -> gboolean {
        *static_cast<bool *>(data) = true;
        return G_SOURCE_CONTINUE;
    };
    const auto drawn_callback = +[](GtkWidget *, cairo_t *, gpointer data) -> gboolean {
        *static_cast<bool *>(data) = true;
        return FALSE;
    };
    const gulong handler = g_signal_connect_after(busy->window, "draw", G_CALLBACK(drawn_callback), &is_over);
    const z_source deadline(g_timeout_add(painting_deadline_ms, end_wait, &is_over));
    while (!is_over)
        g_main_context_iteration(nullptr, TRUE);
    g_signal_handler_disconnect(busy->window, handler);
    z_util_let_through_gtk_events();
}

void z_busy_set_message(z_busy *busy, const char *text)
{
    const char *message = text == nullptr ? "Please wait" : text;
    const z_utf8_ptr markup(g_markup_printf_escaped("<b>%s</b>", message));
    z_gui_set_label_markup(busy->message_label, markup.get());
    gtk_window_set_title(GTK_WINDOW(busy->window), message);
    z_gui_resize_window_to_minimum_unless_maximized(busy->window);
}

static void abort_callback(GtkButton *button, gpointer data) noexcept
{
    auto *busy = static_cast<z_busy *>(data);
    busy->is_abort_requested = true;
    z_gui_set_sensitivity(GTK_WIDGET(button), false);
    z_util_let_through_gtk_events();
}

void z_busy_show_abort_button(z_busy *busy)
{
    if (busy->abort_button == nullptr) {
        busy->abort_button = z_gui_pack_button_in_alignment(busy->abort_box, z_expand::yes, GTK_ALIGN_CENTER,
                                                            GTK_ALIGN_CENTER, "Abort");
        g_signal_connect(busy->abort_button, "clicked", G_CALLBACK(abort_callback), busy);
    }
    gtk_widget_show(busy->abort_box);
}

void z_busy_hide_abort_button(z_busy *busy)
{
    gtk_widget_hide(busy->abort_box);
    z_gui_resize_window_to_minimum_unless_maximized(busy->window);
}
