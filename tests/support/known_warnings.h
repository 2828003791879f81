#pragma once

// Whether it is the system, and not the program, that makes the toolkit warn so. Defined for each system.
[[nodiscard]] bool is_known_warning(const char *message);
