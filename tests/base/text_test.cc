#include <type_traits>

#include <gtest/gtest.h>

#include "common/base/char.h"
#include "common/base/error.h"
#include "common/base/latin1.h"
#include "common/base/utf8.h"

namespace {

static_assert(!std::is_constructible_v<z_utf8_string_ptr, z_latin1_string_ptr &&>);

TEST(TextTest, AssertionsPassTheArgumentOnOrSayWhyNot)
{
    const char *const text = "abc~";
    EXPECT_EQ(z_ascii_assert_in_latin1(text), text);
    EXPECT_STREQ(z_utf8_assert_nonempty_or_free(z_utf8_ptr(g_strdup(text))).get(), text);
    EXPECT_EQ(z_ascii_assert_in_utf8("\u00E9"), nullptr);
    EXPECT_STREQ(z_error_get(), "Non-ascii byte found where not allowed.");
    EXPECT_EQ(z_latin1_assert_nonempty(""), nullptr);
    EXPECT_STREQ(z_error_get(), "Text content is empty.");
    EXPECT_EQ(z_latin1_assert_nonempty_or_free(nullptr), nullptr);
    EXPECT_STREQ(z_error_get(), "Text content does not exist.");
}

TEST(TextTest, ReplacingGoesFromLeftToRight)
{
    EXPECT_STREQ(z_char_strdup_replace<z_utf8_ptr>("aaa b", "aa", "<aa>").get(), "<aa>a b");
    EXPECT_STREQ(z_char_strdup_replace_and_free(z_latin1_ptr(g_strdup("x\xE9x")), "x", "").get(), "\xE9");
    EXPECT_STREQ(z_utf8_cat("a", nullptr, "", "b").get(), "ab");
}

TEST(TextTest, SuffixesIgnoreTheCaseOfAsciiLettersAndWhiteSpaceIsUnicodes)
{
    EXPECT_TRUE(z_utf8_has_suffix_case_insensitive_ascii("x.TEMPLATE", ".template"));
    EXPECT_FALSE(z_utf8_has_suffix_case_insensitive_ascii("template", ".template"));
    EXPECT_FALSE(z_utf8_has_suffix_case_insensitive_ascii("\u00C9", "\u00E9"));
    EXPECT_TRUE(z_utf8_is_all_whitespace(" \t\r\n\f\u00A0\u2003\u2028"));
    EXPECT_FALSE(z_utf8_is_all_whitespace("\u00A0x\u00A0"));
}

TEST(TextTest, GrowableTextsTakeTextsBytesAndFormats)
{
    z_utf8_string_ptr string = z_utf8_string_new("a");
    z_utf8_string_append_byte(z_utf8_string_append_byte(string.get(), '\xC3'), '\xA9');
    z_utf8_string_append_printf(z_utf8_string_append(string.get(), " = "), "%s%d", "n", 7);
    EXPECT_STREQ(z_utf8_string_free(std::move(string)).get(), "a\u00E9 = n7");
}

} // namespace
