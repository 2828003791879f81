#include <regex>
#include <vector>

#include "app/pipe_system.h"
#include "app/win32/native_calls_win32.h"
#include "common/base/handles.h"
#include "common/workspace/platform_system.h"
#include "tests/support/open_handles.h"

namespace {

struct PipeWin32Test : testing::Test {
    ~PipeWin32Test() override
    {
        z_native = real;
    }
    static inline const z_native_calls real = z_native;
};

TEST_F(PipeWin32Test, IsNamedAfterTheLogin)
{
    const OpenHandles handles;
    const z_utf8_ptr name(z_pipe.get_name("com.zanvel.Test"));
    ASSERT_NE(nullptr, name);
    const std::regex pattern(R"(\\\\\.\\pipe\\com\.zanvel\.Test\\S-1-5-5-\d+-\d+)");
    EXPECT_TRUE(std::regex_match(name.get(), pattern)) << name.get();
}

TEST_F(PipeWin32Test, HasNoNameWithoutALogin)
{
    const OpenHandles handles;
    const decltype(z_native.get_token_information) cases[] = {
        // The size cannot be had.
        +[](HANDLE, TOKEN_INFORMATION_CLASS, void *, DWORD, DWORD *) WINAPI -> BOOL {
            SetLastError(ERROR_ACCESS_DENIED);
            return FALSE;
        },
        // The groups have become more since they were counted.
        +[](HANDLE, TOKEN_INFORMATION_CLASS, void *, DWORD, DWORD *size) WINAPI -> BOOL {
            *size = sizeof(TOKEN_GROUPS);
            SetLastError(ERROR_INSUFFICIENT_BUFFER);
            return FALSE;
        },
        // None of the groups is a login.
        +[](HANDLE token, TOKEN_INFORMATION_CLASS kind, void *buffer, DWORD size, DWORD *needed)
             WINAPI -> BOOL {
            const BOOL is_done = real.get_token_information(token, kind, buffer, size, needed);
            auto *groups = static_cast<TOKEN_GROUPS *>(buffer);
            for (DWORD i = 0; is_done && i < groups->GroupCount; ++i)
                groups->Groups[i].Attributes &= ~DWORD{SE_GROUP_LOGON_ID};
            return is_done;
        },
    };
    for (const auto &get_token_information : cases) {
        z_native.get_token_information = get_token_information;
        EXPECT_EQ(nullptr, z_utf8_ptr(z_pipe.get_name("com.zanvel.Test"))) << &get_token_information - cases;
    }
}

TEST_F(PipeWin32Test, TrustsOnlyProcessesOfItsLogin)
{
    const z_utf8_ptr program(z_platform.get_executable_path());
    const z_utf8_ptr command(g_strdup_printf(
        "\"%s\" --gtest_also_run_disabled_tests --gtest_filter=SingleInstanceProcess.*", program.get()));
    z_platform_process process;
    ASSERT_TRUE(z_platform.start_process(command.get(), {}, &process));
    const z_utf8_ptr name(z_pipe.get_name("com.zanvel.Test"));
    intptr_t server = -1;
    for (int tries = 0; server < 0 && tries < 1000; ++tries, g_usleep(10'000))
        server = z_pipe.connect(name.get(), 1000);
    ASSERT_GE(server, 0);
    {
        const OpenHandles handles;
        EXPECT_EQ(z_pipe_peer::own_user, z_pipe.get_peer(server));
        static int call_count;
        call_count = 0;
        z_native.get_token_information = +[](HANDLE token, TOKEN_INFORMATION_CLASS kind, void *buffer,
                                             DWORD size, DWORD *needed_size) WINAPI -> BOOL {
            const BOOL is_done = real.get_token_information(token, kind, buffer, size, needed_size);
            if (++call_count == 4) { // size and groups of this process, then those of the other
                auto *groups = static_cast<TOKEN_GROUPS *>(buffer);
                for (DWORD i = 0; i < groups->GroupCount; ++i)
                    if ((groups->Groups[i].Attributes & SE_GROUP_LOGON_ID) != 0)
                        ++*GetSidSubAuthority(groups->Groups[i].Sid, 2);
            }
            return is_done;
        };
        EXPECT_EQ(z_pipe_peer::other_user, z_pipe.get_peer(server));
    }
    EXPECT_TRUE(z_pipe.write(server, "p", 1));
    z_pipe.close(server);
    EXPECT_EQ(z_platform_wait::ended, z_platform.wait_for_process(&process, 20'000));
    z_platform.close_process(&process);
}

TEST_F(PipeWin32Test, IsOneStreamOfBytesWithinTheComputer)
{
    static std::vector<DWORD> parameters;
    z_native.create_named_pipe =
        +[](const wchar_t *, DWORD open_mode, DWORD pipe_mode, DWORD most_instances, DWORD output_size,
            DWORD input_size, DWORD timeout_ms, SECURITY_ATTRIBUTES *) WINAPI -> HANDLE {
        parameters = {open_mode, pipe_mode, most_instances, output_size, input_size, timeout_ms};
        return INVALID_HANDLE_VALUE;
    };
    EXPECT_EQ(nullptr, z_pipe.listen(R"(\\.\pipe\com.zanvel.Test\parameters)"));
    const DWORD open_mode = PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE;
    EXPECT_EQ((std::vector<DWORD>{open_mode, PIPE_REJECT_REMOTE_CLIENTS, 255, 512, 512, 5000}), parameters);
}

} // namespace
