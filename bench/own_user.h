#pragma once

// A user of the benchmark's own, whose settings and files are not those of who runs it.

// For this process, and each that it starts has to call it again. The folder is that user's home.
void bench_begin_own_user(const char *home);
// Takes away what the system has kept of the user outside the folder.
void bench_end_own_user();
