#include "app/single_instance.h"

#include <algorithm>
#include <thread>

#include "app/main.h"
#include "tests/app/pipe_sandbox.h"
#include "tests/support/open_handles.h"
#include "tests/support/windows.h"

namespace {

struct SingleInstanceTest : PipeSandboxTest {
    SingleInstanceTest() : pipe_name(get_pipe_name(&configuration))
    {
        presented = 0;
    }
    ~SingleInstanceTest() override
    {
        z_pipe = real;
        z_single_instance_stop();
    }

    // What a client gets that sends these bytes at once; "" if the connection is only closed.
    std::string send(const std::string &bytes) const
    {
        const int64_t start_us = g_get_monotonic_time();
        const intptr_t client = real.connect(pipe_name.get(), 5000);
        (void)real.write(client, bytes.data(), bytes.size());
        char answer[16];
        const int count = real.read(client, answer, sizeof answer, 5000);
        EXPECT_LT(g_get_monotonic_time() - start_us, 4'000'000) << "Nothing happens.";
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
    const z_utf8_ptr pipe_name;
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
}

// The second process of the next test.
TEST(SingleInstanceProcess, DISABLED_ServesUntilItPresents)
{
    static bool is_presented;
    const z_application_configuration configuration = {
        "com.zanvel.Test", nullptr,
        +[](GApplication *, const z_application_configuration *) { is_presented = true; }};
    z_single_instance_start(&configuration);
    EXPECT_TRUE(run_until([] { return is_presented; }, 20'000));
    z_single_instance_stop();
}

TEST_F(SingleInstanceTest, AnotherProcessAnswersButIsNotStopped)
{
    const z_utf8_ptr program(system.get_executable_path());
    const std::string arguments = " --gtest_also_run_disabled_tests --gtest_filter=SingleInstanceProcess.*";
    z_platform_process process;
    ASSERT_TRUE(
        system.start_process(('"' + std::string(program.get()) + '"' + arguments).c_str(), {}, &process));
    EXPECT_TRUE(run_until([this] { return ask('x'); }, 20'000));
    const intptr_t client = real.connect(pipe_name.get(), 5000);
    EXPECT_EQ(z_pipe_peer::own_user, real.get_peer(client));
    real.close(client);
    EXPECT_TRUE(ask('a')) << "It goes on serving.";
    EXPECT_TRUE(ask('p'));
    EXPECT_EQ(z_platform_wait::ended, system.wait_for_process(&process, 20'000));
    system.close_process(&process);
}

TEST_F(SingleInstanceTest, ServesEveryKindOfClient)
{
    const OpenHandles handles;
    z_single_instance_start(&configuration);
    const intptr_t silent = real.connect(pipe_name.get(), 5000);
    EXPECT_EQ("a", send("a")) << "The silent one before has only its time.";
    for (const char *bytes : {"pp", "px", "xp"})
        EXPECT_EQ("", send(bytes));
    EXPECT_EQ("", send(std::string(600, 'p')));
    real.close(silent);

    z_pipe.get_peer = +[](intptr_t) { return z_pipe_peer::other_user; };
    EXPECT_EQ("", send("p"));
    EXPECT_FALSE(ask('p'));
    z_pipe.get_peer = +[](intptr_t) { return z_pipe_peer::own_user; };
    EXPECT_EQ("x", send("x"));
    EXPECT_EQ("p", send("p")) << "Another process must not stop it.";
    z_pipe.get_peer = real.get_peer;
    EXPECT_TRUE(run_until([] { return presented == 1; }));
    z_single_instance_stop();
}

TEST_F(SingleInstanceTest, OnlyOneInstanceServes)
{
    z_pipe_listener *other = real.listen(pipe_name.get());
    ASSERT_NE(nullptr, other);
    z_single_instance_start(&configuration);
    z_single_instance_stop();
    const intptr_t client = real.connect(pipe_name.get(), 1000);
    EXPECT_GE(client, 0) << "The other one's pipe stays.";
    real.close(client);
    real.close_listener(other);
    z_single_instance_start(&configuration);
    EXPECT_TRUE(ask('p'));
}

TEST_F(SingleInstanceTest, AServerThatDoesNotAnswerIsNoInstance)
{
    // Time passes only in waiting.
    static int64_t now_ms;
    z_platform.get_monotonic_time_ms = +[] { return now_ms += 1000; };
    z_pipe.read = +[](intptr_t connection, char *buffer, size_t size, int timeout_ms) {
        EXPECT_GT(timeout_ms, 0);
        EXPECT_LE(timeout_ms, 5000);
        return real.read(connection, buffer, size, std::min(timeout_ms, 200));
    };
    for (const std::string answer : {"", "pp", "q", "silence"}) {
        z_pipe_listener *listener = real.listen(pipe_name.get());
        intptr_t client = -1;
        std::thread server([&] {
            client = real.accept(listener);
            if (answer != "silence")
                (void)real.write(client, answer.data(), answer.size());
            if (answer == "")
                real.close(client);
        });
        EXPECT_FALSE(ask('p')) << answer;
        server.join();
        if (answer != "")
            real.close(client);
        real.close_listener(listener);
    }
}

TEST_F(SingleInstanceTest, AStartThatCannotServeGoesOn)
{
    z_pipe.listen = +[](const char *) -> z_pipe_listener * { return nullptr; };
    z_single_instance_start(&configuration);
    EXPECT_FALSE(ask('p'));
    z_single_instance_stop();
    z_pipe = real;
    z_single_instance_start(&configuration);
    EXPECT_TRUE(ask('p')) << "Nothing has been left locked.";
    z_pipe.connect = +[](const char *, int) -> intptr_t { return -1; };
    z_single_instance_stop(); // Returns, though nobody can reach the server.
}

} // namespace
