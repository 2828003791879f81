#pragma once

// Paths are written with slashes in tables that hold on every system.

#include <algorithm>
#include <string>

#include "common/base/fs_path.h"

[[nodiscard]] inline std::string native(std::string path)
{
    std::replace(path.begin(), path.end(), '/', z_fs_path_delimiter);
    return path;
}
