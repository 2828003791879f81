#include "common/base/utf8.h"

#include <cstring>

#include "common/base/error.h"

const char *z_ascii_assert_in_utf8(const char *utf8)
{
    for (const char *c = utf8; *c != '\0'; ++c) {
        if (static_cast<unsigned char>(*c) >= 0x80) {
            z_error_set("Non-ascii byte found where not allowed.");
            return nullptr;
        }
    }
    return utf8;
}

const char *z_utf8_assert_nonempty(const char *utf8)
{
    if (utf8 == nullptr) {
        z_error_set("Text content does not exist.");
        return nullptr;
    }
    if (*utf8 == '\0') {
        z_error_set("Text content is empty.");
        return nullptr;
    }
    return utf8;
}

z_utf8_ptr z_utf8_assert_nonempty_or_free(z_utf8_ptr utf8)
{
    return z_utf8_assert_nonempty(utf8.get()) != nullptr ? std::move(utf8) : nullptr;
}

z_utf8_ptr z_utf8_cat_(const char *const *texts, size_t count)
{
    z_utf8_string_ptr result = z_utf8_string_new("");
    for (size_t i = 0; i < count; ++i) {
        if (texts[i] != nullptr)
            z_utf8_string_append(result.get(), texts[i]);
    }
    return z_utf8_string_free(std::move(result));
}

bool z_utf8_has_suffix_case_insensitive_ascii(const char *utf8, const char *suffix)
{
    const size_t length = strlen(utf8);
    const size_t suffix_length = strlen(suffix);
    return suffix_length <= length && g_ascii_strcasecmp(utf8 + length - suffix_length, suffix) == 0;
}

bool z_utf8_is_all_whitespace(const char *utf8)
{
    while (*utf8 != '\0' && g_unichar_isspace(g_utf8_get_char(utf8)))
        utf8 = g_utf8_next_char(utf8);
    return *utf8 == '\0';
}

GString *z_utf8_string_append_printf(GString *string, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    z_utf8_string_append_vprintf(string, format, arguments);
    va_end(arguments);
    return string;
}

GString *z_utf8_string_append_vprintf(GString *string, const char *format, va_list arguments)
{
    g_string_append_vprintf(string, format, arguments);
    return string;
}
