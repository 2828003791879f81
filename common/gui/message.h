#pragma once

// Message and question dialogs. Every function runs its dialog on the stack and returns when it has been
// answered; without a stack (null) the dialog runs by itself. Texts are UTF-8 and not markup; long lines are
// wrapped.

#include <gtk/gtk.h>

struct z_window_stack;

void z_message_show(z_window_stack *stack, const char *text);
void z_message_show_printf(z_window_stack *stack, const char *format, ...) G_GNUC_PRINTF(2, 3);
void z_message_show_warning(z_window_stack *stack, const char *text);
void z_message_show_warning_printf(z_window_stack *stack, const char *format, ...) G_GNUC_PRINTF(2, 3);
void z_message_show_error(z_window_stack *stack, const char *text);
void z_message_show_error_printf(z_window_stack *stack, const char *format, ...) G_GNUC_PRINTF(2, 3);
void z_message_show_unknown_error(z_window_stack *stack);

// Closing a question without pressing a button gives the answer named here, and that answer's button has the
// focus when the question appears.
enum class z_answer_if_closed { no, yes };
enum class z_question_icon { question, warning };
[[nodiscard]] bool z_message_ask_yes_no_question(z_window_stack *stack, z_answer_if_closed answer_if_closed,
                                                 z_question_icon icon, const char *text);
[[nodiscard]] bool z_message_ask_yes_no_question_printf(z_window_stack *stack,
                                                        z_answer_if_closed answer_if_closed,
                                                        z_question_icon icon, const char *format, ...)
    G_GNUC_PRINTF(4, 5);

// A question without buttons, for callers that add their own; a null title is "Question".
[[nodiscard]] GtkWidget *z_message_create_question_dialog(const char *title, const char *text);
[[nodiscard]] GtkWidget *z_message_create_question_dialog_printf(const char *title, const char *format, ...)
    G_GNUC_PRINTF(2, 3);
// The response of the pressed button, or a negative one of the toolkit's when there was none.
int z_message_run_and_destroy_dialog(z_window_stack *stack, GtkWidget *dialog);
