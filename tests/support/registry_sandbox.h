#pragma once

// Reads and writes the strings of one key in a registry of the test's own.

#include <string>

#include "tests/support/user_sandbox.h"

struct RegistrySandboxTest : UserSandboxTest {
    static std::string read(const char *name)
    {
        z_utf8_ptr value;
        if (!z_platform_read_string_from_registry(value, "Software\\Zanvel", name))
            return std::string("failed: ") + z_error_get();
        return value != nullptr ? value.get() : "none";
    }
    static bool write(const char *name, const char *text)
    {
        return z_platform_write_string_to_registry("Software\\Zanvel", name, text);
    }
    static bool remove(const char *name)
    {
        return z_platform_delete_value_in_registry("Software\\Zanvel", name);
    }
};
