#include "common/workspace/platform.h"

#include <algorithm>
#include <vector>

#include "tests/support/user_sandbox.h"

namespace {

using PlatformProcessTest = UserSandboxTest;

TEST_F(PlatformProcessTest, CommandLinesAreSplitWhereTheyWereEscaped)
{
    const struct {
        const char *line;
        std::vector<std::string> arguments; // none: starts nothing
    } cases[] = {
        {"a  b\tc\n", {"a", "b", "c"}},
        {R"("a b" "" c"d e"f)", {"a b", "", "cd ef"}},
        {R"(C:\dir\ \\x "C:\dir\x\\y")", {R"(C:\dir\)", R"(\\x)", R"(C:\dir\x\\y)"}},
        {R"~("say \"$(rm)\" 'now'" \"x y")~", {R"~(say "$(rm)" 'now')~", R"(\x y)"}},
        {R"("C:\dir\")", {}},
        {"a \"b", {}},
        {" \t", {}},
        {"", {}},
    };
    for (const auto &[line, arguments] : cases) {
        const z_utf8_strv_ptr split = z_platform_split_command_line(line);
        ASSERT_EQ(arguments.empty(), split == nullptr) << line;
        for (size_t i = 0; i < arguments.size(); ++i)
            EXPECT_EQ(arguments[i], split.get()[i]) << line;
        EXPECT_TRUE(split == nullptr || split.get()[arguments.size()] == nullptr) << line;
    }
    EXPECT_STREQ("\"C:\\dir\\\"", z_platform_escape_string_for_command_line("C:\\dir\\").get());
    for (const char *text : {"", "a b", "\"", "\\\"", "$(x) `y` %PATH% *", "M\u00e5ns\n\u2014"}) {
        const z_utf8_ptr escaped = z_platform_escape_string_for_command_line(text);
        EXPECT_STREQ(text, z_platform_split_command_line(escaped.get()).get()[0]);
    }
}

// A process that lives as long as the test wants, by a clock that only waiting moves on.
struct Wait {
    int64_t now_ms = 1000;
    int64_t life_ms = 0;
    z_platform_wait end = z_platform_wait::ended;
    int abort_after_asked = 0; // 0: never
    std::string log = {};
};
Wait staged;

TEST_F(PlatformProcessTest, WaitingOffersToAbortAfterTheTimeout)
{
    z_platform.start_process = [](const char *, z_platform_environment, z_platform_process *) {
        return true;
    };
    z_platform.get_monotonic_time_ms = [] { return staged.now_ms; };
    z_platform.wait_for_process = [](z_platform_process *, int timeout_ms) {
        staged.now_ms += std::min<int64_t>(timeout_ms, staged.life_ms);
        staged.life_ms -= std::min<int64_t>(timeout_ms, staged.life_ms);
        staged.log += '.';
        return staged.life_ms > 0 ? z_platform_wait::running : staged.end;
    };
    z_platform.terminate_process = [](z_platform_process *) { staged.log += 'K'; };
    z_platform.close_process = [](z_platform_process *) { staged.log += 'C'; };
    const z_platform_wait_operations operations = {
        [](gpointer) { staged.log += 'e'; },
        [](gpointer) { staged.log += 'A'; },
        [](gpointer) {
            staged.log += '?';
            return staged.abort_after_asked > 0 && --staged.abort_after_asked == 0;
        },
        nullptr,
    };
    const struct {
        Wait wait;
        int timeout_seconds;
        bool result;
        const char *log; // . waited, e events, A abort offered, ? abort asked about, K killed, C closed
    } cases[] = {
        {{.life_ms = 100}, 0, true, ".C"},
        {{.life_ms = 900}, -1, true, ".e.e.e.e.C"},
        {{.life_ms = 500}, 0, true, ".eA.e?.C"},
        {{.life_ms = 1500}, 1, true, ".e.e.e.e.eA.e?.e?.C"},
        {{.life_ms = 9000, .abort_after_asked = 2}, 0, false, ".eA.e?.e?KC"},
        {{.life_ms = 300, .end = z_platform_wait::failed}, 5, false, ".e.C"},
    };
    for (const auto &c : cases) {
        staged = c.wait;
        EXPECT_EQ(c.result, z_platform_run_and_wait("x", c.timeout_seconds, &operations));
        EXPECT_EQ(c.log, staged.log);
    }
}

} // namespace
