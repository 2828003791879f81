#pragma once

// What is asked of the system's registry: one table, so that a test can make each call fail.

#include <windows.h>

struct z_registry_calls {
    decltype(&RegOpenKeyExW) open_key;
    decltype(&RegCreateKeyExW) create_key;
    decltype(&RegQueryValueExW) query_value;
    decltype(&RegSetValueExW) set_value;
    decltype(&RegDeleteValueW) delete_value;
    decltype(&RegCloseKey) close_key;
};

extern z_registry_calls z_registry;
