#pragma once

// A temporary folder in which the built command-line program runs.

#include <ostream>
#include <vector>

#include "tests/support/sandbox.h"

struct outcome {
    int status; // -1 if it did not come to an exit
    std::string output;
    std::string errors;

    bool operator==(const outcome &) const = default;
    friend std::ostream &operator<<(std::ostream &stream, const outcome &value)
    {
        return stream << "status " << value.status << "\n--- output\n"
                      << value.output << "--- errors\n"
                      << value.errors;
    }
};

// The user is Swedish where the environment tells.
struct ToolSandboxTest : SandboxTest {
    outcome run(std::vector<std::string> arguments, std::vector<std::string> before = {}) const
    {
        before.push_back(ZANVEL_TEMPLATE_PROGRAM);
        before.insert(before.end(), arguments.begin(), arguments.end());
        std::vector<char *> argv;
        for (std::string &argument : before)
            argv.push_back(argument.data());
        argv.push_back(nullptr);

        char **environment = g_get_environ();
        environment = g_environ_setenv(environment, "XDG_CONFIG_HOME", path("config").c_str(), TRUE);
        environment = g_environ_setenv(environment, "LANGUAGE", "sv", TRUE);
        environment = g_environ_setenv(environment, "LC_ALL", "C", TRUE); // For the system's reasons.
        z_utf8_ptr output, errors;
        int wait_status = -1;
        EXPECT_TRUE(g_spawn_sync(path().c_str(), argv.data(), environment, G_SPAWN_DEFAULT, nullptr, nullptr,
                                 z_out(output), z_out(errors), &wait_status, nullptr));
        g_strfreev(environment);
        z_gerror_ptr error;
        const bool is_well = g_spawn_check_wait_status(wait_status, z_out(error));
        const int status = is_well ? 0 : error->domain == G_SPAWN_EXIT_ERROR ? error->code : -1;
        return {status, output.get(), errors.get()};
    }
};
