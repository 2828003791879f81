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
        const char *orders;
        std::vector<std::string> pairs;
    } cases[] = {
        {"====", {"|", "x 1|x1", " x\v\t|x"}},
        // Bytes beyond ASCII: before everything else, and without letter case in any locale.
        {"<<<<",
         {"|a", "a2|a10", "x01|x010", "12|12a", "93|120", "19|21", "123a|123b", "ABC|abd", "a\xE9|a",
          "a\xE9|ab", "\xC9|\xE9", "\xA0x|x"}},
        {"<<>>", {"a02|a1"}},
        {"<<==", {"a007|a7", "a01|a1", "a|a0", "1.05|1.5"}},
        {"<><>", {"B|a", "[|a"}},
        {"<=<=", {"A|a"}},
    };
    for (const auto &[orders, pairs] : cases) {
        std::string reverse = orders;
        for (char &order : reverse)
            order = order == '=' ? '=' : order == '<' ? '>' : '<';
        for (const std::string &pair : pairs) {
            const std::string a = pair.substr(0, pair.find('|'));
            const std::string b = pair.substr(pair.find('|') + 1);
            EXPECT_EQ(compare(a.c_str(), b.c_str()), orders) << pair;
            EXPECT_EQ(compare(b.c_str(), a.c_str()), reverse) << pair;
        }
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
