#pragma once

// The commands of zanvel-template. Each is given the arguments after its own name, all valid UTF-8, prints
// its results on standard output and its errors on standard error, and returns the exit status.

#include <cstdio>
#include <span>

#include "common/workspace/settings.h"

inline constexpr int Z_EXIT_DONE = 0;
inline constexpr int Z_EXIT_REFUSED = 1; // a file, or a failed write
inline constexpr int Z_EXIT_WRONG_USAGE = 2;

using z_arguments = std::span<const char *const>;

[[nodiscard]] int z_command_check(z_arguments arguments);
[[nodiscard]] int z_command_convert(z_arguments arguments);
[[nodiscard]] int z_command_list(z_arguments arguments);
[[nodiscard]] int z_command_render(z_arguments arguments);

// --- What the commands share ---

// Whether the arguments are `count` operands, or at least that many. Drops a leading "--"; anything else that
// looks like an option is none of them.
[[nodiscard]] bool z_take_operands(z_arguments &arguments, size_t count);
[[nodiscard]] bool z_take_operands_or_more(z_arguments &arguments, size_t count);

// Prints "SUBJECT: " and the accumulated error as one line on standard error.
void z_print_error(const char *subject);

// Prints a line of text that came from a file. Control characters, which a terminal might obey, become
// U+FFFD.
void z_print_line(FILE *output, const char *utf8);

// The preferred languages of the workspace's settings if the user has one, else those of the system.
[[nodiscard]] z_settings_ptr z_load_language_settings();
