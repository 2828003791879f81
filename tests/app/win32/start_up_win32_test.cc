#include <string>
#include <vector>

#include "app/main.h"
#include "app/running_marker.h"
#include "app/win32/native_calls.h"
#include "app/win32/wide_arguments.h"
#include "common/base/error.h"
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
                const HANDLE mutex = makes ? real.create_mutex(security, is_owned, nullptr) : nullptr;
                if (last_error != 0)
                    SetLastError(last_error);
                return mutex;
            };
    }
    static inline const z_native_calls real = z_native;
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
        EXPECT_EQ(marker, z_running_marker_hold("")) << error;
    }
    z_native = real;
    (void)z_running_marker_hold("");
    EXPECT_EQ(z_running_marker::others, z_running_marker_hold("")) << "It is held until the process ends.";
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

TEST(WideArgumentsTest, ReachTheProgramAsUtf8)
{
    static std::vector<std::string> seen;
    const auto program = +[](int argc, char **argv) {
        seen.assign(argv, argv + argc);
        return 7;
    };
    const wchar_t *arguments[] = {L"zanvel", L"å€\U0001F600", L"", L"\xD800x", nullptr};
    EXPECT_EQ(7, z_wide_arguments_run(3, arguments, program));
    EXPECT_EQ((std::vector<std::string>{"zanvel", "å€\U0001F600", ""}), seen);
    EXPECT_EQ(7, z_wide_arguments_run(0, arguments, program));
    EXPECT_TRUE(seen.empty());

    seen = {"untouched"};
    EXPECT_EQ(1, z_wide_arguments_run(-1, arguments, program));
    testing::internal::CaptureStderr();
    EXPECT_EQ(1, z_wide_arguments_run(4, arguments, program));
    EXPECT_EQ("Cannot parse command line argument 3.", testing::internal::GetCapturedStderr());
    EXPECT_EQ(std::vector<std::string>{"untouched"}, seen);
}

} // namespace
