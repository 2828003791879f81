#include "common/workspace/platform_system.h"

#include <vector>

#include <windows.h>

#include <shellapi.h>

#include "common/base/win32/path_win32.h"
#include "common/base/win32/wide_text.h"

static void set_environment_value(const char *name, const char *value)
{
    const z_utf16_ptr wide_name = z_convert_utf8_to_utf16(name);
    const z_utf16_ptr wide_value = value != nullptr ? z_convert_utf8_to_utf16(value) : nullptr;
    SetEnvironmentVariableW(z_win32_get_wide(wide_name), z_win32_get_wide(wide_value));
}

// Started programs get this program's environment, so while one of these lives, that is what they should
// have.
class lent_environment {
public:
    explicit lent_environment(z_platform_environment values)
    {
        for (const auto &[name, value] : values) {
            own_values.push_back({name, z_utf8_ptr(g_strdup(g_getenv(name)))});
            set_environment_value(name, value);
        }
    }
    lent_environment(const lent_environment &) = delete;
    lent_environment &operator=(const lent_environment &) = delete;
    ~lent_environment()
    {
        for (const auto &[name, value] : own_values)
            set_environment_value(name, value.get());
    }

private:
    struct own_value {
        const char *name;
        z_utf8_ptr value;
    };
    std::vector<own_value> own_values;
};

static HANDLE get_handle(const z_platform_process *process)
{
    return reinterpret_cast<HANDLE>(process->handle);
}

bool z_system_start_process(const char *command_line, z_platform_environment environment,
                            z_platform_process *process)
{
    const z_utf16_ptr wide = z_convert_utf8_to_utf16(command_line);
    if (wide == nullptr)
        return false;
    const lent_environment lent(environment);
    STARTUPINFOW start_up = {};
    start_up.cb = sizeof start_up;
    PROCESS_INFORMATION started = {};
    if (!CreateProcessW(nullptr, z_win32_get_wide(wide), nullptr, nullptr, FALSE,
                        CREATE_DEFAULT_ERROR_MODE | NORMAL_PRIORITY_CLASS, nullptr, nullptr, &start_up,
                        &started))
        return false;
    CloseHandle(started.hThread);
    if (process != nullptr)
        *process = {static_cast<intptr_t>(started.dwProcessId), reinterpret_cast<intptr_t>(started.hProcess)};
    else
        CloseHandle(started.hProcess);
    return true;
}

z_platform_wait z_system_wait_for_process(z_platform_process *process, int timeout_ms)
{
    switch (WaitForSingleObject(get_handle(process),
                                timeout_ms < 0 ? INFINITE : static_cast<DWORD>(timeout_ms))) {
    case WAIT_OBJECT_0:
        return z_platform_wait::ended;
    case WAIT_TIMEOUT:
        return z_platform_wait::running;
    default:
        return z_platform_wait::failed;
    }
}

void z_system_terminate_process(z_platform_process *process)
{
    TerminateProcess(get_handle(process), 0);
}

void z_system_close_process(z_platform_process *process)
{
    CloseHandle(get_handle(process));
    *process = {};
}

// The desktop would open the current folder for an empty path, and addresses.
bool z_system_open_file(const char *path, z_platform_environment environment)
{
    static constexpr INT_PTR highest_failure = 32;
    const z_utf16_ptr wide = z_convert_utf8_to_utf16(path);
    if (wide == nullptr || GetFileAttributesW(z_win32_make_path(path).c_str()) == INVALID_FILE_ATTRIBUTES)
        return false;
    const lent_environment lent(environment);
    const HINSTANCE result =
        ShellExecuteW(nullptr, L"open", z_win32_get_wide(wide), nullptr, L".", SW_SHOWDEFAULT);
    return reinterpret_cast<INT_PTR>(result) > highest_failure;
}
