#pragma once

// The user's session: from an open workspace with its settings read until both are put away.

#include "common/workspace/workspace.h"

struct z_window_stack;

// Opens the workspace and reads the user's settings into it; settings that cannot be read give a warning and
// the defaults. A user without a workspace is taken through the assistant, and one whose workspace cannot be
// opened is told why first, as going on gives up the way to it. Null when the user does not go on.
[[nodiscard]] z_workspace_ptr z_user_session_start(z_window_stack *window_stack);

// Saves the settings that were changed, telling the user if that fails, and closes the workspace.
void z_user_session_end(z_workspace_ptr workspace);
