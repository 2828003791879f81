#pragma once

// The entries of z_platform that deal with the locks of folders; see there.

#include <cstdint>

intptr_t z_system_lock_folder(const char *path);
void z_system_unlock(intptr_t lock);
