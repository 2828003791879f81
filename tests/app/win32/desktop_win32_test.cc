#include "app/desktop_system.h"

#include <string>
#include <vector>

#include "app/win32/native_calls.h"

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
        has_monitor = has_info = true;
        awareness_result = dpi_result = S_OK;
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
                return awareness_result;
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
    static inline std::string missing; // a library or procedure
    static inline unsigned version;
    static inline bool has_monitor, has_info;
    static inline HRESULT awareness_result, dpi_result;
};

TEST_F(DesktopWin32Test, MeasuresInPhysicalPixelsAndGoesBack)
{
    const Notes all = {"load shcore.dll", "aware 1", "aware 2", "free"};
    z_screen screen;
    EXPECT_TRUE(z_desktop.measure_screen(screen));
    EXPECT_EQ(screen.size->width_px, 3840);
    EXPECT_EQ(screen.size->height_px, 2160);
    EXPECT_EQ(screen.horizontal_dpi, 168);
    EXPECT_EQ(notes, all);

    notes.clear();
    has_info = false;
    screen = {};
    EXPECT_TRUE(z_desktop.measure_screen(screen));
    EXPECT_FALSE(screen.size);
    EXPECT_EQ(screen.horizontal_dpi, 168);

    dpi_result = E_FAIL;
    EXPECT_TRUE(z_desktop.measure_screen(screen = {}));
    EXPECT_FALSE(screen.horizontal_dpi);

    notes.clear();
    has_monitor = false;
    EXPECT_TRUE(z_desktop.measure_screen(screen));
    EXPECT_EQ(notes, all);
}

TEST_F(DesktopWin32Test, MeasuresNothingWhereACallIsMissing)
{
    const Notes all = {"load shcore.dll", "free"};
    for (const char *name :
         {"GetDpiForMonitor", "GetProcessDpiAwareness", "SetProcessDpiAwareness", "none"}) {
        notes.clear();
        missing = name;
        awareness_result = missing == "none" ? E_ACCESSDENIED : S_OK;
        z_screen screen;
        EXPECT_TRUE(z_desktop.measure_screen(screen));
        EXPECT_FALSE(screen.size || screen.horizontal_dpi) << name;
        EXPECT_EQ(notes, all) << name;
    }
    notes.clear();
    missing = "shcore.dll";
    z_screen screen;
    EXPECT_TRUE(z_desktop.measure_screen(screen));
    EXPECT_EQ(notes, Notes{"load shcore.dll"});
    version = 0x602;
    EXPECT_TRUE(z_desktop.measure_screen(screen));
    EXPECT_EQ(notes, Notes{"load shcore.dll"});
}

TEST_F(DesktopWin32Test, TellsTheIdentityWhereThatIsKnown)
{
    const struct {
        unsigned version;
        const char *missing;
        Notes notes;
    } cases[] = {
        {0x601, "", {"load shell32.dll", "ZanvelTechnologies.Zanvel", "free"}},
        {0x601, "SetCurrentProcessExplicitAppUserModelID", {"load shell32.dll", "free"}},
        {0x601, "shell32.dll", {"load shell32.dll"}},
        {0x600, "", {}},
    };
    for (const auto &row : cases) {
        notes.clear();
        version = row.version;
        missing = row.missing;
        z_desktop.set_identity("com.zanvel.Test");
        EXPECT_EQ(notes, row.notes);
    }
}

} // namespace
