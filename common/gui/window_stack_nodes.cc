#include "common/gui/window_stack_nodes.h"

using node_kind = z_window_stack_node_kind;

GtkWidget *z_window_stack_get_shown_window(const z_window_stack_node *node)
{
    return node->kind == node_kind::busy ? node->busy->window : node->window;
}

GtkWidget *z_window_stack_get_uppermost_window(const z_window_stack *stack)
{
    GtkWidget *window = nullptr;
    for (const z_window_stack_node *node : stack->nodes) {
        if (node->kind == node_kind::window)
            window = node->window;
    }
    return window;
}

z_window_stack_node *z_window_stack_append_node(z_window_stack *stack, node_kind kind)
{
    return stack->nodes.add_last(std::make_unique<z_window_stack_node>(kind));
}

void z_window_stack_remove_node(z_window_stack *stack, z_window_stack_node *node)
{
    if (node->window != nullptr)
        g_signal_handlers_disconnect_by_data(node->window, stack);
    z_link_remove(node);
    const std::unique_ptr<z_window_stack_node> owned(node);
}

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
    GtkWidget *window = z_window_stack_get_shown_window(node);
    if (window == nullptr || !gtk_widget_get_realized(window))
        return;
    z_ref<GdkCursor> cursor;
    if (cursor_name != nullptr)
        cursor = z_take(gdk_cursor_new_from_name(gtk_widget_get_display(window), cursor_name));
    gdk_window_set_cursor(gtk_widget_get_window(window), cursor.get());
    if (node->cursor_operation != nullptr)
        node->cursor_operation(cursor_name != nullptr, node->cursor_data);
}

void z_window_stack_update_cursors(z_window_stack *stack)
{
    const z_window_stack_node *top = stack->nodes.get_last();
    const bool is_busy = top != nullptr && top->kind == node_kind::busy;
    for (const z_window_stack_node *node : stack->nodes)
        set_cursor(node, is_busy ? "wait" : node == top ? nullptr : "default");
    // A caller that is busy does not come back to the main loop for a while.
    if (GdkDisplay *display = gdk_display_get_default(); is_busy && display != nullptr)
        gdk_display_flush(display);
}

void z_window_stack_update(z_window_stack *stack)
{
    update_sensitivity(stack);
    z_window_stack_update_cursors(stack);
}
