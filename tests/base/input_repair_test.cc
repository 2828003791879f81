#include "common/base/input_repair.h"

#include <cstring>

#include <gtest/gtest.h>

#include "common/base/error.h"

namespace {

TEST(InputRepair, EachClassOfCharacter)
{
    const struct {
        const char *given;
        const char *repaired[2]; // in a single line and in several; null where refused altogether
    } cases[] = {
        {"  D\u00f6rr \u00ff ", {"  D\u00f6rr \u00ff ", "  D\u00f6rr \u00ff "}},
        {"a\r\nb\fc", {"a  b c", "a \nb c"}},
        {"a\u00a0b\u2003\u2028\u3000", {"a b   ", "a b   "}},
        {"a\u200bb\ufeff", {"ab", "ab"}},
        {"a\x01\x0b\x1f\x7f", {"a\x7f", "a\x7f"}},
        {"a\u0080\u0085\u009f", {"a\u0080\u0085\u009f", "a\u0080\u0085\u009f"}},
        {"\u0100\u03a9\u20ac\u65e5\U0001f600\u05d0\u200f\u0634z", {"z", "z"}},
        {"lat\xef\x6en1", {nullptr, nullptr}},
    };
    for (const auto &[given, repaired] : cases) {
        for (const z_input_lines lines : {z_input_lines::single, z_input_lines::several}) {
            const char *expected = repaired[lines == z_input_lines::several];
            EXPECT_STREQ(z_input_repair(given, strlen(given), lines).get(), expected) << given;
            EXPECT_EQ(z_input_needs_repair(given, strlen(given), lines), g_strcmp0(given, expected) != 0)
                << given;
        }
    }
}

TEST(InputRepair, TheByteCountDecidesWhereTheTextEnds)
{
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
