// Sockets in the folder that the system keeps for the user's logins, one for each login.

#include "app/pipe_system.h"

#include <cerrno>
#include <cstring>
#include <memory>

#include <fcntl.h>
#include <glib.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "common/base/handles.h"
#include "common/workspace/posix/lock_posix.h"

static constexpr int waiting_clients_max = 16;
static constexpr int connect_retry_ms = 20;

// Whoever holds the lock beside the socket is the one that serves it.
struct z_pipe_listener {
    z_utf8_ptr path;
    intptr_t lock = z_platform_no_lock;
    int socket = -1;
};

static bool is_private_folder(const char *path)
{
    struct stat status;
    return path != nullptr && path[0] == '/' && g_utf8_validate(path, -1, nullptr) &&
           stat(path, &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
           (status.st_mode & 077) == 0;
}

// Null where nothing tells one login from another.
static const char *get_login()
{
    for (const char *name : {"XDG_SESSION_ID", "WAYLAND_DISPLAY", "DISPLAY"}) {
        const char *value = g_getenv(name);
        if (value != nullptr && *value != '\0')
            return value;
    }
    return nullptr;
}

static char *get_name(const char *identifier)
{
    const char *folder_path = g_getenv("XDG_RUNTIME_DIR");
    const char *login = get_login();
    if (!is_private_folder(folder_path) || login == nullptr)
        return nullptr;
    const z_utf8_ptr entry_name(g_strdup_printf("%s-%s", identifier, login));
    g_strdelimit(entry_name.get(), "/", '_');
    z_utf8_ptr path(g_build_filename(folder_path, entry_name.get(), nullptr));
    return std::strlen(path.get()) < sizeof sockaddr_un::sun_path ? path.release() : nullptr;
}

static int make_socket(const char *name, sockaddr_un &address)
{
    address = {};
    address.sun_family = AF_UNIX;
    g_strlcpy(address.sun_path, name, sizeof address.sun_path);
    return socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

static int bind_socket(const char *name)
{
    sockaddr_un address;
    const int bound = make_socket(name, address);
    if (bound < 0)
        return -1;
    unlink(name);
    if (bind(bound, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
        listen(bound, waiting_clients_max) == 0)
        return bound;
    close(bound);
    return -1;
}

static void close_listener(z_pipe_listener *listener)
{
    const std::unique_ptr<z_pipe_listener> owned(listener);
    if (owned == nullptr)
        return;
    if (owned->socket >= 0) {
        unlink(owned->path.get());
        close(owned->socket);
    }
    if (owned->lock >= 0)
        z_platform.unlock(owned->lock);
}

static z_pipe_listener *listen_at(const char *name)
{
    auto listener = std::make_unique<z_pipe_listener>();
    listener->path.reset(g_strdup(name));
    const z_utf8_ptr lock_path(g_strconcat(name, ".lock", nullptr));
    listener->lock = z_posix_lock.lock_file(lock_path.get(), z_posix_lock_kind::exclusive);
    if (listener->lock >= 0)
        listener->socket = bind_socket(name);
    if (listener->socket >= 0)
        return listener.release();
    close_listener(listener.release());
    return nullptr;
}

static intptr_t accept_client(z_pipe_listener *listener)
{
    return accept4(listener->socket, nullptr, nullptr, SOCK_CLOEXEC);
}

static void interrupt(z_pipe_listener *listener)
{
    shutdown(listener->socket, SHUT_RDWR);
}

// A blocking one would wait for room for as long as the server likes.
static int try_to_connect(const char *name, bool &is_busy)
{
    sockaddr_un address;
    const int connection = make_socket(name, address);
    if (connection < 0)
        return -1;
    if (fcntl(connection, F_SETFL, O_NONBLOCK) == 0 &&
        connect(connection, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0)
        return connection;
    is_busy = errno == EAGAIN;
    close(connection);
    return -1;
}

static intptr_t connect_to(const char *name, int timeout_ms)
{
    const int64_t deadline_ms = z_platform.get_monotonic_time_ms() + timeout_ms;
    bool is_busy = false;
    int connection = try_to_connect(name, is_busy);
    while (connection < 0 && is_busy && z_platform.get_monotonic_time_ms() < deadline_ms) {
        g_usleep(connect_retry_ms * 1000);
        connection = try_to_connect(name, is_busy);
    }
    return connection;
}

// Connections are file descriptors.
static int to_socket(intptr_t connection)
{
    return static_cast<int>(connection);
}

static z_pipe_peer get_peer(intptr_t connection)
{
    ucred credentials = {};
    socklen_t size = sizeof credentials;
    if (getsockopt(to_socket(connection), SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0 ||
        credentials.uid != geteuid())
        return z_pipe_peer::other_user;
    return credentials.pid == getpid() ? z_pipe_peer::own_process : z_pipe_peer::own_user;
}

static int read_some(intptr_t connection, char *buffer, size_t size, int timeout_ms)
{
    pollfd input = {to_socket(connection), POLLIN, 0};
    if (poll(&input, 1, timeout_ms) != 1)
        return -1;
    return static_cast<int>(recv(to_socket(connection), buffer, size, MSG_DONTWAIT));
}

static bool write_bytes(intptr_t connection, const char *bytes, size_t count)
{
    const ssize_t sent_count = send(to_socket(connection), bytes, count, MSG_DONTWAIT | MSG_NOSIGNAL);
    return sent_count >= 0 && static_cast<size_t>(sent_count) == count;
}

static void close_connection(intptr_t connection)
{
    close(to_socket(connection));
}

z_pipe_calls z_pipe = {
    .get_name = get_name,
    .listen = listen_at,
    .accept = accept_client,
    .interrupt = interrupt,
    .close_listener = close_listener,
    .connect = connect_to,
    .get_peer = get_peer,
    .read = read_some,
    .write = write_bytes,
    .close = close_connection,
};
