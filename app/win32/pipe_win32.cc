// A named pipe for each login. There is one end of it at the server, which serves its clients by turns.

#include "app/pipe_system.h"

#include <memory>
#include <vector>

#include "app/win32/native_calls_win32.h"

#include <sddl.h>

#include "common/base/win32/handle_win32.h"
#include "common/base/win32/wide_text.h"

static constexpr DWORD default_timeout_ms = 5000;

static_assert(sizeof(HANDLE) == sizeof(intptr_t));

using sid_text_ptr = z_ptr<char, LocalFree>;

struct z_pipe_listener {
    z_win32_handle_ptr pipe;
    z_win32_handle_ptr stop_event;
};

// None is the system's number for no file, too.
static intptr_t to_connection(HANDLE pipe)
{
    return reinterpret_cast<intptr_t>(pipe);
}

static HANDLE to_pipe(intptr_t connection)
{
    return reinterpret_cast<HANDLE>(connection);
}

// What is known of the groups that a process belongs to; empty on failure.
static std::vector<char> get_token_groups(HANDLE process)
{
    HANDLE token;
    if (!OpenProcessToken(process, TOKEN_QUERY, &token))
        return {};
    const z_win32_handle_ptr owned(token);
    DWORD size = 0;
    if (!z_native.get_token_information(token, TokenGroups, nullptr, 0, &size) &&
        GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        return {};
    std::vector<char> bytes(size);
    if (!z_native.get_token_information(token, TokenGroups, bytes.data(), size, &size))
        return {};
    return bytes;
}

// A place in `bytes`, or null.
static PSID find_login(std::vector<char> &bytes)
{
    if (bytes.empty())
        return nullptr;
    auto *groups = reinterpret_cast<TOKEN_GROUPS *>(bytes.data());
    for (DWORD i = 0; i < groups->GroupCount; ++i) {
        if ((groups->Groups[i].Attributes & SE_GROUP_LOGON_ID) != 0)
            return groups->Groups[i].Sid;
    }
    return nullptr;
}

static char *get_name(const char *identifier)
{
    std::vector<char> groups = get_token_groups(GetCurrentProcess());
    const PSID login = find_login(groups);
    char *text = nullptr;
    if (login == nullptr || !ConvertSidToStringSidA(login, &text))
        return nullptr;
    const sid_text_ptr owned(text);
    return g_strdup_printf("\\\\.\\pipe\\%s\\%s", identifier, text);
}

// One operation on a pipe, which has a time limit.

class pipe_operation {
public:
    explicit pipe_operation(HANDLE new_pipe)
        : pipe(new_pipe), event(CreateEventW(nullptr, TRUE, FALSE, nullptr))
    {
        record.hEvent = event.get();
    }
    OVERLAPPED *get()
    {
        return &record;
    }
    // Ends it when the time is up or `stop_event`, which may be null, is set. `has_ended` is what starting it
    // returned. The bytes moved, or -1.
    int finish(BOOL has_ended, DWORD timeout_ms, HANDLE stop_event = nullptr)
    {
        if (!has_ended && GetLastError() != ERROR_IO_PENDING)
            return -1;
        const HANDLE events[] = {record.hEvent, stop_event};
        if (WaitForMultipleObjects(stop_event != nullptr ? 2 : 1, events, FALSE, timeout_ms) != WAIT_OBJECT_0)
            CancelIoEx(pipe, &record);
        DWORD count = 0;
        return GetOverlappedResult(pipe, &record, &count, TRUE) ? static_cast<int>(count) : -1;
    }

private:
    const HANDLE pipe;
    const z_win32_handle_ptr event;
    OVERLAPPED record = {};
};

// The server.

static void close_listener(z_pipe_listener *listener)
{
    const std::unique_ptr<z_pipe_listener> owned(listener);
}

static z_pipe_listener *listen_at(const char *name)
{
    const z_utf16_ptr wide_name = z_convert_utf8_to_utf16(name);
    if (wide_name == nullptr)
        return nullptr;
    const HANDLE pipe = z_native.create_named_pipe(
        z_win32_get_wide(wide_name),
        PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
        PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS,
        PIPE_UNLIMITED_INSTANCES, z_pipe_buffer_size, z_pipe_buffer_size, default_timeout_ms, nullptr);
    if (pipe == INVALID_HANDLE_VALUE)
        return nullptr;
    auto listener = std::make_unique<z_pipe_listener>();
    listener->pipe.reset(pipe);
    listener->stop_event.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    return listener->stop_event != nullptr ? listener.release() : nullptr;
}

// A client that has come before is as good; one that has gone again leaves the end to be made free.
static intptr_t accept_client(z_pipe_listener *listener)
{
    const HANDLE pipe = listener->pipe.get();
    const HANDLE stop_event = listener->stop_event.get();
    if (WaitForSingleObject(stop_event, 0) == WAIT_OBJECT_0)
        return -1;
    pipe_operation operation(pipe);
    const BOOL has_ended = ConnectNamedPipe(pipe, operation.get());
    if (!has_ended && GetLastError() == ERROR_PIPE_CONNECTED)
        return to_connection(pipe);
    if (operation.finish(has_ended, INFINITE, stop_event) >= 0)
        return to_connection(pipe);
    DisconnectNamedPipe(pipe);
    return -1;
}

static void interrupt(z_pipe_listener *listener)
{
    SetEvent(listener->stop_event.get());
}

// The client.

static intptr_t connect_to(const char *name, int timeout_ms)
{
    const z_utf16_ptr wide = z_convert_utf8_to_utf16(name);
    if (wide == nullptr)
        return -1;
    const wchar_t *wide_name = z_win32_get_wide(wide);
    const ULONGLONG deadline_ms = GetTickCount64() + static_cast<ULONGLONG>(timeout_ms);
    for (;;) {
        const HANDLE pipe =
            CreateFileW(wide_name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                        FILE_FLAG_OVERLAPPED | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr);
        if (pipe != INVALID_HANDLE_VALUE)
            return to_connection(pipe);
        if (GetLastError() != ERROR_PIPE_BUSY)
            return -1;
        const ULONGLONG now_ms = GetTickCount64();
        if (now_ms >= deadline_ms || !WaitNamedPipeW(wide_name, static_cast<DWORD>(deadline_ms - now_ms)))
            return -1;
    }
}

// Either end.

static bool is_of_this_login(DWORD process_id)
{
    const z_win32_handle_ptr process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process_id));
    if (process == nullptr)
        return false;
    std::vector<char> own_groups = get_token_groups(GetCurrentProcess());
    std::vector<char> groups = get_token_groups(process.get());
    const PSID own_login = find_login(own_groups);
    const PSID login = find_login(groups);
    return own_login != nullptr && login != nullptr && EqualSid(own_login, login);
}

