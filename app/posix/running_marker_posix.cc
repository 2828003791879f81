#include "app/running_marker.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "common/base/fs_utils.h"

// A lock on a file: exclusive while asking whether anybody else is there, shared from then on. The descriptor
// is kept for the life of the process on purpose.
z_running_marker z_running_marker_hold(const char *folder_path)
{
    const z_utf8_ptr path = z_fs_utils_create_path_in_folder(folder_path, "running.lock");
    const int descriptor = open(path.get(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0)
        return z_running_marker::failed;
    const bool alone = flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    flock(descriptor, LOCK_SH | LOCK_NB);
    return alone ? z_running_marker::first : z_running_marker::others;
}
