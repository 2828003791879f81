#include "common/base/strnatcmp.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

TEST(NaturalOrderTest, EachComparisonAndItsReverse)
{
    const struct {
        const char *a;
        const char *b;
        int exact;
        int folded;
        int zero;
        int zero_folded;
    } cases[] = {
        {"", "", 0, 0, 0, 0},
        {"", "a", -1, -1, -1, -1},
        {"a2", "a10", -1, -1, -1, -1},
        {"file2", "file10", -1, -1, -1, -1},
        {"a02", "a1", -1, -1, 1, 1},
        {"a007", "a7", -1, -1, 0, 0},
        {"a1", "a01", 1, 1, 0, 0},
        {"a0", "a", 1, 1, 0, 0},
        {"1.05", "1.5", -1, -1, 0, 0},
        {"x01", "x010", -1, -1, -1, -1},
        {"x 1", "x1", 0, 0, 0, 0},
        {" x\v\t", "x", 0, 0, 0, 0},
        {"12", "12a", -1, -1, -1, -1},
        {"93", "120", -1, -1, -1, -1},
        {"123b", "123a", 1, 1, 1, 1},
        {"ABC", "abd", -1, -1, -1, -1},
        {"B", "a", -1, 1, -1, 1},
        {"a", "A", 1, 0, 1, 0},
        {"[", "a", -1, 1, -1, 1},
        // Bytes beyond ASCII: before everything else, and without letter case in any locale.
        {"a\xE9", "a", -1, -1, -1, -1},
        {"a\xE9", "ab", -1, -1, -1, -1},
        {"\xC9", "\xE9", -1, -1, -1, -1},
        {"\xA0x", "x", -1, -1, -1, -1},
    };
    for (const auto &c : cases) {
        const auto pair = std::string(c.a) + " with " + c.b;
        EXPECT_EQ(strnatcmp(c.a, c.b), c.exact) << pair;
        EXPECT_EQ(strnatcasecmp(c.a, c.b), c.folded) << pair;
        EXPECT_EQ(strnatzerocmp(c.a, c.b), c.zero) << pair;
        EXPECT_EQ(strnatzerocasecmp(c.a, c.b), c.zero_folded) << pair;
        EXPECT_EQ(strnatcmp(c.b, c.a), -c.exact) << pair;
        EXPECT_EQ(strnatzerocasecmp(c.b, c.a), -c.zero_folded) << pair;
    }
}

TEST(NaturalOrderTest, TheCascadeOrdersAllTextsThatDiffer)
{
    const std::vector<std::string> sorted = {"", "2", "9", "10", "a02", "A2", "A10", "a 10", "a10", "b"};
    std::vector<std::string> names = sorted;
    const auto less = [](const std::string &a, const std::string &b) {
        return strnatcmp_cascade(a.c_str(), b.c_str()) < 0;
    };
    std::reverse(names.begin(), names.end());
    std::sort(names.begin(), names.end(), less);
    EXPECT_EQ(names, sorted);
    EXPECT_EQ(strnatcmp_cascade("a 1", "a 1"), 0);
}

} // namespace
