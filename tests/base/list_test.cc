#include "common/base/list.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gtest/gtest.h>

namespace {

struct item : z_link {};

void expect_same(const z_list<item> &list, const std::vector<item *> &expected)
{
    ASSERT_EQ(list.is_empty(), expected.empty());
    ASSERT_EQ(list.get_first(), expected.empty() ? nullptr : expected.front());
    ASSERT_EQ(list.get_last(), expected.empty() ? nullptr : expected.back());
    size_t index = 0;
    for (item *each : list) {
        ASSERT_LT(index, expected.size());
        ASSERT_EQ(each, expected[index]);
        ASSERT_EQ(z_link_get_index(each), static_cast<int>(index));
        ASSERT_EQ(z_link_get_previous(each), index > 0 ? expected[index - 1] : nullptr);
        ++index;
        ASSERT_EQ(z_link_get_next(each), index < expected.size() ? expected[index] : nullptr);
    }
    ASSERT_EQ(index, expected.size());
}

TEST(ListTest, OwnsAndOrdersItsItemsAsAnArrayWould)
{
    std::mt19937 random(1);
    z_list<item> list;
    std::vector<item *> expected;
    for (int step = 0; step < 400 && !HasFailure(); ++step) {
        SCOPED_TRACE(step);
        const auto at = expected.begin() + static_cast<int>(random() % std::max(expected.size(), size_t{1}));
        item *reference = expected.empty() ? nullptr : *at;
        const bool is_first = reference == list.get_first();
        const bool is_last = reference == list.get_last();
        switch (random() % (reference == nullptr ? 2 : 8)) {
        case 0:
            expected.insert(expected.begin(), list.add_first(std::make_unique<item>()));
            break;
        case 1:
            expected.push_back(list.add_last(std::make_unique<item>()));
            break;
        case 2:
            z_link_insert_before(*expected.insert(at, new item), reference);
            break;
        case 3:
            z_link_insert_after(*expected.insert(at + 1, new item), reference);
            break;
        case 4:
            EXPECT_EQ(z_link_move_up(reference), !is_first);
            if (!is_first)
                std::swap(at[-1], at[0]);
            break;
        case 5:
            EXPECT_EQ(z_link_move_down(reference), !is_last);
            if (!is_last)
                std::swap(at[0], at[1]);
            break;
        default:
            z_link_remove(reference);
            EXPECT_FALSE(z_link_is_linked(reference));
            z_link_remove(reference);
            delete reference;
            expected.erase(at);
        }
        expect_same(list, expected);
    }
    z_list<item> other;
    expected.insert(expected.begin(), other.add_first(std::make_unique<item>()));
    other.take_all_from(list);
    expect_same(other, expected);
    expect_same(list, {});
}

} // namespace
