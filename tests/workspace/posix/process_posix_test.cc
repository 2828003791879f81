#include <string>

#include <sys/wait.h>

#include "tests/support/user_sandbox.h"

namespace {

struct PosixProcessTest : UserSandboxTest {
    // One that appends a line to the file: how many arguments it got, those, and a value of the environment.
    std::string get_reporting_command(const std::string &arguments)
    {
        const std::string script = write_file(
            "say it",
            "#!/bin/sh\nexec >>\"${0%/*}/said\"\nfor a in \"$#\" \"$@\"; do printf '%s|' \"$a\"; done\n"
            "echo \"${ZANVEL_TEST-none}\"\nexit 3\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        return z_platform_escape_string_for_command_line(script.c_str()).get() + (" " + arguments);
    }
};

TEST_F(PosixProcessTest, ProgramsGetTheirArgumentsAndTheEnvironmentOfTheStart)
{
    z_platform_set_own_environment_value("ZANVEL_TEST", "ours");
    EXPECT_TRUE(z_platform_run_and_wait(get_reporting_command("\"a \\\" b\" $HOME ''").c_str(), -1, nullptr));
    EXPECT_EQ("3|a \" b|$HOME|''|none\n", read_file("said"));
    z_platform_set_own_environment_value("ZANVEL_TEST", nullptr);
    EXPECT_TRUE(z_platform_run_command_line(get_reporting_command("").c_str()));
    for (int tries = 0; tries < 500 && read_file("said").find("\n0|none\n") == std::string::npos; ++tries)
        g_usleep(10'000);
    EXPECT_EQ("3|a \" b|$HOME|''|none\n0|none\n", read_file("said"));
    EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG)); // Neither has left anything to wait for.

    EXPECT_FALSE(z_platform_run_command_line(path("said").c_str()));
    EXPECT_FALSE(z_platform_run_and_wait(path("no such program").c_str(), -1, nullptr));
    EXPECT_STREQ("", z_error_get());
}

TEST_F(PosixProcessTest, AProcessThatIsTooSlowIsKilled)
{
    const int64_t start_us = g_get_monotonic_time();
    EXPECT_FALSE(z_platform_run_and_wait("sleep 60", 1, nullptr));
    EXPECT_GT(g_get_monotonic_time() - start_us, 1'000'000);
    EXPECT_TRUE(z_platform_run_and_wait("sh -c \"kill -9 $$\"", 30, nullptr)) << "However it has ended.";
    EXPECT_LT(g_get_monotonic_time() - start_us, 20'000'000);
    EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG));
}

// Even a document that is a program is only handed to another one. The library reads the desktop's files only
// once, so this is a process of its own.
TEST_F(PosixProcessTest, DocumentsAreOpenedByWhatTheUserHasChosen)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto open = [this] {
        for (const char *name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CONFIG_DIRS", "XDG_DATA_DIRS"})
            g_setenv(name, path("desktop").c_str(), TRUE);
        g_setenv("DBUS_SESSION_BUS_ADDRESS", "none:", TRUE);
        const std::string document = write_file("M\u00e5ns 50 %.txt", "#!/bin/sh\n: >\"${0%/*}/ran\"\n");
        std::filesystem::permissions(document, std::filesystem::perms::owner_all);
        write_file("desktop/applications/eat.desktop",
                   "[Desktop Entry]\nType=Application\nName=Eat\nExec=unlink %f\n");
        write_file("desktop/mimeapps.list", "[Default Applications]\ntext/plain=eat.desktop\n");
        const bool is_opened = z_platform_open_file_with_default_app(document.c_str());
        for (int tries = 0; is_opened && tries < 1000 && std::filesystem::exists(document); ++tries)
            g_usleep(10'000);
        const bool is_eaten = !std::filesystem::exists(document) && !exists("ran");
        std::filesystem::remove_all(root);
        std::_Exit(is_opened && is_eaten ? EXIT_SUCCESS : EXIT_FAILURE);
    };
    EXPECT_EXIT(open(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

} // namespace
