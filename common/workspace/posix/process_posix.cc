#include "common/workspace/platform_system.h"

#include <cerrno>
#include <csignal>

#include <gio/gio.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "common/workspace/platform.h"

// The system's library has names for these only in its newest versions.
static int open_process(pid_t id)
{
    return static_cast<int>(syscall(SYS_pidfd_open, id, 0u));
}

static void kill_process(int handle)
{
    syscall(SYS_pidfd_send_signal, handle, SIGKILL, nullptr, 0u);
}

// Values need not be UTF-8.
using z_strv_ptr = z_ptr<char *, g_strfreev>;

static z_strv_ptr make_environment(z_platform_environment values)
{
    z_strv_ptr environment(g_get_environ());
    for (const auto &[name, value] : values) {
        char **old = environment.release();
        environment.reset(value != nullptr ? g_environ_setenv(old, name, value, TRUE)
                                           : g_environ_unsetenv(old, name));
    }
    return environment;
}

// Without DO_NOT_REAP_CHILD the library puts a process in between, whose own child nobody has to wait for.
bool z_system_start_process(const char *command_line, z_platform_environment environment,
                            z_platform_process *process)
{
    const z_utf8_strv_ptr arguments = z_platform_split_command_line(command_line);
    if (arguments == nullptr)
        return false;
    const auto flags = static_cast<GSpawnFlags>(
        G_SPAWN_SEARCH_PATH | (process != nullptr ? G_SPAWN_DO_NOT_REAP_CHILD : G_SPAWN_DEFAULT));
    GPid id = 0;
    if (!g_spawn_async(nullptr, arguments.get(), make_environment(environment).get(), flags, nullptr, nullptr,
                       &id, nullptr))
        return false;
    if (process == nullptr)
        return true;
    process->id = id;
    process->handle = open_process(id);
    if (process->handle >= 0)
        return true;
    kill(id, SIGKILL);
    waitpid(id, nullptr, 0);
    return false;
}

static void reap(z_platform_process *process, int flags)
{
    if (process->id != 0 && waitpid(static_cast<pid_t>(process->id), nullptr, flags) != 0)
        process->id = 0;
}

z_platform_wait z_system_wait_for_process(z_platform_process *process, int timeout_ms)
{
    pollfd end = {static_cast<int>(process->handle), POLLIN, 0};
    const int count = poll(&end, 1, timeout_ms);
    if (count == 0 || (count < 0 && errno == EINTR))
        return z_platform_wait::running;
    if (count < 0 || (end.revents & POLLIN) == 0)
        return z_platform_wait::failed;
    reap(process, 0);
    return z_platform_wait::ended;
}

void z_system_terminate_process(z_platform_process *process)
{
    kill_process(static_cast<int>(process->handle));
    reap(process, 0);
}

void z_system_close_process(z_platform_process *process)
{
    reap(process, WNOHANG);
    close(static_cast<int>(process->handle));
    *process = {};
}

// The desktop refuses an address that is not absolute.
bool z_system_open_file(const char *path, z_platform_environment environment)
{
    const z_ref<GFile> file = z_take(g_file_new_for_path(path));
    if (!g_file_query_exists(file.get(), nullptr))
        return false;
    const z_utf8_ptr uri(g_file_get_uri(file.get()));
    const z_ref<GAppLaunchContext> context = z_take(g_app_launch_context_new());
    for (const auto &[name, value] : environment) {
        if (value != nullptr)
            g_app_launch_context_setenv(context.get(), name, value);
        else
            g_app_launch_context_unsetenv(context.get(), name);
    }
    return g_app_info_launch_default_for_uri(uri.get(), context.get(), nullptr) != FALSE;
}
