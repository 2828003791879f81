#pragma once

// A private channel between the instances of a program in one login of one user, as the system has it: one
// table of calls, so that a test can make each fail. None of them touches z_error, as the server's thread
// calls them. Connections and listeners are the system's numbers, negative for none.

#include <cstddef>

enum class z_pipe_peer { other_user, own_user, own_process };

inline constexpr int z_pipe_is_busy = -2; // there is a server, but it has no room yet

struct z_pipe_calls {
    // In memory of GLib's allocator; null if there is no place for it.
    char *(*get_name)(const char *identifier);
    // Replaces what an instance that ended badly has left there.
    int (*listen)(const char *name);
    // Waits for the next client.
    int (*accept)(int listener);
    // From any thread: ends the waiting, and every later one at once; nobody can connect any more.
    void (*interrupt)(int listener);
    void (*close_listener)(int listener, const char *name);

    int (*connect)(const char *name);
    z_pipe_peer (*get_peer)(int connection);
    // What has come within the time, of whatever length; negative if nothing has.
    int (*read)(int connection, char *buffer, size_t size, int timeout_ms);
    bool (*write)(int connection, char byte);
    void (*close)(int connection);
};

extern z_pipe_calls z_pipe;
