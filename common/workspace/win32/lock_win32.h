#pragma once

// The entries of z_platform that deal with locks; see there.

#include <cstdint>

intptr_t z_win32_lock_folder(const char *path);
void z_win32_unlock(intptr_t lock);
