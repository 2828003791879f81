#include "app/single_instance.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <sys/socket.h>
#include <sys/stat.h>

#include "app/main.h"
#include "app/pipe_system.h"
#include "tests/support/user_sandbox.h"
#include "tests/support/windows.h"

namespace {

struct SingleInstanceTest : UserSandboxTest {
    SingleInstanceTest()
    {
        presented = 0;
        for (const char *name : {"XDG_RUNTIME_DIR", "XDG_SESSION_ID", "WAYLAND_DISPLAY", "DISPLAY"})
            old_values.emplace_back(name, g_strdup(g_getenv(name)));
        g_setenv("XDG_RUNTIME_DIR", root.c_str(), TRUE);
        g_setenv("XDG_SESSION_ID", "7", TRUE);
    }
    ~SingleInstanceTest() override
    {
        z_pipe = real;
        z_single_instance_stop();
        for (const auto &[name, value] : old_values)
            value != nullptr ? (void)g_setenv(name, value.get(), TRUE) : g_unsetenv(name);
    }

    // What a client gets that sends these bytes at once; "" if the connection is only closed.
    std::string send(const std::string &bytes) const
    {
        const int client = real.connect(get_pipe_name(&configuration).get());
        const bool is_sent = ::send(client, bytes.data(), bytes.size(), MSG_NOSIGNAL) >= 0;
        char answer[16];
        errno = 0;
        const int count = real.read(client, answer, sizeof answer, 5000);
        EXPECT_TRUE(!is_sent || count >= 0 || errno == ECONNRESET) << "Nothing happens.";
        real.close(client);
        return {answer, static_cast<size_t>(std::max(count, 0))};
    }
    [[nodiscard]] bool ask(char command) const
    {
        return send_pipe_command(&configuration, command);
    }

