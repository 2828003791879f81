#include <string>

#include <windows.h>

#include "common/workspace/platform.h"
#include "tests/support/open_handles.h"
#include "tests/support/user_sandbox.h"

namespace {

struct Win32ProcessTest : UserSandboxTest {
    Win32ProcessTest()
    {
        std::filesystem::current_path(root);
    }
    ~Win32ProcessTest() override
    {
        std::filesystem::current_path(old_folder);
    }

    // One that appends its arguments and a value of the environment to the file, and ends with a failure.
    std::string get_reporting_command(const std::string &arguments)
    {
        write_file("say it.bat", "@echo off\r\necho %*,%ZANVEL_TEST%,>>said\r\nexit 3\r\n");
        return "cmd /d /c call \"say it.bat\" " + arguments;
    }

    const std::filesystem::path old_folder = std::filesystem::current_path();
};

TEST_F(Win32ProcessTest, ProgramsGetTheirArgumentsAndTheEnvironmentOfTheStart)
{
    g_setenv("ZANVEL_TEST", "original", TRUE);
    z_platform_set_own_environment_value("ZANVEL_TEST", "ours");
    const OpenHandles handles;
    EXPECT_TRUE(z_platform_run_and_wait(get_reporting_command("\"a b\" c").c_str(), -1, nullptr));
    EXPECT_EQ("\"a b\" c,original,\r\n", read_file("said"));
    EXPECT_STREQ("ours", g_getenv("ZANVEL_TEST"));

    EXPECT_TRUE(z_platform_run_command_line(get_reporting_command("d").c_str()));
    for (int tries = 0; tries < 500 && read_file("said").find("\nd,original,\r\n") == std::string::npos;
         ++tries)
        g_usleep(10'000);
    EXPECT_EQ("\"a b\" c,original,\r\nd,original,\r\n", read_file("said"));

    for (const std::string &line : {path("no such program"), path("said"), std::string("")}) {
        EXPECT_FALSE(z_platform_run_command_line(line.c_str()));
        EXPECT_FALSE(z_platform_run_and_wait(line.c_str(), -1, nullptr));
    }
    EXPECT_STREQ("", z_error_get());
    EXPECT_FALSE(z_platform_run_command_line("\xFF"));
    EXPECT_STRNE("", z_error_get());
}

TEST_F(Win32ProcessTest, AProcessThatIsTooSlowIsTerminated)
{
    const OpenHandles handles;
    const int64_t start_us = g_get_monotonic_time();
    EXPECT_FALSE(z_platform_run_and_wait("ping -n 60 127.0.0.1", 1, nullptr));
    EXPECT_TRUE(z_platform_run_and_wait("cmd /c exit", 30, nullptr));
    EXPECT_LT(g_get_monotonic_time() - start_us, 20'000'000);
}

TEST_F(Win32ProcessTest, AProcessInheritsNothing)
{
    SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
    write_file("file", "");
    const auto open = [&] {
        return CreateFileW(L"file", GENERIC_READ, 0, &inheritable, OPEN_EXISTING, 0, nullptr);
    };
    const HANDLE file = open();
    z_platform_process process;
    ASSERT_TRUE(z_platform.start_process("ping -n 60 127.0.0.1", {}, &process));
    CloseHandle(file);
    const HANDLE again = open();
    EXPECT_NE(again, INVALID_HANDLE_VALUE);
    CloseHandle(again);
    z_platform.terminate_process(&process);
    EXPECT_EQ(z_platform.wait_for_process(&process, 20'000), z_platform_wait::ended);
    DWORD exit_code = 1;
    EXPECT_TRUE(GetExitCodeProcess(reinterpret_cast<HANDLE>(process.handle), &exit_code) && exit_code == 0);
    z_platform.close_process(&process);
}

// A script is opened by being run, in the current folder.
TEST_F(Win32ProcessTest, DocumentsAreOpenedByTheirDefaultProgram)
{
    g_setenv("ZANVEL_TEST", "original", TRUE);
    z_platform_set_own_environment_value("ZANVEL_TEST", "ours");
    const std::string script =
        write_file("scripts/M\u00e5ns 50.bat", "@echo off\r\necho %ZANVEL_TEST%,>said\r\n");
    EXPECT_TRUE(z_platform_open_file_with_default_app(script.c_str()));
    for (int tries = 0; tries < 1000 && (!exists("said") || read_file("said").empty()); ++tries)
        g_usleep(10'000);
    EXPECT_EQ("original,\r\n", read_file("said"));
    EXPECT_FALSE(z_platform_open_file_with_default_app(path("gone.odt").c_str()));
    EXPECT_FALSE(z_platform_open_file_with_default_app(write_file("a.unknown-kind", "").c_str()));
    EXPECT_STREQ("", z_error_get());
}

} // namespace
