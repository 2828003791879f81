#include "common/gui/window_stack.h"

#include <cstdarg>

#include "common/base/list.h"
#include "common/gui/busy_window.h"
#include "common/gui/focus_watch.h"
#include "common/gui/gui_events.h"
#include "common/gui/gui_set.h"

enum class z_window_stack_node_kind { window, native, busy };

struct z_window_stack_node : z_link {
    explicit z_window_stack_node(z_window_stack_node_kind new_kind) : kind(new_kind) {}
    ~z_window_stack_node()
    {
        g_clear_weak_pointer(&focus_widget);
    }

    z_window_stack_node_kind kind;
    // Of a window node: the window, whether it is sensitive, and while it is not, which widget had the focus.
    GtkWidget *window = nullptr;
    bool is_enabled = true;
    GtkWidget *focus_widget = nullptr;
    z_mouse_cursor_operation cursor_operation = nullptr;
    gpointer cursor_data = nullptr;
    // Of a busy node.
    std::unique_ptr<z_busy> busy;
};

struct z_window_stack {
    z_list<z_window_stack_node> nodes;
    z_focus_watch focus_watch;
    z_focus_return_operation focus_operation = nullptr;
    gpointer focus_data = nullptr;
};

using node_kind = z_window_stack_node_kind;
using z_main_loop_ptr = z_ptr<GMainLoop, g_main_loop_unref>;

// The stack's nodes.

// What a node shows of ours, or null.
static GtkWidget *get_shown_window(const z_window_stack_node *node)
{
    return node->kind == node_kind::busy ? node->busy->window : node->window;
}

static z_window_stack_node *find_node(z_window_stack *stack, const GtkWidget *window)
{
    for (z_window_stack_node *node : stack->nodes) {
        if (node->window == window)
            return node;
    }
    return nullptr;
}

static GtkWidget *get_uppermost_window(const z_window_stack *stack)
{
    GtkWidget *window = nullptr;
    for (const z_window_stack_node *node : stack->nodes) {
        if (node->kind == node_kind::window)
            window = node->window;
    }
    return window;
}

static z_window_stack_node *append_node(z_window_stack *stack, node_kind kind)
{
    return stack->nodes.add_last(std::make_unique<z_window_stack_node>(kind));
}

// Sensitivity, visibility and cursors, worked out anew from the order of the nodes.

static void give_focus_back(z_window_stack_node *node)
{
    GtkWidget *widget = node->focus_widget;
    if (widget == nullptr || gtk_widget_get_toplevel(widget) != node->window ||
        !gtk_widget_is_sensitive(widget))
        return;
    if (GTK_IS_ENTRY(widget))
        gtk_entry_grab_focus_without_selecting(GTK_ENTRY(widget));
    else
        gtk_widget_grab_focus(widget);
}

static void set_enabled(z_window_stack_node *node, bool is_enabled)
{
    if (node->is_enabled == is_enabled || gtk_widget_in_destruction(node->window))
        return;
    node->is_enabled = is_enabled;
    if (!is_enabled)
        g_set_weak_pointer(&node->focus_widget, gtk_window_get_focus(GTK_WINDOW(node->window)));
    gtk_widget_set_sensitive(node->window, is_enabled);
    if (is_enabled) {
        give_focus_back(node);
        g_clear_weak_pointer(&node->focus_widget);
    }
}

static void update_sensitivity(z_window_stack *stack)
{
    bool is_covered = false;
    for (z_window_stack_node *node = stack->nodes.get_last(); node != nullptr;
         node = z_link_get_previous(node)) {
        switch (node->kind) {
        case node_kind::window:
            set_enabled(node, !is_covered);
            is_covered = true;
            break;
        case node_kind::native:
            is_covered = true;
            break;
        case node_kind::busy:
            if (node->busy->window == nullptr)
                break;
            gtk_widget_set_visible(node->busy->window, !is_covered);
            is_covered = true;
            break;
        }
    }
}

static void set_cursor(const z_window_stack_node *node, const char *cursor_name)
{
    GtkWidget *window = get_shown_window(node);
    if (window == nullptr || !gtk_widget_get_realized(window))
        return;
    z_ref<GdkCursor> cursor;
    if (cursor_name != nullptr)
        cursor = z_take(gdk_cursor_new_from_name(gtk_widget_get_display(window), cursor_name));
    gdk_window_set_cursor(gtk_widget_get_window(window), cursor.get());
    if (node->cursor_operation != nullptr)
        node->cursor_operation(cursor_name != nullptr, node->cursor_data);
}

