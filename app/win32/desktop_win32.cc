#include "app/desktop_system.h"

#include "app/win32/native_calls_win32.h"

#include <shellscalingapi.h>
#include <shobjidl.h>

#include "common/base/handles.h"

static void free_library(HMODULE library)
{
    z_native.free_library(library);
}
using library_ptr = z_ptr<HINSTANCE__, free_library>;

template <typename Procedure>
static Procedure look_up(const library_ptr &library, const char *name)
{
    return reinterpret_cast<Procedure>(reinterpret_cast<void *>(z_native.get_procedure(library.get(), name)));
}

// The programs of the family stand together under one button of the task bar.
static void set_identity(const char *)
{
    if (!z_native.is_version(6, 0, 1))
        return;
    const library_ptr shell(z_native.load_system_library(L"shell32.dll"));
    if (shell == nullptr)
        return;
    const auto set_model_id = look_up<decltype(&SetCurrentProcessExplicitAppUserModelID)>(
        shell, "SetCurrentProcessExplicitAppUserModelID");
    if (set_model_id != nullptr)
        (void)set_model_id(L"ZanvelTechnologies.Zanvel");
}

static std::optional<z_screen_size> measure_size(HMONITOR monitor)
{
    MONITORINFO info = {};
    info.cbSize = sizeof info;
    if (!z_native.get_monitor_info(monitor, &info))
        return std::nullopt;
    const RECT &bounds = info.rcMonitor;
    return z_screen_size{bounds.right - bounds.left, bounds.bottom - bounds.top};
}

static std::optional<int> measure_dpi(decltype(&GetDpiForMonitor) get_dpi, HMONITOR monitor)
{
    UINT x, y;
    if (FAILED(get_dpi(monitor, MDT_EFFECTIVE_DPI, &x, &y)))
        return std::nullopt;
    return static_cast<int>(x);
}

// A process that does not know of densities is told sizes that are scaled down, so it knows of them while it
// measures; how it goes on is for the toolkit to say.
static bool measure_screen(z_screen &screen)
{
    if (!z_native.is_version(6, 3, 0))
        return true;
    const library_ptr scaling(z_native.load_system_library(L"shcore.dll"));
    if (scaling == nullptr)
        return true;
    const auto get_dpi = look_up<decltype(&GetDpiForMonitor)>(scaling, "GetDpiForMonitor");
    const auto get_awareness = look_up<decltype(&GetProcessDpiAwareness)>(scaling, "GetProcessDpiAwareness");
    const auto set_awareness = look_up<decltype(&SetProcessDpiAwareness)>(scaling, "SetProcessDpiAwareness");
    PROCESS_DPI_AWARENESS old_awareness;
    if (get_dpi == nullptr || get_awareness == nullptr || set_awareness == nullptr ||
        FAILED(get_awareness(GetCurrentProcess(), &old_awareness)))
        return true;
    (void)set_awareness(PROCESS_SYSTEM_DPI_AWARE);
    if (const HMONITOR monitor = z_native.find_monitor({0, 0}, MONITOR_DEFAULTTOPRIMARY)) {
        screen.size = measure_size(monitor);
        screen.horizontal_dpi = measure_dpi(get_dpi, monitor);
    }
    (void)set_awareness(old_awareness);
    return true;
}

z_desktop_calls z_desktop = {
    .set_identity = set_identity,
    .measure_screen = measure_screen,
};
