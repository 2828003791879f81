#pragma once

// Keeps two programs of the family from changing the files of one folder at the same time. Advisory: whoever
// does not ask is not stopped, and reading needs no lock, since files are only ever replaced whole.

#include "common/workspace/platform_system.h"

class z_folder_lock {
public:
    z_folder_lock() = default;
    z_folder_lock(const z_folder_lock &) = delete;
    z_folder_lock &operator=(const z_folder_lock &) = delete;
    ~z_folder_lock()
    {
        release();
    }

    // Waits for another program for two seconds, then fails. Succeeds without a lock where there are none.
    [[nodiscard]] bool acquire(const char *folder_path);
    void release();

private:
    intptr_t lock = z_platform_no_lock; // Not negative while it is held.
};
