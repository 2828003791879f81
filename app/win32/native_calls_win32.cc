#include "app/win32/native_calls_win32.h"

#include <glib.h>

static bool is_version(unsigned major, unsigned minor, unsigned service_pack)
{
    return g_win32_check_windows_version(static_cast<int>(major), static_cast<int>(minor),
                                         static_cast<int>(service_pack), G_WIN32_OS_ANY) != FALSE;
}

// Never one that somebody has put beside the program.
static HMODULE load_system_library(const wchar_t *name)
{
    return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

z_native_calls z_native = {
    .get_token_information = GetTokenInformation,
    .create_named_pipe = CreateNamedPipeW,
    .create_mutex = CreateMutexW,
    .is_version = is_version,
    .load_system_library = load_system_library,
    .get_procedure = GetProcAddress,
    .free_library = FreeLibrary,
    .find_monitor = MonitorFromPoint,
    .get_monitor_info = GetMonitorInfoW,
};
