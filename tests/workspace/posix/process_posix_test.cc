#include <string>

#include <sys/wait.h>

#include "common/workspace/platform.h"
#include "tests/support/user_sandbox.h"

namespace {

struct PosixProcessTest : UserSandboxTest {
    // One that appends a line to the file: how many arguments it got, those, and a value of the environment.
    std::string get_reporting_command(const std::string &arguments)
    {
        const std::string script = write_file(
            "say it", "#!/bin/sh\nfor a in \"$#\" \"$@\"; do printf '%s|' \"$a\"; done >>\"" + path("said") +
                          "\"\necho \"${ZANVEL_TEST-none}\" >>\"" + path("said") + "\"\nexit 3\n");
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
    EXPECT_EQ(nullptr, g_getenv("ZANVEL_TEST"));

    EXPECT_TRUE(z_platform_run_command_line(get_reporting_command("").c_str()));
    for (int tries = 0; tries < 500 && read_file("said").find("\n0|none\n") == std::string::npos; ++tries)
        g_usleep(10'000);
    EXPECT_EQ("3|a \" b|$HOME|''|none\n0|none\n", read_file("said"));
    EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG)); // Neither has left anything to wait for.

    for (const std::string &line : {path("no such program"), path("said"), std::string("\"true")}) {
        EXPECT_FALSE(z_platform_run_command_line(line.c_str()));
        EXPECT_FALSE(z_platform_run_and_wait(line.c_str(), -1, nullptr));
    }
    EXPECT_STREQ("", z_error_get());
}

TEST_F(PosixProcessTest, AProcessThatIsTooSlowIsKilled)
{
    const int64_t start_us = g_get_monotonic_time();
    EXPECT_FALSE(z_platform_run_and_wait("sleep 60", 0, nullptr));
    EXPECT_FALSE(z_platform_run_and_wait("sleep 60", 1, nullptr));
    EXPECT_TRUE(z_platform_run_and_wait("sleep 0", 30, nullptr));
    EXPECT_LT(g_get_monotonic_time() - start_us, 20'000'000);
    EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG));
}

TEST_F(PosixProcessTest, WhatIsNotThereIsNotOpened)
{
    EXPECT_FALSE(z_platform_open_file_with_default_app(path("gone").c_str()));
}

} // namespace
