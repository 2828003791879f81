#include "app/running_marker.h"

#include "app/win32/native_calls_win32.h"

#include "common/base/error.h"
#include "common/workspace/folder_lock.h"

// Whoever may be the first has the folder's lock from before it asks until it has cleaned up, so that nobody
// writes there meanwhile.
static z_folder_lock cleaning;

// All users of the computer share the name, and the system takes the mutex away with the last process that
// holds it. Another user's answers "access denied".
static z_running_marker hold_mutex()
{
    SetLastError(~DWORD{0});
    const HANDLE mutex = z_native.create_mutex(nullptr, FALSE, L"Global\\Zanvel is running");
    const DWORD error = GetLastError();
    if (mutex == nullptr)
        return error == ERROR_ACCESS_DENIED ? z_running_marker::others : z_running_marker::failed;
    return error == ERROR_ALREADY_EXISTS ? z_running_marker::others : z_running_marker::first;
}

// Going on without the lock beats not starting.
z_running_marker z_running_marker_hold(const char *folder_path)
{
    if (folder_path != nullptr && !cleaning.acquire(folder_path))
        z_error_clear();
    const z_running_marker marker = hold_mutex();
    if (marker != z_running_marker::first)
        cleaning.release();
    return marker;
}

void z_running_marker_share()
{
    cleaning.release();
}
