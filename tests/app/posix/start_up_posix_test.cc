#include <string>

#include <sys/wait.h>
#include <unistd.h>

#include "app/main.h"
#include "app/running_marker.h"
#include "common/workspace/posix/lock_posix.h"
#include "tests/support/user_sandbox.h"
#include "tests/support/windows.h"

namespace {

const z_posix_lock_calls real_lock = z_posix_lock;

struct StartUpPosixTest : UserSandboxTest {};

// By it a desktop entry finds the program's windows.
TEST_F(StartUpPosixTest, TheProgramIsNamedByItsIdentifier)
{
    Steps steps;
    steps.add([] { return press_button("Error", "Close"); }); // The font is missing.
    const std::string old_name = g_get_prgname();
    EXPECT_EQ(1, z_main(0, nullptr));
    EXPECT_STREQ("com.zanvel.TemplatesManager", g_get_prgname());
    g_set_prgname(old_name.c_str());
}

TEST_F(StartUpPosixTest, AMarkerThatCannotBeMadeEndsTheStart)
{
    write_file("home/.cache/Zanvel/running.lock/x", "");
    EXPECT_FALSE(z_main_start_up());
    EXPECT_STREQ("Couldn't clean up temp files.\n\nCouldn't create mutex.", z_error_get());
    z_main_shut_down();
}

TEST_F(StartUpPosixTest, NobodyCleansUpWhileAnotherOneRuns)
{
    const std::string file = "home/.cache/Zanvel/temp12345678.odt";
    // The start fails without the font; the marker is held from then on all the same.
    const auto start_leaves_file = [&] {
        write_file(file, "");
        EXPECT_FALSE(z_main_start_up());
        z_main_shut_down();
        return exists(file);
    };
    z_posix_lock.lock_file = +[](const char *, z_posix_lock_kind) { return z_platform_no_lock; };
    EXPECT_TRUE(start_leaves_file()) << "Where there are no locks, another one may be running.";
    z_posix_lock = real_lock;
    EXPECT_FALSE(start_leaves_file());
    EXPECT_TRUE(start_leaves_file());
}

// Otherwise the first could still delete what the second has written.
TEST_F(StartUpPosixTest, WhoComesSecondWaitsUntilTheFirstHasCleanedUp)
{
    static intptr_t first;
    static int tries;
    first = z_posix_lock.lock_file(path("running.lock").c_str(), z_posix_lock_kind::exclusive);
    ASSERT_GE(first, 0);
    tries = 0;
    z_posix_lock.lock_file = +[](const char *path, z_posix_lock_kind kind) {
        const intptr_t lock = real_lock.lock_file(path, kind);
        EXPECT_EQ(tries > 3, lock >= 0) << tries;
        if (++tries == 4)
            z_platform.unlock(first);
        return lock;
    };
    EXPECT_EQ(z_running_marker::others, z_running_marker_hold(root.c_str()));
    EXPECT_EQ(5, tries);
    z_posix_lock = real_lock;
}

TEST_F(StartUpPosixTest, AnArgumentThatIsNoTextEndsTheProgram)
{
    const char *arguments[] = {ZANVEL_PROGRAM, "text", "M\xe5ns", nullptr};
    z_utf8_ptr messages;
    int status = 0;
    ASSERT_TRUE(g_spawn_sync(nullptr, const_cast<char **>(arguments), nullptr, G_SPAWN_DEFAULT, nullptr,
                             nullptr, nullptr, z_out(messages), &status, nullptr));
    EXPECT_STREQ("Cannot parse command line argument 2.", messages.get());
    EXPECT_EQ(1, WEXITSTATUS(status));
}

} // namespace
