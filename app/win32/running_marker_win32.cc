#include "app/running_marker.h"

#include "app/win32/native_calls.h"

// All users of the computer share the name, and the system takes the mutex away with the last process that holds
// it. Another user's answers "access denied". The folder is this user's own, so the marker does not depend on it.
z_running_marker z_running_marker_hold(const char *)
{
    SetLastError(~DWORD{0});
    const HANDLE mutex = z_native.create_mutex(nullptr, FALSE, L"Global\\Zanvel is running");
    const DWORD error = GetLastError();
    if (mutex == nullptr)
        return error == ERROR_ACCESS_DENIED ? z_running_marker::others : z_running_marker::failed;
    return error == ERROR_ALREADY_EXISTS ? z_running_marker::others : z_running_marker::first;
}

// The mutex is never owned, only there.
void z_running_marker_share() {}
