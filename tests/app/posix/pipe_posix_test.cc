#include <string>

#include <sys/stat.h>

#include "common/workspace/posix/lock_posix.h"
#include "tests/app/pipe_sandbox.h"

namespace {

using PipePosixTest = PipeSandboxTest;

TEST_F(PipePosixTest, IsPrivateToUserAndLogin)
{
    const auto get_name = [] {
        const z_utf8_ptr name(z_pipe.get_name("com.zanvel.Test"));
        return name == nullptr ? "none" : std::filesystem::path(name.get()).filename().string();
    };
    EXPECT_EQ("com.zanvel.Test-7", get_name());
    g_setenv("WAYLAND_DISPLAY", "/run/w-1", TRUE);
    g_setenv("XDG_SESSION_ID", "", TRUE);
    EXPECT_EQ("com.zanvel.Test-_run_w-1", get_name());
    g_unsetenv("WAYLAND_DISPLAY");
    g_setenv("DISPLAY", std::string(200, '1').c_str(), TRUE);
    EXPECT_EQ("none", get_name()) << "too long";
    g_setenv("DISPLAY", ":9", TRUE);
    EXPECT_EQ("com.zanvel.Test-:9", get_name());
    ASSERT_EQ(0, chmod(root.c_str(), 0750));
    EXPECT_EQ("none", get_name());
}

TEST_F(PipePosixTest, TakesThePlaceOfWhatIsLeftOverAndLeavesNothing)
{
    const std::string name = write_file("pipe", "left over");
    const z_posix_lock_calls real_lock = z_posix_lock;
    z_posix_lock.lock_file = +[](const char *, z_posix_lock_kind) { return z_platform_no_lock; };
    EXPECT_EQ(nullptr, z_pipe.listen(name.c_str())) << "Without a lock there may be another one.";
    EXPECT_EQ("left over", read_file("pipe"));
    z_posix_lock = real_lock;
    z_pipe_listener *listener = z_pipe.listen(name.c_str());
    ASSERT_NE(nullptr, listener);
    const intptr_t client = z_pipe.connect(name.c_str(), 0);
    EXPECT_EQ(z_pipe_peer::own_process, z_pipe.get_peer(client));
    z_pipe.close(client);
    z_pipe.close_listener(listener);
    EXPECT_FALSE(exists("pipe"));
}

} // namespace
