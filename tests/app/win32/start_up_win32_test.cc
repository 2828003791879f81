#include <string>

#include <process.h>

#include "app/main.h"
#include "app/running_marker.h"
#include "app/win32/native_calls_win32.h"
#include "common/base/error.h"
#include "tests/support/open_handles.h"
#include "tests/support/user_sandbox.h"

namespace {

struct StartUpWin32Test : UserSandboxTest {
    ~StartUpWin32Test() override
    {
        z_native = real;
    }

    // Gives a mutex, or none, and leaves this last error.
    static void answer_with(bool is_made, DWORD error)
    {
        static bool makes;
        static DWORD last_error;
        makes = is_made;
        last_error = error;
        z_native.create_mutex =
            +[](SECURITY_ATTRIBUTES *security, BOOL is_owned, const wchar_t *name) WINAPI {
                EXPECT_EQ(~DWORD{0}, GetLastError()) << "An older error must not count.";
                EXPECT_STREQ(L"Global\\Zanvel is running", name);
                mutex = makes ? real.create_mutex(security, is_owned, nullptr) : nullptr;
                if (last_error != 0)
                    SetLastError(last_error);
                return mutex;
            };
    }
    static inline const z_native_calls real = z_native;
    static inline HANDLE mutex;
};

TEST_F(StartUpWin32Test, OnlyWhoMakesTheMutexCleansUp)
{
    const struct {
        bool is_made;
        DWORD error;
        bool leaves_file;
    } cases[] = {
        {true, ERROR_ALREADY_EXISTS, true},
        {false, ERROR_ACCESS_DENIED, true}, // another user's
        {false, ERROR_INVALID_HANDLE, true},
        {true, 0, false},
    };
    const char file[] = "home/.cache/Zanvel/temp12345678.odt";
    write_file(file, "");
    for (const auto &[is_made, error, leaves_file] : cases) {
        answer_with(is_made, error);
        EXPECT_FALSE(z_main_start_up()) << "There is no font.";
        EXPECT_EQ(error == ERROR_INVALID_HANDLE,
                  z_error_get() == std::string("Couldn't clean up temp files.\n\nCouldn't create mutex."));
        EXPECT_EQ(leaves_file, exists(file)) << error;
        z_main_shut_down();
    }
    z_native = real;
    (void)z_running_marker_hold(path().c_str());
    EXPECT_EQ(z_running_marker::others, z_running_marker_hold(path().c_str()))
        << "It is held until the process ends.";
}

// Otherwise the first could still delete what the second has written.
TEST_F(StartUpWin32Test, TheFolderIsTheFirstOnesUntilItHasCleanedUp)
{
    const OpenHandles handles;
    static const auto real_lock_folder = system.lock_folder;
    static intptr_t first;
    static int tries;
    const auto lock_folder = +[](const char *path) {
        if (++tries == 4)
            z_platform.unlock(first);
        return real_lock_folder(path);
    };
    for (const bool is_first : {true, false}) {
        tries = 0;
        first = real_lock_folder(path().c_str());
        ASSERT_GE(first, 0);
        z_platform.lock_folder = lock_folder;
        answer_with(true, is_first ? 0 : ERROR_ALREADY_EXISTS);
        (void)z_running_marker_hold(path().c_str());
        EXPECT_EQ(4, tries);
        const intptr_t other = real_lock_folder(path().c_str());
        EXPECT_EQ(is_first, other == z_platform_lock_is_held);
        z_running_marker_share();
        const intptr_t after = is_first ? real_lock_folder(path().c_str()) : other;
        ASSERT_GE(after, 0);
        z_platform.unlock(after);
        CloseHandle(mutex);
    }
    EXPECT_STREQ("", z_error_get());
}

TEST_F(StartUpWin32Test, AnArgumentThatIsNoTextEndsTheProgram)
{
    const std::filesystem::path program = to_path(ZANVEL_PROGRAM);
    testing::internal::CaptureStderr();
    EXPECT_EQ(1, _wspawnl(_P_WAIT, program.c_str(), L"zanvel", L"text", L"\xD800x", nullptr));
    EXPECT_EQ("Cannot parse command line argument 2.", testing::internal::GetCapturedStderr());
}

} // namespace
