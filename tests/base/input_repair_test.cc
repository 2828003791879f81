#include "common/base/input_repair.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "common/base/error.h"

namespace {

struct repair_case {
    const char *given;
    const char *single;  // null: refused altogether
    const char *several; // the same
};

std::string repair(const char *given, z_input_lines lines)
{
    const z_utf8_ptr repaired = z_input_repair(given, strlen(given), lines);
    return repaired ? repaired.get() : "(refused)";
}

TEST(InputRepair, EachClassOfCharacter)
{
    const repair_case cases[] = {
        {"", "", ""},
        {"  a  b ", "  a  b ", "  a  b "},
        {"Dörr ÿ¡", "Dörr ÿ¡", "Dörr ÿ¡"},
        {"a\tb", "a b", "a b"},
        {"a\nb\n\nc", "a b  c", "a\nb\n\nc"},
        {"a\r\nb\fc", "a  b c", "a \nb c"},
        {"a\u00a0b\u2003\u2028\u3000", "a b   ", "a b   "},
        {"a\u200bb\ufeff", "ab", "ab"},
        {"a\x01\x0b\x1f\x7f", "a\x7f", "a\x7f"},
        {"a\u0080\u0085\u009f", "a\u0080\u0085\u009f", "a\u0080\u0085\u009f"},
        {"\u0100Ω€дא日😀z", "z", "z"},
        {"“quoted”", "quoted", "quoted"},
        {"cut \xc3", nullptr, nullptr},
        {"lat\xef\x6en1", nullptr, nullptr},
        {"\xed\xa0\x80", nullptr, nullptr},
    };
    for (const repair_case &c : cases) {
        EXPECT_EQ(repair(c.given, z_input_lines::single), c.single ? c.single : "(refused)") << c.given;
        EXPECT_EQ(repair(c.given, z_input_lines::several), c.several ? c.several : "(refused)") << c.given;
        const bool stays = c.single != nullptr && strcmp(c.given, c.single) == 0;
        EXPECT_EQ(z_input_needs_repair(c.given, strlen(c.given), z_input_lines::single), !stays) << c.given;
        const bool stays_in_lines = c.several != nullptr && strcmp(c.given, c.several) == 0;
        EXPECT_EQ(z_input_needs_repair(c.given, strlen(c.given), z_input_lines::several), !stays_in_lines);
    }
}

TEST(InputRepair, TheByteCountDecidesWhereTheTextEnds)
{
    EXPECT_FALSE(z_input_needs_repair("ab\t", 2, z_input_lines::single));
    EXPECT_STREQ(z_input_repair("a\tb", 2, z_input_lines::single).get(), "a ");
    EXPECT_TRUE(z_input_needs_repair("a\0b", 3, z_input_lines::single));
    EXPECT_EQ(z_input_repair("a\0b", 3, z_input_lines::single), nullptr);
}

TEST(InputRepair, TheModelGetsLatin1OrAReason)
{
    EXPECT_STREQ(z_input_repair_to_latin1("D\u00f6rr\u00a0\u20ac", z_input_lines::single).get(), "D\xf6rr ");
    EXPECT_EQ(z_input_repair_to_latin1("\xff", z_input_lines::single), nullptr);
    EXPECT_STREQ(z_error_get(), "Character incompatible with ISO-8859-1 found where not allowed.");
    z_error_clear();
}

} // namespace
