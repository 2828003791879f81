#pragma once

// What the desktop and the program tell each other before the first window: one table of calls, filled for
// each system.

#include "app/screen_scale.h"

struct z_desktop_calls {
    // By what the desktop knows which windows belong together. Silent where that cannot be told.
    void (*set_identity)(const char *application_identifier);
    // False where the desktop tells the toolkit the scale by itself. Otherwise what could be measured of the
    // primary monitor, in its own pixels.
    bool (*measure_screen)(z_screen &screen);
};

extern z_desktop_calls z_desktop;
