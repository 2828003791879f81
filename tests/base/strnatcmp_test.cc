#include "common/base/strnatcmp.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

// How the four comparisons see the two texts, as four of < = >.
std::string compare(const char *a, const char *b)
{
    std::string orders;
    for (const auto function : {strnatcmp, strnatcasecmp, strnatzerocmp, strnatzerocasecmp})
        orders += "<=>"[function(a, b) + 1];
    return orders;
}

TEST(NaturalOrderTest, EachComparisonAndItsReverse)
{
    const struct {
        const char *a, *b, *orders, *reverse;
    } cases[] = {
        {"x 1", " x\v\t1", "====", "===="},
        {"", "a", "<<<<", ">>>>"},
        {"a2", "a10", "<<<<", ">>>>"},
        {"x01", "x010", "<<<<", ">>>>"},
        {"12", "12a", "<<<<", ">>>>"},
        {"a02", "a1", "<<>>", ">><<"},
        {"1.05", "1.5", "<<==", ">>=="},
        {"B", "a", "<><>", "><><"},
        {"A", "a", "<=<=", ">=>="},
        // Bytes beyond ASCII: before everything else, and without letter case in any locale.
        {"a\xE9", "a", "<<<<", ">>>>"},
        {"\xC9", "\xE9", "<<<<", ">>>>"},
        {"\xA0x", "x", "<<<<", ">>>>"},
    };
    for (const auto &[a, b, orders, reverse] : cases) {
        EXPECT_EQ(compare(a, b), orders) << a;
        EXPECT_EQ(compare(b, a), reverse) << a;
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
}

} // namespace
