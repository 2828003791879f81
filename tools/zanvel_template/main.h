#pragma once

// zanvel-template: the templates manager's engine for scripts, and for people without a screen.
//
// Whatever each system's entry makes of its arguments, they are checked here to be UTF-8; what is printed is.

[[nodiscard]] int z_tool_main(int argc, char **argv);
