#include "common/gui/run_and_wait.h"

#include <string>

#include "common/gui/window_stack.h"
#include "common/workspace/platform_system.h"
#include "tests/support/windows.h"

namespace {

// The program that is waited for is this one.
TEST(RunAndWaitProcess, DISABLED_EndsAtOnce) {}
TEST(RunAndWaitProcess, DISABLED_EndsLate)
{
    g_usleep(60 * G_USEC_PER_SEC);
}

std::string make_command_line(const char *test)
{
    const z_utf8_ptr program(z_platform.get_executable_path());
    return '"' + std::string(program.get()) +
           "\" --gtest_also_run_disabled_tests --gtest_filter=RunAndWaitProcess.DISABLED_" + test;
}

TEST(RunAndWaitTest, TheUserSeesABusyWindowAndCanAbort)
{
    const std::string quick = make_command_line("EndsAtOnce");
    const std::string slow = make_command_line("EndsLate");
    const z_window_stack_ptr stack = z_window_stack_new();
    for (const bool is_busy : {false, true}) {
        if (is_busy)
            z_window_stack_busy_begin(stack.get(), z_busy_display::cursor);
        EXPECT_TRUE(z_platform_run_command_line_and_wait(quick.c_str(), 30, stack.get()));
        Steps steps;
        steps.add([] { return press_button("Please wait", "Abort"); });
        EXPECT_FALSE(z_platform_run_command_line_and_wait(slow.c_str(), 0, stack.get()));
        ASSERT_EQ(is_busy, z_window_stack_is_busy(stack.get()));
        if (is_busy)
            z_window_stack_busy_end(stack.get());
        EXPECT_EQ(nullptr, find_window("Please wait"));
    }
    EXPECT_FALSE(z_platform_run_command_line_and_wait(slow.c_str(), 0, nullptr));
}

} // namespace
