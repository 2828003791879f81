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

// Replaces every such byte in place, and returns the text.
char *z_char_replace_char(char *text, char from, char to);

// Replaces every occurrence of `search`, which must not be empty, scanning from the left. The result has the
// encoding of the three texts, so the call names the owner: z_char_strdup_replace<z_latin1_ptr>(...).
template <typename Owner>
[[nodiscard]] Owner z_char_strdup_replace(const char *text, const char *search, const char *replacement)
{
    using strings = z_ptr<char *, g_strfreev>;
    const strings pieces(g_strsplit(text, search, -1));
    return Owner(g_strjoinv(replacement, pieces.get()));
}

template <typename Owner>
[[nodiscard]] Owner z_char_strdup_replace_and_free(Owner text, const char *search, const char *replacement)
{
    return z_char_strdup_replace<Owner>(text.get(), search, replacement);
}
