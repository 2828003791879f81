#pragma once

// How a folder's entries are listed together with their statuses. A test replaces it: not every file system
// can.

#include <windows.h>

extern decltype(&GetFileInformationByHandleEx) z_win32_list_entries;
