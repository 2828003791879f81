#pragma once

struct z_application_context;

// Lists the workspace's templates until the window is closed.
void run_main_window(z_application_context *context);
