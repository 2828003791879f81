#pragma once

// The window that edits one template file: its names, its version, its codesets, and a notebook with the form
// of the basic data and one form per report type.

struct z_application_context;

// Runs the window on the context's window stack until it is closed. A path without a file starts an empty
// template. Returns whether the template was saved; whatever went wrong has been shown.
bool run_editing_window(z_application_context *context, const char *path_utf8);
