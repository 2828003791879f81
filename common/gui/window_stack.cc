#include "common/gui/window_stack.h"

#include "common/gui/window_stack_nodes.h"

using node_kind = z_window_stack_node_kind;
using z_main_loop_ptr = z_ptr<GMainLoop, g_main_loop_unref>;

// Leaving the program and coming back.

static bool has_focus(gpointer data)
{
    for (const z_window_stack_node *node : static_cast<z_window_stack *>(data)->nodes) {
        GtkWidget *window = z_window_stack_get_shown_window(node);
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

static z_window_stack_node *find_node(z_window_stack *stack, const GtkWidget *window)
{
    for (z_window_stack_node *node : stack->nodes) {
        if (node->window == window)
            return node;
    }
    return nullptr;
}

static void destroy_callback(GtkWidget *window, gpointer data) noexcept
{
    auto *stack = static_cast<z_window_stack *>(data);
    z_window_stack_remove_node(stack, find_node(stack, window));
    z_window_stack_update(stack);
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
        z_window_stack_remove_node(stack, node);
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
    GtkWidget *parent = z_window_stack_get_uppermost_window(stack);
    GtkWindow *gtk_window = GTK_WINDOW(window);
    gtk_window_set_transient_for(gtk_window, parent == nullptr ? nullptr : GTK_WINDOW(parent));
    gtk_window_set_destroy_with_parent(gtk_window, parent != nullptr);
    gtk_window_set_modal(gtk_window, parent != nullptr);
    gtk_window_set_skip_taskbar_hint(gtk_window, parent != nullptr);
    if (parent != nullptr)
        gtk_window_set_position(gtk_window, GTK_WIN_POS_CENTER_ON_PARENT);

    z_window_stack_append_node(stack, node_kind::window)->window = window;
    g_signal_connect(window, "event", G_CALLBACK(event_callback), stack);
    g_signal_connect(window, "destroy", G_CALLBACK(destroy_callback), stack);
    g_signal_connect(window, "focus-in-event", G_CALLBACK(focus_in_callback), stack);
    g_signal_connect(window, "focus-out-event", G_CALLBACK(focus_out_callback), stack);
    z_window_stack_update(stack);
}

GtkWidget *z_window_stack_push_native_window(z_window_stack *stack)
{
    z_window_stack_append_node(stack, node_kind::native);
    z_window_stack_update(stack);
    return z_window_stack_get_uppermost_window(stack);
}

void z_window_stack_pop_window(z_window_stack *stack)
{
    z_window_stack_node *top = stack->nodes.get_last();
    if (top == nullptr || top->kind == node_kind::busy)
        return;
    z_window_stack_remove_node(stack, top);
    z_window_stack_update(stack);
}

void z_window_stack_present(z_window_stack *stack)
{
    for (const z_window_stack_node *node : stack->nodes) {
        if (GtkWidget *window = z_window_stack_get_shown_window(node)) {
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
