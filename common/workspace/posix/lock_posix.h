#pragma once

// Locks of files, for the parts of this system that stand in for what others have instead. A test replaces an
// entry.

#include "common/workspace/platform_system.h"

enum class z_posix_lock_kind { exclusive, shared };

struct z_posix_lock_calls {
    // One try at a lock, as for a folder. The file is made when missing and stays.
    intptr_t (*lock_file)(const char *path, z_posix_lock_kind kind);
    // One try at making an exclusive lock a shared one; when it fails the lock is gone, but can be tried
    // again.
    bool (*share)(intptr_t lock);
};

// What the lock of a file is, too, when it is none.
inline constexpr intptr_t z_posix_no_lock_file = -3; // it cannot be made

extern z_posix_lock_calls z_posix_lock;
