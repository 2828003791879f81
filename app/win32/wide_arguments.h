#pragma once

// Arguments as the system hands them over.

// Runs the program with the arguments in UTF-8 and returns its exit code. That is 1, without a run, for an argument
// that is no text, which is told on the standard error stream, and for a count that is negative.
[[nodiscard]] int z_wide_arguments_run(int argc, const wchar_t *const *argv,
                                       int (*program)(int argc, char **argv));
