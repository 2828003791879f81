#include "bench/own_user.h"

#include <initializer_list>

#include <glib.h>

void bench_begin_own_user(const char *home)
{
    for (const char *name : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME"})
        g_setenv(name, home, TRUE);
}

void bench_end_own_user() {}
