// Other programs: their command lines, the environment that they get, and waiting for them.

#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

#include "common/workspace/platform.h"
#include "common/workspace/platform_system.h"

static constexpr int wait_step_ms = 200;

z_utf8_ptr z_platform_escape_string_for_command_line(const char *text)
{
    z_utf8_string_ptr escaped = z_utf8_string_new("\"");
    for (; *text != '\0'; ++text) {
        if (*text == '"')
            z_utf8_string_append_byte(escaped.get(), '\\');
        z_utf8_string_append_byte(escaped.get(), *text);
    }
    z_utf8_string_append_byte(escaped.get(), '"');
    return z_utf8_string_free(std::move(escaped));
}

// Reads one argument and moves behind it. Null, and nowhere, if its quote is not closed.
static z_utf8_ptr read_argument(const char *&place)
{
    z_utf8_string_ptr argument = z_utf8_string_new("");
    bool is_quoted = false;
    for (; *place != '\0' && (is_quoted || !g_ascii_isspace(*place)); ++place) {
        if (is_quoted && place[0] == '\\' && place[1] == '"')
            z_utf8_string_append_byte(argument.get(), *++place);
        else if (*place == '"')
            is_quoted = !is_quoted;
        else
            z_utf8_string_append_byte(argument.get(), *place);
    }
    return is_quoted ? nullptr : z_utf8_string_free(std::move(argument));
}

z_utf8_strv_ptr z_platform_split_command_line(const char *command_line)
{
    z_ptr<GPtrArray, g_ptr_array_unref> arguments(g_ptr_array_new_with_free_func(g_free));
    const char *place = command_line;
    while (true) {
        while (g_ascii_isspace(*place))
            ++place;
        if (*place == '\0')
            break;
        z_utf8_ptr argument = read_argument(place);
        if (argument == nullptr)
            return nullptr;
        g_ptr_array_add(arguments.get(), argument.release());
    }
    if (arguments->len == 0)
        return nullptr;
    g_ptr_array_add(arguments.get(), nullptr);
    return z_utf8_strv_ptr(reinterpret_cast<char **>(g_ptr_array_steal(arguments.get(), nullptr)));
}

struct original_value {
    z_utf8_ptr name;
    z_utf8_ptr value; // As the system has it, which need not be UTF-8.
};
static std::vector<original_value> original_values;

void z_platform_set_own_environment_value(const char *name, const char *value)
{
    const auto has_name = [name](const original_value &original) {
        return std::strcmp(original.name.get(), name) == 0;
    };
    if (std::none_of(original_values.begin(), original_values.end(), has_name))
        original_values.push_back({z_utf8_ptr(g_strdup(name)), z_utf8_ptr(g_strdup(g_getenv(name)))});
    if (value != nullptr)
        g_setenv(name, value, TRUE);
    else
        g_unsetenv(name);
}

static std::vector<z_platform_environment_value> get_original_environment()
{
    std::vector<z_platform_environment_value> values;
    for (const original_value &original : original_values)
        values.push_back({original.name.get(), original.value.get()});
    return values;
}

bool z_platform_run_command_line(const char *command_line)
{
    return z_platform.start_process(command_line, get_original_environment(), nullptr);
}

// Until the process ends or the user aborts it.
static z_platform_wait wait_with_events(z_platform_process *process, int timeout_seconds,
                                        const z_platform_wait_operations &operations)
{
    const int64_t deadline_ms = z_platform.get_monotonic_time_ms() + timeout_seconds * int64_t{1000};
    bool can_abort = false;
    while (true) {
        const z_platform_wait state = z_platform.wait_for_process(process, wait_step_ms);
        if (state != z_platform_wait::running)
            return state;
        operations.let_events_through(operations.data);
        if (can_abort && operations.is_abort_requested(operations.data))
            return state;
        if (!can_abort && timeout_seconds >= 0 && z_platform.get_monotonic_time_ms() >= deadline_ms) {
            operations.show_abort(operations.data);
            can_abort = true;
        }
    }
}

// Until the process ends or the time is over.
static z_platform_wait wait_in_silence(z_platform_process *process, int timeout_seconds)
{
    const int64_t deadline_ms = z_platform.get_monotonic_time_ms() + timeout_seconds * int64_t{1000};
    z_platform_wait state = z_platform_wait::running;
    while (state == z_platform_wait::running) {
        const int64_t left_ms = deadline_ms - z_platform.get_monotonic_time_ms();
        if (timeout_seconds >= 0 && left_ms <= 0)
            break;
        const int64_t limit_ms = timeout_seconds < 0 ? -1 : std::min<int64_t>(left_ms, INT_MAX);
        state = z_platform.wait_for_process(process, static_cast<int>(limit_ms));
    }
    return state;
}

bool z_platform_run_and_wait(const char *command_line, int timeout_seconds,
                             const z_platform_wait_operations *operations)
{
    z_platform_process process;
    if (!z_platform.start_process(command_line, get_original_environment(), &process))
        return false;
    const z_platform_wait state = operations != nullptr
                                      ? wait_with_events(&process, timeout_seconds, *operations)
                                      : wait_in_silence(&process, timeout_seconds);
    if (state == z_platform_wait::running)
        z_platform.terminate_process(&process);
    z_platform.close_process(&process);
    return state == z_platform_wait::ended;
}

bool z_platform_open_file_with_default_app(const char *path)
{
    return z_platform.open_file(path, get_original_environment());
}
