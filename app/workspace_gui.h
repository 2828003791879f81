#pragma once

// The assistant that takes a user without a workspace to one.

struct z_window_stack;

// Proposes the usual place, lets the user choose another one, and creates the workspace there with what the
// installation brings along. A place that cannot be had is told, and the user goes on from the first page.
// True if a workspace was created.
[[nodiscard]] bool z_workspace_gui_create_workspace(z_window_stack *window_stack);
