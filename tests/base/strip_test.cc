#include "common/base/strip.h"

#include <string>

#include <gtest/gtest.h>

namespace {

enum class Encoding { any, latin1, utf8 };

const struct {
    Encoding encoding;
    const char *text, *detabified, *spacified, *compact;
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

template <typename Owner>
void expect_stripped(char *(*in_original)(char *), Owner (*in_new)(const char *), const char *text,
                     const char *expected)
{
    std::string buffer(text);
    EXPECT_STREQ(in_original(buffer.data()), expected) << text;
    EXPECT_STREQ(in_new(text).get(), expected) << text;
}

TEST(StripTest, EveryRule)
{
    for (const auto &c : cases) {
        if (c.encoding != Encoding::utf8) {
            expect_stripped(z_strip_surrounding_and_detabify_within_original_for_latin1,
                            z_strip_surrounding_and_detabify_in_new_for_latin1, c.text, c.detabified);
            expect_stripped(z_strip_surrounding_and_spacify_within_original_for_latin1,
                            z_strip_surrounding_and_spacify_in_new_for_latin1, c.text, c.spacified);
            expect_stripped(z_strip_surrounding_and_spacify_compactly_within_original_for_latin1,
                            z_strip_surrounding_and_spacify_compactly_in_new_for_latin1, c.text, c.compact);
        }
        if (c.encoding != Encoding::latin1) {
            expect_stripped(z_strip_surrounding_and_detabify_within_original_for_utf8,
                            z_strip_surrounding_and_detabify_in_new_for_utf8, c.text, c.detabified);
            expect_stripped(z_strip_surrounding_and_spacify_within_original_for_utf8,
                            z_strip_surrounding_and_spacify_in_new_for_utf8, c.text, c.spacified);
            expect_stripped(z_strip_surrounding_and_spacify_compactly_within_original_for_utf8,
                            z_strip_surrounding_and_spacify_compactly_in_new_for_utf8, c.text, c.compact);
        }
    }
}

TEST(StripTest, TheResultStandsInTheArgument)
{
    char text[] = " \n ";
    EXPECT_EQ(z_strip_surrounding_and_spacify_within_original_for_utf8(text), text + 3);
    char ascii[] = "\v\va\t b ";
    EXPECT_EQ(z_strip_surrounding_and_spacify_compactly_within_original_for_ascii(ascii), ascii + 2);
    EXPECT_STREQ(ascii + 2, "a b");
}

} // namespace
