#pragma once

// A private channel between the instances of a program in one login of one user, as the system has it: one
// table of calls, so that a test can make each fail. None of them touches z_error in the server's thread.
// Connections are the system's numbers, negative for none.

#include <cstddef>
#include <cstdint>

struct z_pipe_listener; // each system's own

inline constexpr size_t z_pipe_buffer_size = 512;   // for what one end reads at a time
inline constexpr int z_pipe_client_limit_ms = 1000; // for which the server waits for a client

enum class z_pipe_peer { other_user, own_user, own_process };

struct z_pipe_calls {
    // In memory of GLib's allocator; null if there is no place for it.
    char *(*get_name)(const char *identifier);
    // Null if that fails or another instance serves already. Replaces what one that ended badly has left
    // there.
    z_pipe_listener *(*listen)(const char *name);
    // Waits for the next client, which is to be closed before the next but one.
    intptr_t (*accept)(z_pipe_listener *listener);
    // From any thread: ends the waiting, and every later one at once.
    void (*interrupt)(z_pipe_listener *listener);
    // From then on nobody can connect. Null is allowed.
    void (*close_listener)(z_pipe_listener *listener);

    // Waits that long for a server that is busy with others.
    intptr_t (*connect)(const char *name, int timeout_ms);
    z_pipe_peer (*get_peer)(intptr_t connection);
    // What has come within the time, of whatever length; negative if nothing has.
    int (*read)(intptr_t connection, char *buffer, size_t size, int timeout_ms);
    bool (*write)(intptr_t connection, const char *bytes, size_t count);
    void (*close)(intptr_t connection);
};

extern z_pipe_calls z_pipe;
