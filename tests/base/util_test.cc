#include "common/base/util.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "common/base/base16.h"
#include "common/base/error.h"

namespace {

// The value and "", or -77 and the reason.
template <typename Value, typename Parser>
void expect_parsed(Parser parser, const char *text, Value expected, const char *message)
{
    Value value = static_cast<Value>(-77);
    z_error_clear();
    EXPECT_EQ(parser(&value, text), *message == '\0') << text;
    EXPECT_EQ(value, *message == '\0' ? expected : static_cast<Value>(-77)) << text;
    EXPECT_STREQ(z_error_get(), message) << text;
    z_error_clear();
}

TEST(NumberTest, FloatingPointTextsInAnyLocale)
{
    for (const char *text : {"12.5", "+12.5", "1.25e1", "0xC.8"})
        expect_parsed(z_util_parse_double, text, 12.5, "");
    expect_parsed(z_util_parse_double, "", 0.0, "Empty value.");
    expect_parsed(z_util_parse_double, "\u00A01", 0.0, "Value must not begin with whitespace.");
    expect_parsed(z_util_parse_double, "-1e999cm", 0.0, "Floating-point value overflow.");
    expect_parsed(z_util_parse_double, "nan", 0.0, "Floating-point value is not finite.");
    for (const char *text : {"12.5cm", "1,5", "1 ", "\xA0"})
        expect_parsed(z_util_parse_double, text, 0.0, "Invalid floating-point value.");

    double value = 0;
    const char *rest = nullptr;
    EXPECT_TRUE(z_util_parse_double_with_unit(&value, &rest, "12.5cm"));
    EXPECT_EQ(value, 12.5);
    EXPECT_STREQ(rest, "cm");
}

TEST(NumberTest, RangesIncludeTheirLimits)
{
    const auto doubles = [](double *value, const char *text) {
        return z_util_parse_double_in_range(value, text, 1, 4);
    };
    expect_parsed(doubles, "4", 4.0, "");
    expect_parsed(doubles, "0.99", 0.0, "Floating-point value out of valid range (too small).");
    expect_parsed(doubles, "4.01", 0.0, "Floating-point value out of valid range (too large).");

    const auto ints = [](int32_t *value, const char *text) {
        return z_util_parse_int_in_range(value, text, -1, 4);
    };
    expect_parsed(ints, "-2", 0, "Integer value out of valid range (too small).");
    expect_parsed(ints, "4294967297", 0, "Integer value out of valid range (too large).");
}

TEST(NumberTest, Integers)
{
    const auto parse = z_util_parse_int64;
    expect_parsed(parse, "9223372036854775807", INT64_MAX, "");
    expect_parsed(parse, "-9223372036854775808", INT64_MIN, "");
    expect_parsed(parse, "+007", int64_t{7}, "");
    for (const char *text : {"9223372036854775808", "-9223372036854775809"})
        expect_parsed(parse, text, int64_t{0}, "Integer value out of range (overflow or underflow).");
    expect_parsed(parse, "", int64_t{0}, "Empty integer value.");
    expect_parsed(parse, "\n5", int64_t{0}, "Integer value must not begin with whitespace.");
    for (const char *text : {"-", "+-5", "1.0", "0x10", "5 "})
        expect_parsed(parse, text, int64_t{0}, "Invalid characters in integer value.");

    const auto parse_unsigned = z_util_parse_uint64;
    expect_parsed(parse_unsigned, "18446744073709551615", UINT64_MAX, "");
    expect_parsed(parse_unsigned, "18446744073709551616", uint64_t{0}, "Unsigned integer value overflow.");
    expect_parsed(parse_unsigned, "-1", uint64_t{0}, "Unsigned integer value underflow (is negative).");
    expect_parsed(parse_unsigned, "12a", uint64_t{0}, "Invalid characters in unsigned integer value.");
}

TEST(NumberTest, FormattingIsShortAndReadsBackTheSame)
{
    EXPECT_STREQ(z_util_format_double_with_unit(0.1, "cm").get(), "0.1cm");
    EXPECT_STREQ(z_util_format_double(100000).get(), "100000");
    EXPECT_STREQ(z_util_format_double(1e22).get(), "1e+22");
    for (const double value : {1.0 / 3, 0.1 + 0.2, std::numeric_limits<double>::max()})
        expect_parsed(z_util_parse_double, z_util_format_double(value).get(), value, "");
}

// Holds in the locale that the tests run under, whichever that is.
TEST(NumberTest, UsersSeeTheirDecimalCharacter)
{
    char localised[16];
    std::snprintf(localised, sizeof(localised), "%.1f", 1.5);
    const bool comma = std::string(localised) == "1,5";
    const char *const refused = "Invalid floating-point value.";
    EXPECT_STREQ(z_util_format_double_for_locale(-0.25).get(), comma ? "-0,25" : "-0.25");
    expect_parsed(z_util_parse_double_for_locale, "1,5", 1.5, comma ? "" : refused);
    expect_parsed(z_util_parse_double_for_locale, "1.5", 1.5, comma ? refused : "");
}

TEST(NumberTest, SizesForDisplay)
{
    EXPECT_STREQ(z_util_get_memory_string(1048575).get(), "1024.0 KB");
    EXPECT_STREQ(z_util_get_memory_string(1048576).get(), "1.0 MB");
    EXPECT_STREQ(z_util_get_pixels_string(640, 480).get(), "640 x 480 pixels");
}

TEST(NumberTest, Base16)
{
    const uint8_t data[] = {0x00, 0x0A, 0xF9, 0xFF};
    EXPECT_STREQ(z_util_encode_base16(data, 4).get(), "000af9ff");
    const z_bytes_ptr decoded = z_util_decode_base16("000af9ff", nullptr);
    EXPECT_EQ(memcmp(decoded.get(), data, 4), 0);
    for (const char *text : {"abc", "0A", "0:", "/0"})
        EXPECT_EQ(z_util_decode_base16(text, nullptr), nullptr) << text;
}

} // namespace
