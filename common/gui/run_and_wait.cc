#include "common/gui/run_and_wait.h"

#include "common/gui/gui_events.h"
#include "common/gui/window_stack.h"
#include "common/workspace/platform.h"

static z_window_stack *get_stack(gpointer data)
{
    return static_cast<z_window_stack *>(data);
}

bool z_platform_run_command_line_and_wait(const char *command_line, int timeout_seconds,
                                          z_window_stack *window_stack)
{
    if (window_stack == nullptr)
        return z_platform_run_and_wait(command_line, timeout_seconds, nullptr);
    const z_platform_wait_operations operations = {
        +[](gpointer) { z_util_let_through_gtk_events(); },
        +[](gpointer data) { z_window_stack_show_abort_button(get_stack(data)); },
        +[](gpointer data) { return z_window_stack_is_abort_requested(get_stack(data)); },
        window_stack,
    };
    const bool was_busy = z_window_stack_is_busy(window_stack);
    if (was_busy)
        z_window_stack_show_busy_window(window_stack);
    else
        z_window_stack_busy_begin(window_stack, z_busy_display::window);
    const bool has_ended = z_platform_run_and_wait(command_line, timeout_seconds, &operations);
    if (!was_busy)
        z_window_stack_busy_end(window_stack);
    return has_ended;
}
