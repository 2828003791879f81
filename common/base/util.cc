#include "common/base/util.h"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "common/base/char.h"
#include "common/base/error.h"
#include "common/base/utf8.h"

static bool fail(const char *message)
{
    z_error_set(message);
    return false;
}

// The conversions of GLib skip a vertical tab too, which is no white space to Unicode. Bytes that are no
// UTF-8 are no white space, and no number either.
static bool begins_with_space(const char *text)
{
    const gunichar first = g_utf8_get_char_validated(text, -1);
    return first == '\v' || (first < 0x80000000U && g_unichar_isspace(first));
}

// Leaves `rest` at the start of the text when no number is there, which the callers word differently.
static bool parse_leading_double(double *value, const char **rest, const char *text)
{
    if (*text == '\0')
        return fail("Empty value.");
    if (begins_with_space(text))
        return fail("Value must not begin with whitespace.");
    char *end = nullptr;
    errno = 0;
    const double number = g_ascii_strtod(text, &end);
    // A value too small for a double has become zero, or nearly so, which is as good as can be.
    if (errno == ERANGE && std::fabs(number) > std::numeric_limits<double>::max())
        return fail("Floating-point value overflow.");
    if (!std::isfinite(number))
        return fail("Floating-point value is not finite.");
    *value = number;
    *rest = end;
    return true;
}

bool z_util_parse_double_with_unit(double *value, const char **rest, const char *text)
{
    double number = 0;
    const char *end = nullptr;
    if (!parse_leading_double(&number, &end, text))
        return false;
    if (end == text)
        return fail("Floating-point parser error.");
    *value = number;
    *rest = end;
    return true;
}

bool z_util_parse_double(double *value, const char *text)
{
    double number = 0;
    const char *end = nullptr;
    if (!parse_leading_double(&number, &end, text))
        return false;
    if (*end != '\0')
        return fail("Invalid floating-point value.");
    *value = number;
    return true;
}

bool z_util_parse_double_in_range(double *value, const char *text, double minimum, double maximum)
{
    double number = 0;
    if (!z_util_parse_double(&number, text))
        return false;
    if (number < minimum)
        return fail("Floating-point value out of valid range (too small).");
    if (number > maximum)
        return fail("Floating-point value out of valid range (too large).");
    *value = number;
    return true;
}

bool z_util_parse_double_for_locale(double *value, const char *text)
{
    const char decimal_character = z_util_get_decimal_character_for_locale();
    if (decimal_character == '.')
        return z_util_parse_double(value, text);
    if (strchr(text, '.') != nullptr)
        return fail("Invalid floating-point value.");
    const z_utf8_ptr copy(g_strdup(text));
    return z_util_parse_double(value, z_char_replace_char(copy.get(), decimal_character, '.'));
}

// One kind of integer: how it is converted, and how its failures read. A minus fails where `negative` says
// so.
struct signed_integer {
    using type = int64_t;
    static constexpr auto convert = g_ascii_strtoll;
    static constexpr char empty[] = "Empty integer value.";
    static constexpr char leading_space[] = "Integer value must not begin with whitespace.";
    static constexpr const char *negative = nullptr;
    static constexpr char parser_error[] = "Integer parser error.";
    static constexpr char overflow[] = "Integer value out of range (overflow or underflow).";
    static constexpr char invalid_characters[] = "Invalid characters in integer value.";
    static constexpr char too_small[] = "Integer value out of valid range (too small).";
    static constexpr char too_large[] = "Integer value out of valid range (too large).";
};

struct unsigned_integer {
    using type = uint64_t;
    static constexpr auto convert = g_ascii_strtoull;
    static constexpr char empty[] = "Empty unsigned integer value.";
    static constexpr char leading_space[] = "Unsigned integer value must not begin with whitespace.";
    static constexpr const char *negative = "Unsigned integer value underflow (is negative).";
    static constexpr char parser_error[] = "Unsigned integer parser error.";
    static constexpr char overflow[] = "Unsigned integer value overflow.";
    static constexpr char invalid_characters[] = "Invalid characters in unsigned integer value.";
    static constexpr char too_small[] = "Unsigned integer value out of valid range (too small).";
    static constexpr char too_large[] = "Unsigned integer value out of valid range (too large).";
};

