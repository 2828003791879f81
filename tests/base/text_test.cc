#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "common/base/char.h"
#include "common/base/error.h"
#include "common/base/latin1.h"
#include "common/base/utf16.h"
#include "common/base/utf8.h"

namespace {

static_assert(!std::is_constructible_v<z_utf8_string_ptr, z_latin1_string_ptr &&>);

TEST(TextTest, AssertionsPassTheArgumentOnOrSayWhyNot)
{
    const char *const text = "abc~";
    EXPECT_EQ(z_ascii_assert_in_latin1(text), text);
    EXPECT_EQ(z_latin1_assert_nonempty(text), text);
    EXPECT_STREQ(z_utf8_assert_nonempty_or_free(z_utf8_ptr(g_strdup(text))).get(), text);

    const auto expect_failure = [](bool passed, const char *message) {
        EXPECT_FALSE(passed);
        EXPECT_STREQ(z_error_get(), message);
        z_error_clear();
    };
    expect_failure(z_ascii_assert_in_utf8("\u00E9"), "Non-ascii byte found where not allowed.");
    expect_failure(z_ascii_assert_in_latin1("a\x80"), "Non-ascii byte found where not allowed.");
    expect_failure(z_utf8_assert_nonempty(nullptr), "Text content does not exist.");
    expect_failure(z_latin1_assert_nonempty(""), "Text content is empty.");
    expect_failure(bool(z_utf8_assert_nonempty_or_free(z_utf8_ptr(g_strdup("")))), "Text content is empty.");
    expect_failure(bool(z_latin1_assert_nonempty_or_free(nullptr)), "Text content does not exist.");
}

TEST(TextTest, ReplacingGoesFromLeftToRight)
{
    char path[] = "a\\b\\";
    EXPECT_STREQ(z_char_replace_char(path, '\\', '/'), "a/b/");
    EXPECT_STREQ(z_char_strdup_replace<z_utf8_ptr>("aaa b", "aa", "<aa>").get(), "<aa>a b");
    EXPECT_STREQ(z_char_strdup_replace<z_latin1_ptr>("", "x", "y").get(), "");
    EXPECT_STREQ(z_char_strdup_replace_and_free(z_latin1_ptr(g_strdup("x\xE9x")), "x", "").get(), "\xE9");
    EXPECT_STREQ(z_utf8_cat("a", nullptr, "", "b").get(), "ab");
}

TEST(TextTest, SuffixesIgnoreTheCaseOfAsciiLettersAndWhiteSpaceIsUnicodes)
{
    EXPECT_TRUE(z_utf8_has_suffix_case_insensitive_ascii("x.TEMPLATE", ".template"));
    EXPECT_TRUE(z_utf8_has_suffix_case_insensitive_ascii("x", ""));
    EXPECT_FALSE(z_utf8_has_suffix_case_insensitive_ascii("template", ".template"));
    EXPECT_FALSE(z_utf8_has_suffix_case_insensitive_ascii("x.templates", ".template"));
    EXPECT_FALSE(z_utf8_has_suffix_case_insensitive_ascii("\u00C9", "\u00E9"));
    EXPECT_TRUE(z_utf8_is_all_whitespace(" \t\r\n\f\u00A0\u2003\u2028"));
    for (const char *text : {" \v", "\u00A0x\u00A0"})
        EXPECT_FALSE(z_utf8_is_all_whitespace(text));
}

TEST(TextTest, GrowableTextsTakeTextsBytesAndFormats)
{
    z_utf8_string_ptr string = z_utf8_string_new("a");
    z_utf8_string_append_byte(z_utf8_string_append_byte(string.get(), '\xC3'), '\xA9');
    z_utf8_string_append_printf(z_utf8_string_append(string.get(), " = "), "%s%d", "n", 7);
    EXPECT_STREQ(z_utf8_string_free(std::move(string)).get(), "a\u00E9 = n7");

    z_latin1_string_ptr latin1 = z_latin1_string_new("\xE9");
    z_latin1_string_append(z_latin1_string_append_printf(latin1.get(), "%c", '\xA7'), "!");
    EXPECT_STREQ(z_latin1_string_free(std::move(latin1)).get(), "\xE9\xA7!");
}

TEST(TextTest, Utf16PlaceholdersBecomeTerminators)
{
    const gunichar2 source[] = {'a', 0x7F, 'b', 0x7F, 0};
    gunichar2 copy[5] = {1, 1, 1, 1, 1};
    EXPECT_EQ(z_utf16_strlen(source), 4u);
    EXPECT_EQ(z_utf16_strcpy(copy, source), copy);
    EXPECT_EQ(z_utf16_replace_code_unit(copy, 0x7F, 0), copy);
    EXPECT_EQ(std::u16string(copy, copy + 5), std::u16string(u"a\0b\0\0", 5));
}

} // namespace
