#include "common/base/strip.h"

#include <string>

#include <gtest/gtest.h>

namespace {

struct Texts {
    const char *text, *detabified, *spacified, *compact;
};

template <typename Owner>
void expect_stripped(char *(*in_original)(char *), Owner (*in_new)(const char *), const char *text,
                     const char *expected)
{
    std::string buffer(text);
    EXPECT_STREQ(in_original(buffer.data()), expected) << text;
    EXPECT_STREQ(in_new(text).get(), expected) << text;
}

TEST(StripTest, EveryRuleForLatin1)
{
    const Texts cases[] = {
        {" \t\n ", "", "", ""},
        {"  a\tb \n c  ", "a b \n c", "a b   c", "a b c"},
        {"\f\r\na\n\nb\v", "a\n\nb", "a  b", "a b"},
        {"\xA0\xE9 \x85", "\xA0\xE9 \x85", "\xA0\xE9 \x85", "\xA0\xE9 \x85"},
    };
    for (const auto &[text, detabified, spacified, compact] : cases) {
        expect_stripped(z_strip_surrounding_and_detabify_within_original_for_latin1,
                        z_strip_surrounding_and_detabify_in_new_for_latin1, text, detabified);
        expect_stripped(z_strip_surrounding_and_spacify_within_original_for_latin1,
                        z_strip_surrounding_and_spacify_in_new_for_latin1, text, spacified);
        expect_stripped(z_strip_surrounding_and_spacify_compactly_within_original_for_latin1,
                        z_strip_surrounding_and_spacify_compactly_in_new_for_latin1, text, compact);
    }
}

TEST(StripTest, EveryRuleForUtf8)
{
    const Texts cases[] = {
        {" \t\n ", "", "", ""},
        {"\va\v", "\va\v", "\va\v", "\va\v"},
        {"\u00A0\u20AC\u2003\n\u00A0\u00E9\u2028", "\u20AC \n \u00E9", "\u20AC   \u00E9", "\u20AC \u00E9"},
    };
    for (const auto &[text, detabified, spacified, compact] : cases) {
        expect_stripped(z_strip_surrounding_and_detabify_within_original_for_utf8,
                        z_strip_surrounding_and_detabify_in_new_for_utf8, text, detabified);
        expect_stripped(z_strip_surrounding_and_spacify_within_original_for_utf8,
                        z_strip_surrounding_and_spacify_in_new_for_utf8, text, spacified);
        expect_stripped(z_strip_surrounding_and_spacify_compactly_within_original_for_utf8,
                        z_strip_surrounding_and_spacify_compactly_in_new_for_utf8, text, compact);
    }
}

} // namespace
