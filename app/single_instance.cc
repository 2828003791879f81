#include "app/single_instance.h"

#include <atomic>

#include "app/main.h"
#include "app/pipe_system.h"
#include "common/workspace/platform_system.h"

static constexpr int exchange_limit_ms = 5000;
static constexpr int accept_retry_ms = 20;

static constexpr char present_command = 'p';
static constexpr char stop_command = 'x';

// The thread reads the first two; they stay as they are while it runs.
struct pipe_server {
    const z_application_configuration *configuration = nullptr;
    z_pipe_listener *listener = nullptr;
    GThread *thread = nullptr;
    std::atomic<bool> is_stopping = false;
};
static pipe_server server;

z_utf8_ptr get_pipe_name(const z_application_configuration *configuration)
{
    return z_utf8_ptr(z_pipe.get_name(configuration->identifier));
}

// The client.

static bool exchange(intptr_t connection, char command, int64_t deadline_ms)
{
    if (z_pipe.get_peer(connection) == z_pipe_peer::other_user || !z_pipe.write(connection, &command, 1))
        return false;
    const int64_t left_ms = deadline_ms - z_platform.get_monotonic_time_ms();
    char answer[z_pipe_buffer_size];
    return left_ms > 0 && z_pipe.read(connection, answer, sizeof answer, static_cast<int>(left_ms)) == 1 &&
           answer[0] == command;
}

bool send_pipe_command(const z_application_configuration *configuration, char command)
{
    const z_utf8_ptr name = get_pipe_name(configuration);
    if (name == nullptr)
        return false;
    const int64_t deadline_ms = z_platform.get_monotonic_time_ms() + exchange_limit_ms;
    const intptr_t connection = z_pipe.connect(name.get(), exchange_limit_ms);
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
static bool serve_client(intptr_t connection)
{
    const z_pipe_peer peer = z_pipe.get_peer(connection);
    char command[z_pipe_buffer_size];
    if (peer == z_pipe_peer::other_user ||
        z_pipe.read(connection, command, sizeof command, z_pipe_client_limit_ms) != 1)
        return true;
    if (command[0] == present_command)
        g_idle_add(present_idle_callback, const_cast<z_application_configuration *>(server.configuration));
    (void)z_pipe.write(connection, command, 1);
    return command[0] != stop_command || peer != z_pipe_peer::own_process;
}

static gpointer pipe_thread_proc(gpointer)
{
    bool goes_on = true;
    while (goes_on && !server.is_stopping) {
        const intptr_t connection = z_pipe.accept(server.listener);
        if (connection < 0) {
            g_usleep(accept_retry_ms * 1000);
            continue;
        }
        goes_on = serve_client(connection);
        z_pipe.close(connection);
    }
    z_pipe.interrupt(server.listener); // So that nobody waits for an answer any more.
    return nullptr;
}

static void close_pipe()
{
    z_pipe.close_listener(server.listener);
    server.listener = nullptr;
}

static bool open_pipe()
{
    const z_utf8_ptr name = get_pipe_name(server.configuration);
    if (name != nullptr)
        server.listener = z_pipe.listen(name.get());
    return server.listener != nullptr;
}

void z_single_instance_start(const z_application_configuration *configuration)
{
    server.configuration = configuration;
    server.is_stopping = false;
    if (open_pipe())
        server.thread = g_thread_try_new("single-instance", pipe_thread_proc, nullptr, nullptr);
    if (server.thread == nullptr)
        close_pipe();
}

// The byte lets clients that wait before it have their answers; a server that it does not reach is
// interrupted.
void z_single_instance_stop()
{
    if (server.thread == nullptr)
        return;
    (void)send_pipe_command(server.configuration, stop_command);
    server.is_stopping = true;
    z_pipe.interrupt(server.listener);
    g_thread_join(server.thread);
    server.thread = nullptr;
    close_pipe();
    while (g_idle_remove_by_data(const_cast<z_application_configuration *>(server.configuration))) {
    }
}
