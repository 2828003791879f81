#pragma once

// A place for pipes of one test's own, where the system keeps them in a folder.

#include <utility>
#include <vector>

#include "app/pipe_system.h"
#include "tests/support/user_sandbox.h"

struct PipeSandboxTest : UserSandboxTest {
    PipeSandboxTest() : UserSandboxTest("pipe-") // A socket's path must be short.
    {
        for (const char *name : {"XDG_RUNTIME_DIR", "XDG_SESSION_ID", "WAYLAND_DISPLAY", "DISPLAY"})
            old_values.emplace_back(name, g_strdup(g_getenv(name)));
        g_setenv("XDG_RUNTIME_DIR", path().c_str(), TRUE);
        g_setenv("XDG_SESSION_ID", "7", TRUE);
    }
    ~PipeSandboxTest() override
    {
        for (const auto &[name, value] : old_values)
            value != nullptr ? (void)g_setenv(name, value.get(), TRUE) : g_unsetenv(name);
    }

private:
    std::vector<std::pair<const char *, z_utf8_ptr>> old_values;
};
