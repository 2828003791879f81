#pragma once

// The user's session: from an open workspace with its settings read until both are put away.

#include "common/workspace/workspace.h"

struct z_window_stack;

// Opens the workspace, creating it at the usual place if there is none yet, and reads the user's settings into
// it; settings that cannot be read give a warning and the defaults. Null when there is no workspace to work
// in; the user has been told why. One that is there but cannot be opened is not replaced by a new one.
[[nodiscard]] z_workspace_ptr z_user_session_start(z_window_stack *window_stack);

void z_user_session_end(z_workspace_ptr workspace);
