#pragma once

// For programs that are measured from their start to their first window: ends the process as soon as a window
// with this title has been drawn. To be called before the toolkit's own start.
void bench_exit_when_drawn(const char *title);
