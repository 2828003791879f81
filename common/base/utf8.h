#pragma once

// UTF-8 texts: assertions, joining, tests, arrays and growable texts. Texts are valid UTF-8; what comes from
// outside is checked where it comes in.

#include <array>
#include <cstdarg>
#include <cstddef>

#include "common/base/handles.h"

// The argument when it passes, else null, with the reason in z_error.
[[nodiscard]] const char *z_ascii_assert_in_utf8(const char *utf8);
[[nodiscard]] const char *z_utf8_assert_nonempty(const char *utf8);
[[nodiscard]] z_utf8_ptr z_utf8_assert_nonempty_or_free(z_utf8_ptr utf8);

// Joins the texts in order; nulls are left out, and nothing at all gives "".
[[nodiscard]] z_utf8_ptr z_utf8_cat_(const char *const *texts, size_t count);
template <typename... Texts>
[[nodiscard]] z_utf8_ptr z_utf8_cat(Texts... texts)
{
    const std::array<const char *, sizeof...(texts)> array{texts...};
    return z_utf8_cat_(array.data(), array.size());
}

// For extensions of file names.
[[nodiscard]] bool z_utf8_has_suffix_case_insensitive_ascii(const char *utf8, const char *suffix);

// Unicode white space, which the vertical tab is not. True for an empty text.
[[nodiscard]] bool z_utf8_is_all_whitespace(const char *utf8);

// An owned, NULL-terminated array of UTF-8 texts.
inline void z_utf8_strfreev(char **texts)
{
    g_strfreev(texts);
}
using z_utf8_strv_ptr = z_ptr<char *, z_utf8_strfreev>;

// A growable UTF-8 text: GLib's string builder under names that tell the encoding. The handle frees the
// builder and its text; the free function ends the builder and hands its text out. Appending returns the
// string.
struct z_utf8_string_deleter {
    void operator()(GString *string) const noexcept
    {
        g_string_free(string, TRUE);
    }
};
using z_utf8_string_ptr = std::unique_ptr<GString, z_utf8_string_deleter>;

[[nodiscard]] inline z_utf8_string_ptr z_utf8_string_new(const char *initial_utf8)
{
    return z_utf8_string_ptr(g_string_new(initial_utf8));
}

[[nodiscard]] inline z_utf8_ptr z_utf8_string_free(z_utf8_string_ptr string)
{
    return z_utf8_ptr(g_string_free(string.release(), FALSE));
}

inline GString *z_utf8_string_append(GString *string, const char *utf8)
{
    return g_string_append(string, utf8);
}

GString *z_utf8_string_append_printf(GString *string, const char *format, ...) G_GNUC_PRINTF(2, 3);
GString *z_utf8_string_append_vprintf(GString *string, const char *format, va_list arguments)
    G_GNUC_PRINTF(2, 0);

// One byte of a sequence that is put together byte by byte; the text is valid again after its last.
inline GString *z_utf8_string_append_byte(GString *string, char part)
{
    return g_string_append_c(string, part);
}
