#pragma once

// The embedded zip archives; their definitions are made when the program is built. Tests put some of their
// own here.

#include <span>

extern std::span<const unsigned char> z_resources_archive;
// The PNG members of the other, under the same names, with twice the pixels each way.
extern std::span<const unsigned char> z_resources_doubled_archive;
