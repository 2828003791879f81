#include "common/base/strip.h"

#include <string>

#include <gtest/gtest.h>

namespace {

enum class Encoding { any, latin1, utf8 };

const struct {
    Encoding encoding;
    const char *text;
    const char *detabified;
    const char *spacified;
    const char *compact;
} cases[] = {
    {Encoding::any, "", "", "", ""},
    {Encoding::any, " \t\n ", "", "", ""},
    {Encoding::any, "  a\tb \n c  ", "a b \n c", "a b   c", "a b c"},
    {Encoding::any, "a\n\nb\n", "a\n\nb", "a  b", "a b"},
    {Encoding::any, "\f\r\na", "a", "a", "a"},
    {Encoding::any, "a", "a", "a", "a"},
    {Encoding::latin1, "\va\v\vb\v", "a  b", "a  b", "a b"},
    {Encoding::latin1, "\xA0\xE9 \x85", "\xA0\xE9 \x85", "\xA0\xE9 \x85", "\xA0\xE9 \x85"},
    {Encoding::utf8, "\va\v", "\va\v", "\va\v", "\va\v"},
    {Encoding::utf8, "\u00A0\u20AC\u2003\n\u00A0\u00E9\u2028", "\u20AC \n \u00E9", "\u20AC   \u00E9",
     "\u20AC \u00E9"},
};

using InOriginal = char *(char *);

// The result, after checking that it stands in the text itself, at its first character that stays.
std::string strip(InOriginal *function, const char *text)
{
    std::string buffer(text);
    const char *const result = function(buffer.data());
    EXPECT_GE(result, buffer.data());
    EXPECT_LE(result, buffer.data() + buffer.size());
    return result;
}

TEST(StripTest, EveryRuleInLatin1)
{
    for (const auto &c : cases) {
        if (c.encoding == Encoding::utf8)
            continue;
        EXPECT_EQ(strip(z_strip_surrounding_and_detabify_within_original_for_latin1, c.text), c.detabified);
        EXPECT_EQ(strip(z_strip_surrounding_and_spacify_within_original_for_latin1, c.text), c.spacified);
        EXPECT_EQ(strip(z_strip_surrounding_and_spacify_compactly_within_original_for_latin1, c.text),
                  c.compact);
        EXPECT_EQ(strip(z_strip_surrounding_and_spacify_compactly_within_original_for_ascii, c.text),
                  c.compact);
        EXPECT_STREQ(z_strip_surrounding_and_detabify_in_new_for_latin1(c.text).get(), c.detabified);
        EXPECT_STREQ(z_strip_surrounding_and_spacify_in_new_for_latin1(c.text).get(), c.spacified);
        EXPECT_STREQ(z_strip_surrounding_and_spacify_compactly_in_new_for_latin1(c.text).get(), c.compact);
    }
}

TEST(StripTest, EveryRuleInUtf8)
{
    for (const auto &c : cases) {
        if (c.encoding == Encoding::latin1)
            continue;
        EXPECT_EQ(strip(z_strip_surrounding_and_detabify_within_original_for_utf8, c.text), c.detabified);
        EXPECT_EQ(strip(z_strip_surrounding_and_spacify_within_original_for_utf8, c.text), c.spacified);
        EXPECT_EQ(strip(z_strip_surrounding_and_spacify_compactly_within_original_for_utf8, c.text),
                  c.compact);
        EXPECT_STREQ(z_strip_surrounding_and_detabify_in_new_for_utf8(c.text).get(), c.detabified);
        EXPECT_STREQ(z_strip_surrounding_and_spacify_in_new_for_utf8(c.text).get(), c.spacified);
        EXPECT_STREQ(z_strip_surrounding_and_spacify_compactly_in_new_for_utf8(c.text).get(), c.compact);
    }
}

TEST(StripTest, AnEmptyResultIsTheTerminatorOfTheArgument)
{
    char text[] = " \n ";
    EXPECT_EQ(z_strip_surrounding_and_spacify_within_original_for_utf8(text), text + 3);
}

} // namespace
