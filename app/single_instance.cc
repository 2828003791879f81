#include "app/single_instance.h"

#include <atomic>

#include "app/main.h"
#include "app/pipe_system.h"
#include "common/workspace/platform_system.h"

static constexpr int64_t exchange_limit_ms = 5000;
static constexpr int client_limit_ms = 1000;
static constexpr int retry_ms = 20;
static constexpr size_t buffer_size = 512;

static constexpr char present_command = 'p';
static constexpr char stop_command = 'x';

// The thread reads the first three; they stay as they are while it runs.
struct pipe_server {
    const z_application_configuration *configuration = nullptr;
    z_utf8_ptr name;
    int listener = -1;
    intptr_t lock = -1;
    GThread *thread = nullptr;
    std::atomic<bool> is_stopping = false;
};
static pipe_server server;

z_utf8_ptr get_pipe_name(const z_application_configuration *configuration)
{
    return z_utf8_ptr(z_pipe.get_name(configuration->identifier));
}

// The client.

static bool exchange(int connection, char command, int64_t deadline_ms)
{
    if (z_pipe.get_peer(connection) == z_pipe_peer::other_user || !z_pipe.write(connection, command))
        return false;
    const int64_t left_ms = deadline_ms - z_platform.get_monotonic_time_ms();
    char answer[buffer_size];
    return left_ms > 0 && z_pipe.read(connection, answer, sizeof answer, static_cast<int>(left_ms)) == 1 &&
           answer[0] == command;
}

bool send_pipe_command(const z_application_configuration *configuration, char command)
{
    const z_utf8_ptr name = get_pipe_name(configuration);
    if (name == nullptr)
        return false;
    const int64_t deadline_ms = z_platform.get_monotonic_time_ms() + exchange_limit_ms;
    int connection = z_pipe.connect(name.get());
    while (connection == z_pipe_is_busy && z_platform.get_monotonic_time_ms() < deadline_ms) {
        g_usleep(retry_ms * 1000);
        connection = z_pipe.connect(name.get());
    }
    if (connection < 0)
        return false;
    const bool has_answered = exchange(connection, command, deadline_ms);
    z_pipe.close(connection);
    return has_answered;
}

// The server.

static gboolean present_idle_callback(gpointer data)
{
    const auto *configuration = static_cast<const z_application_configuration *>(data);
    configuration->present(g_application_get_default(), configuration);
    return G_SOURCE_REMOVE;
}

// Returns whether to go on serving.
static bool serve_client(int connection)
{
    const z_pipe_peer peer = z_pipe.get_peer(connection);
    char command[buffer_size];
    if (peer == z_pipe_peer::other_user ||
        z_pipe.read(connection, command, sizeof command, client_limit_ms) != 1)
        return true;
    if (command[0] == present_command)
        g_idle_add(present_idle_callback, const_cast<z_application_configuration *>(server.configuration));
    (void)z_pipe.write(connection, command[0]);
    return command[0] != stop_command || peer != z_pipe_peer::own_process;
}

static gpointer pipe_thread_proc(gpointer)
{
    bool goes_on = true;
    while (goes_on && !server.is_stopping) {
        const int connection = z_pipe.accept(server.listener);
        if (connection < 0) {
            g_usleep(retry_ms * 1000);
            continue;
        }
        goes_on = serve_client(connection);
        z_pipe.close(connection);
    }
    z_pipe.interrupt(server.listener); // So that nobody waits for an answer any more.
    return nullptr;
}

static void put_server_away()
{
    if (server.listener >= 0)
        z_pipe.close_listener(server.listener, server.name.get());
    if (server.lock >= 0)
        z_platform.unlock(server.lock);
    server.listener = -1;
    server.lock = -1;
    server.name.reset();
}

// Whoever holds the lock beside the pipe is the one that serves it.
static bool open_pipe()
{
    server.name = get_pipe_name(server.configuration);
    if (server.name == nullptr)
        return false;
    const z_utf8_ptr lock_path(g_strconcat(server.name.get(), ".lock", nullptr));
    server.lock = z_platform.lock_file(lock_path.get(), z_platform_lock::exclusive);
    if (server.lock < 0)
        return false;
    server.listener = z_pipe.listen(server.name.get());
    return server.listener >= 0;
}

void z_single_instance_start(const z_application_configuration *configuration)
{
    server.configuration = configuration;
    server.is_stopping = false;
    if (open_pipe())
        server.thread = g_thread_try_new("single-instance", pipe_thread_proc, nullptr, nullptr);
    if (server.thread == nullptr)
        put_server_away();
}

// The byte lets clients that wait before it have their answers; a server that it does not reach is interrupted.
void z_single_instance_stop()
{
    if (server.thread == nullptr)
        return;
    (void)send_pipe_command(server.configuration, stop_command);
    server.is_stopping = true;
    z_pipe.interrupt(server.listener);
    g_thread_join(server.thread);
    server.thread = nullptr;
    put_server_away();
    while (g_idle_remove_by_data(const_cast<z_application_configuration *>(server.configuration))) {
    }
}
