#pragma once

// Helpers for byte strings of which only the ASCII part matters: the classes of bytes, and replacing.
//
// The classes are those of the classic locale over unsigned bytes, whatever the user's locale says: files
// must read the same everywhere.

#include "common/base/handles.h"

// Space, tab, line feed, vertical tab, form feed and carriage return.
[[nodiscard]] constexpr bool z_char_is_space(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

[[nodiscard]] constexpr bool z_char_is_digit(char c)
{
    return c >= '0' && c <= '9';
}

// Only a to z have an upper case.
[[nodiscard]] constexpr char z_char_to_upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}
