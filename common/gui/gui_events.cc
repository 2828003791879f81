#include "common/gui/gui_events.h"

#include <glib.h>

void z_util_let_through_gtk_events()
{
    while (g_main_context_pending(nullptr))
        g_main_context_iteration(nullptr, FALSE);
}
