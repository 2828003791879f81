#pragma once

// The toolkit's scale for a system that measures its screens but does not tell the toolkit. Where the desktop
// sets the scale, as on Linux, the program leaves it alone and does not ask.

#include <optional>

struct z_screen_size {
    int width_px; // Of either sign.
    int height_px;
};

// The value for "GDK_SCALE" on the primary monitor, or null for none, also instead of the user's own. What
// could not be measured is left out.
[[nodiscard]] const char *z_screen_scale_choose(std::optional<z_screen_size> size,
                                                std::optional<int> horizontal_dpi);
