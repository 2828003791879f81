#include <cstdio>

#include <windows.h>

#include "app/main.h"
#include "app/win32/wide_arguments.h"

// A program with windows gets no console, but what it has to say belongs into the one that it was started from.
static void use_console_of_parent()
{
    if (GetStdHandle(STD_ERROR_HANDLE) == nullptr && AttachConsole(ATTACH_PARENT_PROCESS))
        (void)std::freopen("CONOUT$", "w", stderr);
}

extern "C" int wmain(int argc, wchar_t **argv)
{
    use_console_of_parent();
    return z_wide_arguments_run(argc, argv, z_main);
}
