#pragma once

// All windows of the program form one stack: the main window at the bottom, each further window modal over
// the one that opened it.
//
//     busy    "Please wait", or only a wait cursor        top
//     native  a dialog of the desktop, no window of ours
//     window  a window of ours
//     window  the main window                             bottom
//
// Who takes input follows from the order alone: the uppermost window is sensitive, and everything below a
// window, a native dialog or a busy window is not. A window that becomes insensitive keeps in mind which of
// its widgets had the focus, and gives it back later. Only the top window can be closed: close requests for
// any other one are stopped before their own handlers see them, and the busy window's always are.
//
// A window leaves the stack by itself when it is destroyed, wherever it lies. Main thread only.

#include <cstdint>

#include <gtk/gtk.h>

#include "common/base/handles.h"

struct z_window_stack;

// Told whether a cursor other than the inherited one is set on the window, so that widgets with cursors of
// their own can follow.
using z_mouse_cursor_operation = void (*)(bool is_cursor_set, gpointer data);

// Called when the user comes back to the program after `seconds` whole seconds in another one.
using z_focus_return_operation = void (*)(z_window_stack *stack, int64_t seconds, gpointer data);

// Forgets all nodes; windows of the callers stay as they are. Null is allowed.
void z_window_stack_destroy(z_window_stack *stack);
using z_window_stack_ptr = z_ptr<z_window_stack, z_window_stack_destroy>;
[[nodiscard]] z_window_stack_ptr z_window_stack_new();

enum class z_opening_size { as_set, maximised };

// Shows the window on top of the stack and returns when it has been destroyed. Whatever the caller touches
// afterwards must not belong to the window. `focus_widget` may be null.
void z_window_stack_run_window(z_window_stack *stack, GtkWidget *window, z_opening_size size,
                               GtkWidget *focus_widget, z_mouse_cursor_operation operation = nullptr,
                               gpointer data = nullptr);

// Puts a window on top that somebody else shows and runs.
void z_window_stack_push_window(z_window_stack *stack, GtkWidget *window);

// Makes room for a dialog of the desktop and returns the window that can own it, or null. The caller pops it.
GtkWidget *z_window_stack_push_native_window(z_window_stack *stack);

// Takes the top node away unless it is a busy one. A destroyed window needs no pop.
void z_window_stack_pop_window(z_window_stack *stack);

// The first (lowest) window, brought to the front.
void z_window_stack_present(z_window_stack *stack);

// These two set operations of the top node and of the whole stack; null takes them away.
void z_window_stack_set_mouse_cursor_callback(z_window_stack *stack, z_mouse_cursor_operation operation,
                                              gpointer data);
void z_window_stack_set_focus_callback(z_window_stack *stack, z_focus_return_operation operation,
                                       gpointer data);

// The busy state. Begin and end come in pairs, and the functions between them work on the top node, which
// must be a busy one. The state that shows only a wait cursor leaves the window below sensitive, so no events
// may be let through while it lasts. Without any window on the stack the busy window stands in the middle of
// the screen.
[[nodiscard]] bool z_window_stack_is_busy(const z_window_stack *stack);
enum class z_busy_display { cursor, window };
void z_window_stack_busy_begin(z_window_stack *stack, z_busy_display display);
void z_window_stack_busy_end(z_window_stack *stack);
void z_window_stack_show_busy_window(z_window_stack *stack);
// Null stands for "Please wait".
void z_window_stack_set_busy_window_message(z_window_stack *stack, const char *text);
void z_window_stack_set_busy_window_message_printf(z_window_stack *stack, const char *format, ...)
    G_GNUC_PRINTF(2, 3);

// The button by which the user asks a long operation to stop, and what the operation polls. Needs a busy
// window.
void z_window_stack_show_abort_button(z_window_stack *stack);
void z_window_stack_hide_abort_button(z_window_stack *stack);
// False when the top node is not busy.
[[nodiscard]] bool z_window_stack_is_abort_requested(const z_window_stack *stack);
