#include "common/base/list.h"

#include <string>

#include <gtest/gtest.h>

namespace {

struct item : z_link {
    item(char item_name, int *counter) : name(item_name), deleted_count(counter) {}
    ~item()
    {
        ++*deleted_count;
    }
    char name;
    int *deleted_count;
};

struct ListTest : testing::Test {
    int deleted_count = 0;
    z_list<item> list;

    item *add(char name)
    {
        return list.add_last(std::make_unique<item>(name, &deleted_count));
    }
    std::string names() const
    {
        std::string names;
        for (item *each : list)
            names += each->name;
        return names;
    }
    std::string names_backwards() const
    {
        std::string names;
        for (item *each = list.get_last(); each != nullptr; each = z_link_get_previous(each))
            names += each->name;
        return names;
    }
};

TEST_F(ListTest, AnEmptyListHasNoEnds)
{
    EXPECT_TRUE(list.is_empty());
    EXPECT_EQ(list.get_first(), nullptr);
    EXPECT_EQ(list.get_last(), nullptr);
    EXPECT_EQ(names(), "");
}

TEST_F(ListTest, MovingStopsAtTheEdges)
{
    item *a = add('a');
    EXPECT_FALSE(z_link_move_up(a));
    EXPECT_FALSE(z_link_move_down(a));
    item *b = add('b');
    item *c = add('c');
    EXPECT_FALSE(z_link_move_up(a));
    EXPECT_FALSE(z_link_move_down(c));
    EXPECT_EQ(names(), "abc");
    EXPECT_TRUE(z_link_move_up(c));
    EXPECT_EQ(names(), "acb");
    EXPECT_TRUE(z_link_move_down(a));
    EXPECT_EQ(names(), "cab");
    EXPECT_EQ(names_backwards(), "bac");
    EXPECT_EQ(z_link_get_index(c), 0);
    EXPECT_EQ(z_link_get_index(b), 2);
}

TEST_F(ListTest, InsertsBesideAReference)
{
    item *b = add('b');
    z_link_insert_before(new item('a', &deleted_count), b);
    z_link_insert_after(new item('c', &deleted_count), b);
    EXPECT_EQ(names(), "abc");
    EXPECT_EQ(names_backwards(), "cba");
}

TEST_F(ListTest, RemovingKeepsTheItemAndJoinsItsNeighbours)
{
    add('a');
    item *b = add('b');
    add('c');
    z_link_remove(b);
    const std::unique_ptr<item> kept(b);
    EXPECT_FALSE(z_link_is_linked(b));
    z_link_remove(b);
    EXPECT_EQ(names(), "ac");
    EXPECT_EQ(names_backwards(), "ca");
    EXPECT_EQ(deleted_count, 0);
}

TEST_F(ListTest, OwnsWhatItHolds)
{
    {
        z_list<item> other;
        other.add_first(std::make_unique<item>('z', &deleted_count));
        add('a');
        other.take_all_from(list);
        EXPECT_TRUE(list.is_empty());
        EXPECT_EQ(z_link_get_index(other.get_last()), 1);
        EXPECT_EQ(deleted_count, 0);
    }
    EXPECT_EQ(deleted_count, 2);
}

} // namespace
