#pragma once

// The embedded zip archive; its definition is made when the program is built.

#include <span>

extern const std::span<const unsigned char> z_resources_archive;