static void update_cursors(z_window_stack *stack)
{
    const z_window_stack_node *top = stack->nodes.get_last();
    const bool is_busy = top != nullptr && top->kind == node_kind::busy;
    for (const z_window_stack_node *node : stack->nodes)
        set_cursor(node, is_busy ? "wait" : node == top ? nullptr : "default");
    // A caller that is busy does not come back to the main loop for a while.
    if (GdkDisplay *display = gdk_display_get_default(); is_busy && display != nullptr)
        gdk_display_flush(display);
}

static void update(z_window_stack *stack)
{
    update_sensitivity(stack);
    update_cursors(stack);
}

// Leaving the program and coming back.

static bool has_focus(gpointer data)
{
    for (const z_window_stack_node *node : static_cast<z_window_stack *>(data)->nodes) {
        GtkWidget *window = get_shown_window(node);
        if (window != nullptr && gtk_window_has_toplevel_focus(GTK_WINDOW(window)))
            return true;
    }
    return false;
}

static gboolean focus_out_callback(GtkWidget *, GdkEventFocus *, gpointer data) noexcept
{
    z_focus_watch_note_loss(&static_cast<z_window_stack *>(data)->focus_watch);
    return FALSE;
}

static gboolean focus_in_callback(GtkWidget *, GdkEventFocus *, gpointer data) noexcept
{
    auto *stack = static_cast<z_window_stack *>(data);
    const std::optional<int64_t> seconds = z_focus_watch_note_gain(&stack->focus_watch);
    if (seconds && stack->focus_operation != nullptr)
        stack->focus_operation(stack, *seconds, stack->focus_data);
    return FALSE;
}

// Windows.

// Comes before the window's own handlers of the close request.
static gboolean event_callback(GtkWidget *window, GdkEvent *event, gpointer data) noexcept
{
    auto *stack = static_cast<z_window_stack *>(data);
    return gdk_event_get_event_type(event) == GDK_DELETE && stack->nodes.get_last()->window != window;
}

static void remove_node(z_window_stack *stack, z_window_stack_node *node)
{
    if (node->window != nullptr)
        g_signal_handlers_disconnect_by_data(node->window, stack);
    z_link_remove(node);
    const std::unique_ptr<z_window_stack_node> owned(node);
}

static void destroy_callback(GtkWidget *window, gpointer data) noexcept
{
    auto *stack = static_cast<z_window_stack *>(data);
    remove_node(stack, find_node(stack, window));
    update(stack);
}

z_window_stack_ptr z_window_stack_new()
{
    auto stack = std::make_unique<z_window_stack>();
    stack->focus_watch.has_focus = has_focus;
    stack->focus_watch.data = stack.get();
    return z_window_stack_ptr(stack.release());
}

void z_window_stack_destroy(z_window_stack *stack)
{
    const std::unique_ptr<z_window_stack> owned(stack);
    if (stack == nullptr)
        return;
    while (z_window_stack_node *node = stack->nodes.get_last())
        remove_node(stack, node);
}

// A widget that holds others may know which of them is the one; otherwise their first gets the focus.
static void give_focus(GtkWidget *window, GtkWidget *widget)
{
    gtk_widget_grab_focus(widget);
    GtkWidget *focus_widget = gtk_window_get_focus(GTK_WINDOW(window));
    if (focus_widget == nullptr || (focus_widget != widget && !gtk_widget_is_ancestor(focus_widget, widget)))
        gtk_widget_child_focus(widget, GTK_DIR_TAB_FORWARD);
}

void z_window_stack_run_window(z_window_stack *stack, GtkWidget *window, z_opening_size size,
                               GtkWidget *focus_widget, z_mouse_cursor_operation operation, gpointer data)
{
    const z_ref<GtkWidget> held = z_share(window);
    const z_main_loop_ptr loop(g_main_loop_new(nullptr, FALSE));
    z_window_stack_push_window(stack, window);
    z_window_stack_set_mouse_cursor_callback(stack, operation, data);
    g_signal_connect_swapped(window, "destroy", G_CALLBACK(g_main_loop_quit), loop.get());

    if (size == z_opening_size::maximised)
        gtk_window_maximize(GTK_WINDOW(window));
    gtk_widget_show(window);
    if (focus_widget != nullptr)
        give_focus(window, focus_widget);
    g_main_loop_run(loop.get());
}

