#pragma once

// What the windows of the running program share. The records belong to the run operation (main.cc), which
// outlives every window.

struct z_settings;
struct z_window_stack;
struct z_workspace;

struct z_application_context {
    z_window_stack *window_stack;
    z_workspace *workspace;
    z_settings *settings; // The workspace's.
};
