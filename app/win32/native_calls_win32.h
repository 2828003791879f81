#pragma once

// The calls of the system whose answers no test can bring about by itself, as a table in which it can replace
// them.

#include <windows.h>

struct z_native_calls {
    BOOL(WINAPI *get_token_information)
    (HANDLE token, TOKEN_INFORMATION_CLASS kind, void *buffer, DWORD size, DWORD *needed_size);
    HANDLE(WINAPI *create_named_pipe)
    (const wchar_t *name, DWORD open_mode, DWORD pipe_mode, DWORD most_instances, DWORD output_size,
     DWORD input_size, DWORD timeout_ms, SECURITY_ATTRIBUTES *security);
    HANDLE(WINAPI *create_mutex)(SECURITY_ATTRIBUTES *security, BOOL is_owned, const wchar_t *name);

    // Whether the system is of this version or a later one.
    bool (*is_version)(unsigned major, unsigned minor, unsigned service_pack);
    HMODULE (*load_system_library)(const wchar_t *name);
    FARPROC(WINAPI *get_procedure)(HMODULE library, const char *name);
    BOOL(WINAPI *free_library)(HMODULE library);
    HMONITOR(WINAPI *find_monitor)(POINT point, DWORD flags);
    BOOL(WINAPI *get_monitor_info)(HMONITOR monitor, MONITORINFO *info);
};

extern z_native_calls z_native;
