#include <string>

#include "app/main.h"
#include "app/running_marker.h"
#include "common/workspace/posix/lock_posix.h"
#include "tests/support/user_sandbox.h"

namespace {

const z_posix_lock_calls real_lock = z_posix_lock;

using StartUpPosixTest = UserSandboxTest;

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

} // namespace
