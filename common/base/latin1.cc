#include "common/base/latin1.h"

#include "common/base/utf8.h"

// The assertions look at bytes, which say the same in both encodings.

const char *z_ascii_assert_in_latin1(const char *latin1)
{
    return z_ascii_assert_in_utf8(latin1);
}

const char *z_latin1_assert_nonempty(const char *latin1)
{
    return z_utf8_assert_nonempty(latin1);
}

z_latin1_ptr z_latin1_assert_nonempty_or_free(z_latin1_ptr latin1)
{
    return z_latin1_assert_nonempty(latin1.get()) != nullptr ? std::move(latin1) : nullptr;
}

GString *z_latin1_string_append_printf(GString *string, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    z_latin1_string_append_vprintf(string, format, arguments);
    va_end(arguments);
    return string;
}

GString *z_latin1_string_append_vprintf(GString *string, const char *format, va_list arguments)
{
    g_string_append_vprintf(string, format, arguments);
    return string;
}