template <typename Kind>
static bool parse_integer(typename Kind::type *value, const char *text)
{
    if (*text == '\0')
        return fail(Kind::empty);
    if (begins_with_space(text))
        return fail(Kind::leading_space);
    if (Kind::negative != nullptr && *text == '-')
        return fail(Kind::negative);
    char *end = nullptr;
    errno = 0;
    const typename Kind::type number = Kind::convert(text, &end, 10);
    if (errno == ERANGE)
        return fail(Kind::overflow);
    if (errno != 0)
        return fail(Kind::parser_error);
    if (*end != '\0')
        return fail(Kind::invalid_characters);
    *value = number;
    return true;
}

template <typename Kind, typename Integer>
static bool parse_integer_in_range(Integer *value, const char *text, Integer minimum, Integer maximum)
{
    typename Kind::type number = 0;
    if (!parse_integer<Kind>(&number, text))
        return false;
    if (number < minimum)
        return fail(Kind::too_small);
    if (number > maximum)
        return fail(Kind::too_large);
    *value = static_cast<Integer>(number);
    return true;
}

bool z_util_parse_int64(int64_t *value, const char *text)
{
    return parse_integer<signed_integer>(value, text);
}

bool z_util_parse_int64_in_range(int64_t *value, const char *text, int64_t minimum, int64_t maximum)
{
    return parse_integer_in_range<signed_integer>(value, text, minimum, maximum);
}

bool z_util_parse_int(int32_t *value, const char *text)
{
    return z_util_parse_int_in_range(value, text, INT32_MIN, INT32_MAX);
}

bool z_util_parse_int_in_range(int32_t *value, const char *text, int32_t minimum, int32_t maximum)
{
    return parse_integer_in_range<signed_integer>(value, text, minimum, maximum);
}

bool z_util_parse_uint64(uint64_t *value, const char *text)
{
    return parse_integer<unsigned_integer>(value, text);
}

bool z_util_parse_uint64_in_range(uint64_t *value, const char *text, uint64_t minimum, uint64_t maximum)
{
    return parse_integer_in_range<unsigned_integer>(value, text, minimum, maximum);
}

bool z_util_parse_uint(uint32_t *value, const char *text)
{
    return z_util_parse_uint_in_range(value, text, 0, UINT32_MAX);
}

bool z_util_parse_uint_in_range(uint32_t *value, const char *text, uint32_t minimum, uint32_t maximum)
{
    return parse_integer_in_range<unsigned_integer>(value, text, minimum, maximum);
}

z_utf8_ptr z_util_format_double(double value)
{
    char buffer[G_ASCII_DTOSTR_BUF_SIZE];
    for (const char *format : {"%.15g", "%.16g", "%.17g"}) {
        g_ascii_formatd(buffer, sizeof(buffer), format, value);
        if (g_ascii_strtod(buffer, nullptr) == value)
            break;
    }
    return z_utf8_ptr(g_strdup(buffer));
}

z_utf8_ptr z_util_format_double_for_locale(double value)
{
    z_utf8_ptr text = z_util_format_double(value);
    z_char_replace_char(text.get(), '.', z_util_get_decimal_character_for_locale());
    return text;
}

z_utf8_ptr z_util_format_double_with_unit(double value, const char *unit)
{
    return z_utf8_cat(z_util_format_double(value).get(), unit);
}

char z_util_get_decimal_character_for_locale()
{
    static const char decimal_character = [] {
        char buffer[16];
        std::snprintf(buffer, sizeof(buffer), "%f", 1.2);
        return strchr(buffer, ',') != nullptr ? ',' : '.';
    }();
    return decimal_character;
}

z_utf8_ptr z_util_get_pixels_string(int width_px, int height_px)
{
    return z_utf8_ptr(g_strdup_printf("%d x %d pixels", width_px, height_px));
}

z_utf8_ptr z_util_get_memory_string(uint64_t byte_count)
{
    const bool is_small = byte_count < 1024 * 1024;
    const uint64_t unit = is_small ? 1024 : 1024 * 1024;
    // Half a tenth more makes cutting off the second decimal a rounding.
    const uint64_t remainder = byte_count % unit + unit / 20;
    const uint64_t whole = byte_count / unit + remainder / unit;
    const uint64_t tenth = remainder % unit * 10 / unit;
    return z_utf8_ptr(g_strdup_printf("%" G_GUINT64_FORMAT ".%" G_GUINT64_FORMAT " %s", whole, tenth,
                                      is_small ? "KB" : "MB"));
}
