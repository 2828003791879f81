#pragma once

// Runs the main context until nothing is pending, so that windows paint while the caller goes on working.
void z_util_let_through_gtk_events();
