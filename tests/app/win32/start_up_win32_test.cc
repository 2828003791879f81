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

TEST_F(StartUpWin32Test, OnlyWhoMakesTheMutexIsFirst)
{
    const struct {
        bool is_made;
        DWORD error;
        z_running_marker marker;
    } cases[] = {
        {true, 0, z_running_marker::first},
        {true, ERROR_ALREADY_EXISTS, z_running_marker::others},
        {false, ERROR_ACCESS_DENIED, z_running_marker::others}, // another user's
        {false, ERROR_INVALID_HANDLE, z_running_marker::failed},
    };
    for (const auto &[is_made, error, marker] : cases) {
        answer_with(is_made, error);
        EXPECT_EQ(marker, z_running_marker_hold(path().c_str())) << error;
        z_running_marker_share();
    }
    z_native = real;
    (void)z_running_marker_hold(path().c_str());
    EXPECT_EQ(z_running_marker::others, z_running_marker_hold(path().c_str()))
        << "It is held until the process ends.";
}

TEST_F(StartUpWin32Test, OnlyTheFirstCleansUp)
{
    const std::string file = write_file("home/.cache/Zanvel/temp12345678.odt", "");
    answer_with(true, ERROR_ALREADY_EXISTS);
    EXPECT_FALSE(z_main_start_up()) << "There is no font.";
    EXPECT_TRUE(exists("home/.cache/Zanvel/temp12345678.odt"));
    answer_with(false, ERROR_INVALID_HANDLE);
    EXPECT_FALSE(z_main_start_up());
    EXPECT_STREQ("Couldn't clean up temp files.\n\nCouldn't create mutex.", z_error_get());
    EXPECT_TRUE(exists("home/.cache/Zanvel/temp12345678.odt"));
    answer_with(true, 0);
    EXPECT_FALSE(z_main_start_up());
    EXPECT_FALSE(exists("home/.cache/Zanvel/temp12345678.odt"));
    z_main_shut_down();
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
