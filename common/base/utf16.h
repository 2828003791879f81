#pragma once

// UTF-16 texts, NUL-terminated arrays of code units, for calls of operating systems that want them.

#include <cstddef>

#include <glib.h>

// Code units before the NUL.
[[nodiscard]] size_t z_utf16_strlen(const gunichar2 *utf16);

// Copies the NUL too, and returns the destination.
gunichar2 *z_utf16_strcpy(gunichar2 *destination, const gunichar2 *source);

// Replaces in place, and returns the text. `to` may be the NUL, for lists of texts in one array.
gunichar2 *z_utf16_replace_code_unit(gunichar2 *utf16, gunichar2 from, gunichar2 to);
