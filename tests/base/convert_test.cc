#include "common/base/convert.h"

#include <string>

#include <gtest/gtest.h>

#include "common/base/error.h"

namespace {

TEST(ConvertTest, Latin1AndUtf8AgreeOnEveryCharacterAtEveryOffset)
{
    for (unsigned code = 1; code <= 0xFF; ++code) {
        for (size_t offset = 0; offset < 18; ++offset) {
            const std::string latin1 = std::string(offset, 'x') + static_cast<char>(code) + "yz\xE9\xFF";
            const z_utf8_ptr utf8 = z_convert_latin1_to_utf8(latin1.c_str());
            ASSERT_TRUE(g_utf8_validate(utf8.get(), -1, nullptr));
            ASSERT_EQ(g_utf8_get_char(utf8.get() + offset), code);
            ASSERT_STREQ(z_convert_utf8_to_latin1(utf8.get()).get(), latin1.c_str());
            ASSERT_TRUE(z_convert_test_utf8_char_for_latin1(utf8.get() + offset));
        }
    }
}

TEST(ConvertTest, ATextIsConvertedInItsOwnMemory)
{
    char text[] = "\xC3\xA9t\xC3\xA9 and more than eight bytes \xC3\xA9";
    EXPECT_TRUE(z_convert_utf8_to_latin1_buf(text, text));
    EXPECT_STREQ(text, "\xE9t\xE9 and more than eight bytes \xE9");

    z_utf8_ptr owned(g_strdup("\xC2\xA7 1"));
    const char *const memory = owned.get();
    const z_latin1_ptr latin1 = z_convert_utf8_to_latin1_and_free(std::move(owned));
    EXPECT_EQ(latin1.get(), memory);
    EXPECT_STREQ(latin1.get(), "\xA7 1");
}

TEST(ConvertTest, WhatLatin1LacksIsRefused)
{
    // Beyond U+00FF, overlong, cut off behind whole words, Latin-1 taken for UTF-8.
    for (const char *text : {"\xC4\x80", "\xC0\xAF", "long enough \xC3", "\xE9t\xE9"}) {
        z_error_clear();
        EXPECT_EQ(z_convert_utf8_to_latin1(text), nullptr) << text;
        EXPECT_STREQ(z_error_get(), "Character incompatible with ISO-8859-1 found where not allowed.");
    }
    EXPECT_FALSE(z_convert_test_utf8_char_for_latin1("\xE2\x82\xAC"));
}

TEST(ConvertTest, Utf16GoesThereAndBack)
{
    const z_utf16_ptr utf16 = z_convert_utf8_to_utf16("\xC3\xA9\xF0\x9F\x98\x80");
    EXPECT_EQ(std::u16string(utf16.get(), utf16.get() + 4), std::u16string(u"\u00E9\xD83D\xDE00\0", 4));
    EXPECT_STREQ(z_convert_utf16_to_utf8(utf16.get()).get(), "\xC3\xA9\xF0\x9F\x98\x80");
    const gunichar2 lone_surrogate[] = {'a', 0xDC00, 0};
    EXPECT_EQ(z_convert_utf16_to_utf8(lone_surrogate), nullptr);
    EXPECT_EQ(z_convert_utf8_to_utf16("\xFF"), nullptr);
}

TEST(ConvertTest, FatSafeNamesAreReversibleAndReadStrictly)
{
    EXPECT_STREQ(z_convert_object_id_to_fat_safe_file_name_format("a/b\xE9`Z 1").get(), "a`2fb`e9`60Z 1");
    const auto read = [](const char *text) {
        return z_convert_fat_safe_file_name_format_to_object_id(text, SIZE_MAX);
    };
    EXPECT_STREQ(read("a`2fb`e9`60Z 1").get(), "a/b\xE9`Z 1");
    for (const char *text : {"ab`2", "`2F", "a`00b", "a/b", "\xE9"})
        EXPECT_EQ(read(text), nullptr) << text;
    EXPECT_STREQ(z_convert_fat_safe_file_name_format_to_object_id("ab`2f", 2).get(), "ab");
    EXPECT_EQ(z_convert_fat_safe_file_name_format_to_object_id("ab`2f", 4), nullptr);
}

TEST(ConvertTest, NtfsSafeNamesAreReadable)
{
    const auto convert = z_convert_object_id_to_ntfs_safe_file_name_format;
    EXPECT_STREQ(convert("a<>b-?c::").get(), "a-b-c-");
    EXPECT_STREQ(convert("a:-b--").get(), "a--b--");
    EXPECT_STREQ(convert("^`\xAD\xA0\xE9\x01\xA1").get(), "^`-\xC3\xA9-\xC2\xA1");
}

} // namespace
