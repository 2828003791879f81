#include "app/desktop_system.h"

#include <string>
#include <vector>

#include "app/win32/native_calls_win32.h"

#include <gtest/gtest.h>
#include <shellscalingapi.h>

namespace {

// A system whose libraries and monitor are made up. What the program does to them is noted in order.
struct DesktopWin32Test : testing::Test {
    DesktopWin32Test()
    {
        notes.clear();
        missing.clear();
        version = 0x603;
        z_native.is_version = +[](unsigned major, unsigned minor, unsigned service_pack) {
            return version >= ((major << 8) | minor) && (service_pack == 0 || version != 0x600);
        };
        z_native.load_system_library = +[](const wchar_t *name) -> HMODULE {
            const std::string text(name, name + std::wcslen(name));
            notes.push_back("load " + text);
            return text == missing ? nullptr : GetModuleHandleW(nullptr);
        };
        z_native.free_library = +[](HMODULE) WINAPI {
            notes.push_back("free");
            return TRUE;
        };
        z_native.get_procedure = get_procedure;
        z_native.find_monitor = +[](POINT point, DWORD flags) WINAPI {
            EXPECT_EQ(point.x, 0);
            EXPECT_EQ(point.y, 0);
            EXPECT_EQ(flags, DWORD{MONITOR_DEFAULTTOPRIMARY});
            return has_monitor ? reinterpret_cast<HMONITOR>(1) : nullptr;
        };
        z_native.get_monitor_info = +[](HMONITOR, MONITORINFO *info) WINAPI -> BOOL {
            EXPECT_EQ(info->cbSize, DWORD{40});
            info->rcMonitor = {-3840, 0, 0, 2160};
            return has_info;
        };
    }
    ~DesktopWin32Test() override
    {
        z_native = real;
    }

    static FARPROC WINAPI get_procedure(HMODULE, const char *name)
    {
        const auto to_procedure = [](auto *function) {
            return reinterpret_cast<FARPROC>(reinterpret_cast<void *>(function));
        };
        if (name == missing)
            return nullptr;
        if (name == std::string("GetDpiForMonitor"))
            return to_procedure(+[](HMONITOR, MONITOR_DPI_TYPE type, UINT *x, UINT *y) WINAPI {
                EXPECT_EQ(type, MDT_EFFECTIVE_DPI);
                *x = 168;
                *y = 96;
                return dpi_result;
            });
        if (name == std::string("GetProcessDpiAwareness"))
            return to_procedure(+[](HANDLE, PROCESS_DPI_AWARENESS *awareness) WINAPI {
                *awareness = PROCESS_PER_MONITOR_DPI_AWARE;
                return missing == "awareness" ? E_ACCESSDENIED : S_OK;
            });
        if (name == std::string("SetProcessDpiAwareness"))
            return to_procedure(+[](PROCESS_DPI_AWARENESS awareness) WINAPI {
                notes.push_back("aware " + std::to_string(awareness));
                return S_OK;
            });
        return to_procedure(+[](const wchar_t *id) WINAPI {
            notes.emplace_back(id, id + std::wcslen(id));
            return S_OK;
        });
    }
    using Notes = std::vector<std::string>;

    static inline const z_native_calls real = z_native;
    static inline Notes notes;
    static inline std::string missing; // a library, a procedure or what that gives
    static inline const Notes identified = {"load shell32.dll", "ZanvelTechnologies.Zanvel", "free"};
    static inline unsigned version;
    static inline bool has_monitor, has_info;
    static inline HRESULT dpi_result;
};

TEST_F(DesktopWin32Test, MeasuresInPhysicalPixelsAndGoesBack)
{
    const struct {
        bool has_monitor, has_info;
        HRESULT dpi_result;
        bool has_size, has_dpi;
    } cases[] = {
        {true, true, S_OK, true, true},
        {true, false, S_OK, false, true},
        {true, true, E_FAIL, true, false},
        {false, true, S_OK, false, false},
    };
    for (const auto &row : cases) {
        notes.clear();
        has_monitor = row.has_monitor;
        has_info = row.has_info;
        dpi_result = row.dpi_result;
        z_screen screen;
        EXPECT_TRUE(z_desktop.measure_screen(screen));
        EXPECT_EQ(screen.horizontal_dpi, row.has_dpi ? std::optional(168) : std::nullopt);
        EXPECT_EQ(screen.size.has_value(), row.has_size);
        EXPECT_TRUE(!screen.size || (screen.size->width_px == 3840 && screen.size->height_px == 2160));
        EXPECT_EQ(notes, (Notes{"load shcore.dll", "aware 1", "aware 2", "free"}));
    }
}

TEST_F(DesktopWin32Test, DoesNothingWhereACallIsMissing)
{
    const struct {
        unsigned version;
        const char *missing;
        Notes scaling, identity;
    } cases[] = {
        {0x603, "GetDpiForMonitor", {"load shcore.dll", "free"}, identified},
        {0x603, "GetProcessDpiAwareness", {"load shcore.dll", "free"}, identified},
        {0x603, "SetProcessDpiAwareness", {"load shcore.dll", "free"}, identified},
        {0x603, "awareness", {"load shcore.dll", "free"}, identified},
        {0x603, "shcore.dll", {"load shcore.dll"}, identified},
        {0x602, "", {}, identified},
        {0x601, "SetCurrentProcessExplicitAppUserModelID", {}, {"load shell32.dll", "free"}},
        {0x601, "shell32.dll", {}, {"load shell32.dll"}},
        {0x600, "", {}, {}}, // without a service pack
    };
    for (const auto &row : cases) {
        notes.clear();
        version = row.version;
        missing = row.missing;
        z_screen screen;
        EXPECT_TRUE(z_desktop.measure_screen(screen));
        EXPECT_FALSE(screen.size || screen.horizontal_dpi) << missing;
        EXPECT_EQ(notes, row.scaling) << missing;
        notes.clear();
        z_desktop.set_identity("com.zanvel.Test");
        EXPECT_EQ(notes, row.identity) << missing;
    }
}

} // namespace
