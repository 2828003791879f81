#include "common/workspace/folder_lock.h"

#include <glib.h>

#include "common/base/error.h"

static constexpr int wait_step_ms = 50;
static constexpr int wait_limit_ms = 2000;

bool z_folder_lock::acquire(const char *folder_path)
{
    release();
    for (int waited_ms = 0;; waited_ms += wait_step_ms) {
        lock = z_platform.lock_folder(folder_path);
        if (lock != z_platform_lock_is_held)
            return true;
        if (waited_ms >= wait_limit_ms)
            break;
        g_usleep(wait_step_ms * 1000);
    }
    z_error_set_utf8_printf("Another program is using the folder.\n\n%s", folder_path);
    return false;
}

void z_folder_lock::release()
{
    if (lock >= 0)
        z_platform.unlock(lock);
    lock = z_platform_no_lock;
}