void z_window_stack_push_window(z_window_stack *stack, GtkWidget *window)
{
    GtkWidget *parent = get_uppermost_window(stack);
    GtkWindow *gtk_window = GTK_WINDOW(window);
    gtk_window_set_transient_for(gtk_window, parent == nullptr ? nullptr : GTK_WINDOW(parent));
    gtk_window_set_destroy_with_parent(gtk_window, parent != nullptr);
    gtk_window_set_modal(gtk_window, parent != nullptr);
    gtk_window_set_skip_taskbar_hint(gtk_window, parent != nullptr);
    if (parent != nullptr)
        gtk_window_set_position(gtk_window, GTK_WIN_POS_CENTER_ON_PARENT);

    append_node(stack, node_kind::window)->window = window;
    g_signal_connect(window, "event", G_CALLBACK(event_callback), stack);
    g_signal_connect(window, "destroy", G_CALLBACK(destroy_callback), stack);
    g_signal_connect(window, "focus-in-event", G_CALLBACK(focus_in_callback), stack);
    g_signal_connect(window, "focus-out-event", G_CALLBACK(focus_out_callback), stack);
    update(stack);
}

GtkWidget *z_window_stack_push_native_window(z_window_stack *stack)
{
    append_node(stack, node_kind::native);
    update(stack);
    return get_uppermost_window(stack);
}

void z_window_stack_pop_window(z_window_stack *stack)
{
    z_window_stack_node *top = stack->nodes.get_last();
    if (top == nullptr || top->kind == node_kind::busy)
        return;
    remove_node(stack, top);
    update(stack);
}

void z_window_stack_present(z_window_stack *stack)
{
    for (const z_window_stack_node *node : stack->nodes) {
        if (GtkWidget *window = get_shown_window(node)) {
            gtk_window_present(GTK_WINDOW(window));
            return;
        }
    }
}

void z_window_stack_set_mouse_cursor_callback(z_window_stack *stack, z_mouse_cursor_operation operation,
                                              gpointer data)
{
    z_window_stack_node *top = stack->nodes.get_last();
    g_return_if_fail(top != nullptr);
    top->cursor_operation = operation;
    top->cursor_data = data;
}

void z_window_stack_set_focus_callback(z_window_stack *stack, z_focus_return_operation operation,
                                       gpointer data)
{
    stack->focus_operation = operation;
    stack->focus_data = data;
}

// The busy state.

// What the top node shows, or null when it is not a busy one.
static z_busy *get_top_busy(const z_window_stack *stack)
{
    const z_window_stack_node *top = stack->nodes.get_last();
    return top == nullptr ? nullptr : top->busy.get();
}

static z_busy *get_top_busy_with_window(const z_window_stack *stack)
{
    z_busy *busy = get_top_busy(stack);
    return busy == nullptr || busy->window == nullptr ? nullptr : busy;
}

bool z_window_stack_is_busy(const z_window_stack *stack)
{
    return get_top_busy(stack) != nullptr;
}

void z_window_stack_busy_begin(z_window_stack *stack, z_busy_display display)
{
    append_node(stack, node_kind::busy)->busy = std::make_unique<z_busy>();
    if (display == z_busy_display::window)
        z_window_stack_show_busy_window(stack);
    else
        update(stack);
}

void z_window_stack_busy_end(z_window_stack *stack)
{
    g_return_if_fail(get_top_busy(stack) != nullptr);
    remove_node(stack, stack->nodes.get_last());
    update(stack);
}

void z_window_stack_show_busy_window(z_window_stack *stack)
{
    z_busy *busy = get_top_busy(stack);
    g_return_if_fail(busy != nullptr);
    if (busy->window != nullptr)
        return;
    z_busy_create_window(busy, get_uppermost_window(stack));
    update(stack);
    z_busy_wait_until_painted(busy);
    // The window has got its cursor only when it was there.
    update_cursors(stack);
}

void z_window_stack_set_busy_window_message(z_window_stack *stack, const char *text)
{
    z_busy *busy = get_top_busy_with_window(stack);
    g_return_if_fail(busy != nullptr);
    z_busy_set_message(busy, text);
    z_util_let_through_gtk_events();
}

void z_window_stack_set_busy_window_message_printf(z_window_stack *stack, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const z_utf8_ptr text(g_strdup_vprintf(format, arguments));
    va_end(arguments);
    z_window_stack_set_busy_window_message(stack, text.get());
}

void z_window_stack_show_abort_button(z_window_stack *stack)
{
    z_busy *busy = get_top_busy_with_window(stack);
    g_return_if_fail(busy != nullptr);
    z_busy_show_abort_button(busy);
    z_util_let_through_gtk_events();
}

void z_window_stack_hide_abort_button(z_window_stack *stack)
{
    z_busy *busy = get_top_busy_with_window(stack);
    g_return_if_fail(busy != nullptr);
    z_busy_hide_abort_button(busy);
    z_util_let_through_gtk_events();
}

bool z_window_stack_is_abort_requested(const z_window_stack *stack)
{
    const z_busy *busy = get_top_busy(stack);
    return busy != nullptr && busy->is_abort_requested;
}
