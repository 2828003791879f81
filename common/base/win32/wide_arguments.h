#pragma once

// Arguments as the system hands them over, for the entries of programs.

// Returns what the program returns. It gets UTF-8, except where an argument is no text; see
// z_win32_name_to_bytes.
[[nodiscard]] int z_win32_run_with_wide_arguments(int argc, const wchar_t *const *argv,
                                                  int (*program)(int argc, char **argv));
