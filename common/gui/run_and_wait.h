#pragma once

// Waiting for another program with the windows kept alive. Whatever the events of that time lead to happens
// before the function returns.

struct z_window_stack;

// Whether the process has ended by itself. While it runs, the user sees the busy window of the top node, or
// one made for the wait, and may abort the process after the timeout, but never if that is negative. Without
// a window stack (null) the timeout ends the process, 0 at once and a negative one never. Sets no message.
[[nodiscard]] bool z_platform_run_command_line_and_wait(const char *command_line, int timeout_seconds,
                                                        z_window_stack *window_stack);
