#pragma once

// The toolkit's scale for a system that measures its screens but does not tell the toolkit. Where the desktop
// sets the scale, as on Linux, the program leaves it alone.

#include <optional>

struct z_screen_size {
    int width_px; // Of either sign.
    int height_px;
};

// What could not be measured is left out.
struct z_screen {
    std::optional<z_screen_size> size = {};
    std::optional<int> horizontal_dpi = {};
};

// The value for "GDK_SCALE" on this screen, or null for none, also instead of the user's own.
[[nodiscard]] const char *z_screen_scale_choose(const z_screen &screen);

// Measures the primary monitor, if the system wants that, and sets or removes the value in this program.
void z_screen_scale_set();
