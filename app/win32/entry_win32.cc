#include <cstdio>

#include <windows.h>

#include "app/main.h"
#include "common/base/win32/wide_arguments.h"
#include "common/workspace/platform.h"

// A program with windows gets no console, but what it has to say belongs into the one that it was started
// from.
static void use_console_of_parent()
{
    if (GetStdHandle(STD_ERROR_HANDLE) == nullptr && AttachConsole(ATTACH_PARENT_PROCESS))
        (void)std::freopen("CONOUT$", "w", stderr);
}

// The toolkit would look for a session bus, over which nothing here speaks, and either start one or complain.
static void do_without_session_bus()
{
    z_platform_set_own_environment_value("DBUS_SESSION_BUS_ADDRESS", "none:");
}

extern "C" int wmain(int argc, wchar_t **argv)
{
    use_console_of_parent();
    do_without_session_bus();
    return z_win32_run_with_wide_arguments(argc, argv, z_main_with_unchecked_arguments);
}
