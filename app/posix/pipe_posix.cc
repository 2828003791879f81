// Sockets in the folder that the system keeps for the user's logins, one for each login.

#include "app/pipe_system.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <glib.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "common/base/handles.h"

static constexpr int waiting_clients_max = 16;

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

static int listen_at(const char *name)
{
    sockaddr_un address;
    const int listener = make_socket(name, address);
    if (listener < 0)
        return -1;
    unlink(name);
    if (bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0 &&
        listen(listener, waiting_clients_max) == 0)
        return listener;
    close(listener);
    return -1;
}

static int accept_client(int listener)
{
    return accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
}

static void interrupt(int listener)
{
    shutdown(listener, SHUT_RDWR);
}

static void close_listener(int listener, const char *name)
{
    unlink(name);
    close(listener);
}

// A blocking one would wait for room for as long as the server likes.
static int connect_to(const char *name)
{
    sockaddr_un address;
    const int connection = make_socket(name, address);
    if (connection < 0)
        return -1;
    if (fcntl(connection, F_SETFL, O_NONBLOCK) == 0 &&
        connect(connection, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0)
        return connection;
    const bool is_busy = errno == EAGAIN;
    close(connection);
    return is_busy ? z_pipe_is_busy : -1;
}

static z_pipe_peer get_peer(int connection)
{
    ucred credentials = {};
    socklen_t size = sizeof credentials;
    if (getsockopt(connection, SOL_SOCKET, SO_PEERCRED, &credentials, &size) != 0 ||
        credentials.uid != geteuid())
        return z_pipe_peer::other_user;
    return credentials.pid == getpid() ? z_pipe_peer::own_process : z_pipe_peer::own_user;
}

static int read_some(int connection, char *buffer, size_t size, int timeout_ms)
{
    pollfd input = {connection, POLLIN, 0};
    if (poll(&input, 1, timeout_ms) != 1)
        return -1;
    return static_cast<int>(recv(connection, buffer, size, MSG_DONTWAIT));
}

static bool write_byte(int connection, char byte)
{
    return send(connection, &byte, 1, MSG_DONTWAIT | MSG_NOSIGNAL) == 1;
}

static void close_connection(int connection)
{
    close(connection);
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
    .write = write_byte,
    .close = close_connection,
};
