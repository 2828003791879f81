#pragma once

// The window in which the fields of one row are set up. The row is changed by OK only.

struct z_settings;
struct z_text_sheet_row;
struct z_window_stack;

// Returns whether the row's fields were replaced.
[[nodiscard]] bool z_text_sheet_fields_gui_run(z_window_stack *window_stack, const z_settings *settings,
                                               z_text_sheet_row *row);