static bool is_server_end(HANDLE pipe)
{
    DWORD flags = 0;
    return GetNamedPipeInfo(pipe, &flags, nullptr, nullptr, nullptr) && (flags & PIPE_SERVER_END) != 0;
}

static z_pipe_peer get_peer(intptr_t connection)
{
    const HANDLE pipe = to_pipe(connection);
    ULONG process_id = 0;
    const auto get_process_id =
        is_server_end(pipe) ? GetNamedPipeClientProcessId : GetNamedPipeServerProcessId;
    if (!get_process_id(pipe, &process_id))
        return z_pipe_peer::other_user;
    if (process_id == GetCurrentProcessId())
        return z_pipe_peer::own_process;
    return is_of_this_login(process_id) ? z_pipe_peer::own_user : z_pipe_peer::other_user;
}

static int read_some(intptr_t connection, char *buffer, size_t size, int timeout_ms)
{
    pipe_operation operation(to_pipe(connection));
    const BOOL has_ended =
        ReadFile(to_pipe(connection), buffer, static_cast<DWORD>(size), nullptr, operation.get());
    return operation.finish(has_ended, static_cast<DWORD>(timeout_ms));
}

// What the server has written is lost if it disconnects before the client has read it, so it waits for the
// client to close, but not for ever, as flushing would.
static bool write_bytes(intptr_t connection, const char *bytes, size_t count)
{
    const HANDLE pipe = to_pipe(connection);
    pipe_operation operation(pipe);
    const BOOL has_ended = WriteFile(pipe, bytes, static_cast<DWORD>(count), nullptr, operation.get());
    const bool is_written = operation.finish(has_ended, z_pipe_client_limit_ms) == static_cast<int>(count);
    char rest[z_pipe_buffer_size];
    if (is_written && is_server_end(pipe))
        (void)read_some(connection, rest, sizeof rest, z_pipe_client_limit_ms);
    return is_written;
}

static void close_connection(intptr_t connection)
{
    const HANDLE pipe = to_pipe(connection);
    if (is_server_end(pipe))
        DisconnectNamedPipe(pipe);
    else
        CloseHandle(pipe);
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
    .write = write_bytes,
    .close = close_connection,
};