    static inline const z_pipe_calls real = z_pipe;
    static inline int presented;
    const z_application_configuration configuration = {
        "com.zanvel.Test",
        +[](int, char **) { ADD_FAILURE() << "A second instance runs."; },
        +[](GApplication *, const z_application_configuration *) { ++presented; },
    };

private:
    std::vector<std::pair<const char *, z_utf8_ptr>> old_values;
};

TEST_F(SingleInstanceTest, ASecondStartPresentsTheFirstAndEnds)
{
    EXPECT_FALSE(ask('p'));
    z_single_instance_start(&configuration);
    EXPECT_EQ(0, z_main_with_configuration(&configuration, 0, nullptr));
    EXPECT_TRUE(run_until([] { return presented == 1; }));

    EXPECT_TRUE(ask('p'));
    z_single_instance_stop();
    EXPECT_FALSE(ask('p'));
    run_for(20);
    EXPECT_EQ(1, presented) << "Nothing is presented after the end.";
    EXPECT_FALSE(exists("com.zanvel.Test-7"));
    z_single_instance_start(&configuration);
    EXPECT_TRUE(ask('p'));
}

TEST_F(SingleInstanceTest, ServesEveryKindOfClient)
{
    write_file("com.zanvel.Test-7", "left over");
    z_single_instance_start(&configuration);
    const int silent = real.connect(get_pipe_name(&configuration).get());
    ASSERT_GE(silent, 0);
    EXPECT_EQ("a", send("a")) << "The silent one before has only its time.";
    for (const char *bytes : {"pp", "px", "xp"})
        EXPECT_EQ("", send(bytes));
    EXPECT_EQ(std::string(1, '\0'), send(std::string(1, '\0')));
    EXPECT_EQ("", send(std::string(600, 'p')));
    real.close(silent);

    z_pipe.get_peer = +[](int) { return z_pipe_peer::other_user; };
    EXPECT_EQ("", send("p"));
    EXPECT_FALSE(ask('p'));
    z_pipe.get_peer = +[](int) { return z_pipe_peer::own_user; };
    EXPECT_EQ("x", send("x"));
    EXPECT_EQ("p", send("p")) << "Another process must not stop it.";
    z_pipe.get_peer = real.get_peer;
    EXPECT_TRUE(run_until([] { return presented == 1; }));
    EXPECT_EQ("x", send("x"));
    g_usleep(50'000);
    z_single_instance_stop();
    EXPECT_EQ(1, presented);
}

TEST_F(SingleInstanceTest, OnlyOneInstanceServes)
{
    const intptr_t lock =
        system.lock_file(path("com.zanvel.Test-7.lock").c_str(), z_platform_lock::exclusive);
    const int listener = real.listen(path("com.zanvel.Test-7").c_str());
    z_single_instance_start(&configuration);
    z_single_instance_stop();
    EXPECT_TRUE(exists("com.zanvel.Test-7")) << "The other one's pipe stays.";
    real.close_listener(listener, path("com.zanvel.Test-7").c_str());
    system.unlock(lock);
    z_single_instance_start(&configuration);
    EXPECT_TRUE(ask('p'));
}

TEST_F(SingleInstanceTest, AServerThatDoesNotAnswerIsNoInstance)
{
    // Time passes only in waiting.
    static int64_t now_ms;
    z_platform.get_monotonic_time_ms = +[] { return now_ms += 1000; };
    z_pipe.read = +[](int connection, char *buffer, size_t size, int timeout_ms) {
        EXPECT_GT(timeout_ms, 0);
        EXPECT_LE(timeout_ms, 5000);
        return real.read(connection, buffer, size, std::min(timeout_ms, 200));
    };
    for (const char *answer : std::initializer_list<const char *>{
             "", "pp", "q", nullptr}) { // null: none, and the connection stays
        const int listener = real.listen(path("com.zanvel.Test-7").c_str());
        int client = -1;
        std::thread server([&] {
            client = real.accept(listener);
            if (answer != nullptr) {
                (void)::send(client, answer, std::strlen(answer), MSG_NOSIGNAL);
                shutdown(client, SHUT_RDWR);
            }
        });
        EXPECT_FALSE(ask('p')) << (answer != nullptr ? answer : "silence");
        server.join();
        real.close(client);
        real.close_listener(listener, path("com.zanvel.Test-7").c_str());
    }
    z_pipe.connect = +[](const char *) { return z_pipe_is_busy; };
    EXPECT_FALSE(ask('p'));
}

TEST_F(SingleInstanceTest, AStartThatCannotServeGoesOn)
{
    for (const int step : {0, 1, 2}) {
        z_pipe = real;
        z_platform = system;
        if (step == 0)
            z_pipe.get_name = +[](const char *) -> char * { return nullptr; };
        else if (step == 1)
            z_platform.lock_file = +[](const char *, z_platform_lock) { return z_platform_no_lock; };
        else
            z_pipe.listen = +[](const char *) { return -1; };
        z_single_instance_start(&configuration);
        EXPECT_FALSE(ask('p')) << step;
        z_single_instance_stop();
    }
    z_pipe = real;
    z_single_instance_start(&configuration);
    EXPECT_TRUE(ask('p')) << "Nothing has been left locked.";
    z_pipe.connect = +[](const char *) { return -1; };
    z_single_instance_stop(); // Returns, though nobody can reach the server.
}

TEST_F(SingleInstanceTest, ThePipeIsPrivateToUserAndLogin)
{
    const auto get_name = [this] {
        const z_utf8_ptr name = get_pipe_name(&configuration);
        return name == nullptr ? "none" : std::filesystem::path(name.get()).filename().string();
    };
    EXPECT_EQ("com.zanvel.Test-7", get_name());
    g_setenv("WAYLAND_DISPLAY", "/run/w-1", TRUE);
    g_setenv("XDG_SESSION_ID", "", TRUE);
    EXPECT_EQ("com.zanvel.Test-_run_w-1", get_name());
    g_unsetenv("WAYLAND_DISPLAY");
    g_setenv("DISPLAY", std::string(200, '1').c_str(), TRUE);
    EXPECT_EQ("none", get_name()) << "too long";
    g_unsetenv("DISPLAY");
    EXPECT_EQ("none", get_name());
    g_setenv("DISPLAY", ":9", TRUE);
    EXPECT_EQ("com.zanvel.Test-:9", get_name());
    ASSERT_EQ(0, chmod(root.c_str(), 0750));
    EXPECT_EQ("none", get_name());
    ASSERT_EQ(0, chmod(root.c_str(), 0700));
    for (const std::string &folder : {std::string("relative"), path("gone"), write_file("file", "")}) {
        g_setenv("XDG_RUNTIME_DIR", folder.c_str(), TRUE);
        EXPECT_EQ("none", get_name()) << folder;
    }
    g_unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ("none", get_name());
}

} // namespace
