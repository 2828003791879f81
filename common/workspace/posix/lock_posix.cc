#include "common/workspace/posix/lock_posix.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

// Hands the descriptor back when it is locked.
static intptr_t try_lock(int descriptor, z_posix_lock_kind kind)
{
    if (flock(descriptor, (kind == z_posix_lock_kind::shared ? LOCK_SH : LOCK_EX) | LOCK_NB) == 0)
        return descriptor;
    const bool is_held = errno == EWOULDBLOCK || errno == EINTR;
    close(descriptor);
    return is_held ? z_platform_lock_is_held : z_platform_no_lock;
}

static intptr_t lock_file(const char *path, z_posix_lock_kind kind)
{
    const int descriptor = open(path, O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600);
    return descriptor < 0 ? z_posix_no_lock_file : try_lock(descriptor, kind);
}

static bool share(intptr_t lock)
{
    return flock(static_cast<int>(lock), LOCK_SH | LOCK_NB) == 0;
}

intptr_t z_system_lock_folder(const char *path)
{
    const int descriptor = open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return descriptor < 0 ? z_platform_no_lock : try_lock(descriptor, z_posix_lock_kind::exclusive);
}

void z_system_unlock(intptr_t lock)
{
    close(static_cast<int>(lock));
}

z_posix_lock_calls z_posix_lock = {.lock_file = lock_file, .share = share};
