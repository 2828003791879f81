#include "app/desktop_system.h"

#include <glib.h>

// Windows carry the program's name, and a desktop entry is found by it.
static void set_identity(const char *application_identifier)
{
    g_set_prgname(application_identifier);
}

static bool measure_screen(z_screen &)
{
    return false;
}

z_desktop_calls z_desktop = {
    .set_identity = set_identity,
    .measure_screen = measure_screen,
};
