#pragma once

// Latin-1 texts (ISO 8859-1, one byte per character): assertions, arrays and growable texts. Latin-1 and
// UTF-8 are told apart by names and owners only, so that call sites say what they hold.

#include <cstdarg>

#include "common/base/handles.h"

// The argument when it passes, else null, with the reason in z_error.
[[nodiscard]] const char *z_ascii_assert_in_latin1(const char *latin1);
[[nodiscard]] const char *z_latin1_assert_nonempty(const char *latin1);
[[nodiscard]] z_latin1_ptr z_latin1_assert_nonempty_or_free(z_latin1_ptr latin1);

// An owned, NULL-terminated array of Latin-1 texts.
inline void z_latin1_strfreev(char **texts)
{
    g_strfreev(texts);
}
using z_latin1_strv_ptr = z_ptr<char *, z_latin1_strfreev>;

// A growable Latin-1 text: GLib's string builder under names that tell the encoding. The handle frees the
// builder and its text; the free function ends the builder and hands its text out. Appending returns the
// string.
struct z_latin1_string_deleter {
    void operator()(GString *string) const noexcept
    {
        g_string_free(string, TRUE);
    }
};
using z_latin1_string_ptr = std::unique_ptr<GString, z_latin1_string_deleter>;

[[nodiscard]] inline z_latin1_string_ptr z_latin1_string_new(const char *initial_latin1)
{
    return z_latin1_string_ptr(g_string_new(initial_latin1));
}

[[nodiscard]] inline z_latin1_ptr z_latin1_string_free(z_latin1_string_ptr string)
{
    return z_latin1_ptr(g_string_free(string.release(), FALSE));
}

inline GString *z_latin1_string_append(GString *string, const char *latin1)
{
    return g_string_append(string, latin1);
}

GString *z_latin1_string_append_printf(GString *string, const char *format, ...) G_GNUC_PRINTF(2, 3);
GString *z_latin1_string_append_vprintf(GString *string, const char *format, va_list arguments)
    G_GNUC_PRINTF(2, 0);
