#include <cstdio>

#include <glib.h>

#include "app/main.h"

int main(int argc, char **argv)
{
    for (int i = 0; i < argc; ++i) {
        if (!g_utf8_validate(argv[i], -1, nullptr)) {
            std::fprintf(stderr, "Cannot parse command line argument %d.", i);
            return 1;
        }
    }
    return z_main(argc, argv);
}
