#pragma once

// The embedded zip archive; its definition is made when the program is built. Tests put one of their own here.

#include <span>

extern std::span<const unsigned char> z_resources_archive;
