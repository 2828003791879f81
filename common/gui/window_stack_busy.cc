#include <cstdarg>

#include "common/gui/gui_events.h"
#include "common/gui/window_stack_nodes.h"

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
    z_window_stack_append_node(stack, z_window_stack_node_kind::busy)->busy = std::make_unique<z_busy>();
    if (display == z_busy_display::window)
        z_window_stack_show_busy_window(stack);
    else
        z_window_stack_update(stack);
}

void z_window_stack_busy_end(z_window_stack *stack)
{
    g_return_if_fail(get_top_busy(stack) != nullptr);
    z_window_stack_remove_node(stack, stack->nodes.get_last());
    z_window_stack_update(stack);
}

void z_window_stack_show_busy_window(z_window_stack *stack)
{
    z_busy *busy = get_top_busy(stack);
    g_return_if_fail(busy != nullptr);
    if (busy->window != nullptr)
        return;
    z_busy_create_window(busy, z_window_stack_get_uppermost_window(stack));
    z_window_stack_update(stack);
    z_busy_wait_until_painted(busy);
    // The window has got its cursor only when it was there.
    z_window_stack_update_cursors(stack);
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
