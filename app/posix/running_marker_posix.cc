#include "app/running_marker.h"

#include <glib.h>

#include "common/base/fs_utils.h"
#include "common/workspace/posix/lock_posix.h"

static constexpr int wait_step_ms = 20;
static constexpr int wait_limit_ms = 2000;

// Kept until the process ends: the system gives it back.
static intptr_t marker = z_platform_no_lock;

// Gives a program that is just cleaning up the time for it. Going on without the marker beats not starting.
template <typename Attempt>
static void try_for_a_while(Attempt attempt)
{
    for (int waited_ms = 0; !attempt() && waited_ms < wait_limit_ms; waited_ms += wait_step_ms)
        g_usleep(wait_step_ms * 1000);
}

z_running_marker z_running_marker_hold(const char *folder_path)
{
    if (folder_path == nullptr)
        return z_running_marker::first;
    const z_utf8_ptr path = z_fs_utils_create_path_in_folder(folder_path, "running.lock");
    marker = z_posix_lock.lock_file(path.get(), z_posix_lock_kind::exclusive);
    if (marker == z_posix_no_lock_file)
        return z_running_marker::failed;
    if (marker >= 0)
        return z_running_marker::first;
    try_for_a_while([&path] {
        marker = z_posix_lock.lock_file(path.get(), z_posix_lock_kind::shared);
        return marker != z_platform_lock_is_held;
    });
    return z_running_marker::others;
}

void z_running_marker_share()
{
    try_for_a_while([] { return z_posix_lock.share(marker); });
}
