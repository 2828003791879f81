#pragma once

// Ordered lists of elements that carry their own links.
//
//     head <-> first <-> ... <-> last <-> tail
//
// Head and tail are sentinels inside the list record; an empty list is the head followed directly by the
// tail. A sentinel has no link outward, so "first of its list" and "last of its list" are seen from the
// element alone: every operation on an element works without its list, because a menu knows only what was
// clicked.
//
// z_link is the first base of an element. An element is in at most one list; outside a list both links are
// null. A list owns its elements: it deletes them when it ends.

#include <cassert>
#include <cstdint>
#include <memory>
#include <type_traits>

struct z_link {
    z_link *previous = nullptr;
    z_link *next = nullptr;

    z_link() = default;
    z_link(const z_link &) = delete;
    z_link &operator=(const z_link &) = delete;
};

// Grows whenever any list changes. Whoever keeps pointers that were taken from lists compares it to learn
// whether they still hold.
inline uint64_t z_link_change_count = 0;

[[nodiscard]] inline bool z_link_is_linked(const z_link *item)
{
    return item->next != nullptr;
}

[[nodiscard]] inline bool z_link_is_first(const z_link *item)
{
    return item->previous->previous == nullptr;
}

[[nodiscard]] inline bool z_link_is_last(const z_link *item)
{
    return item->next->next == nullptr;
}

inline void z_link_insert_after(z_link *item, z_link *reference)
{
    assert(item->next == nullptr && item->previous == nullptr && reference->next != nullptr);
    item->previous = reference;
    item->next = reference->next;
    reference->next->previous = item;
    reference->next = item;
    ++z_link_change_count;
}

inline void z_link_insert_before(z_link *item, z_link *reference)
{
    assert(reference->previous != nullptr);
    z_link_insert_after(item, reference->previous);
}

// Takes the item out of its list and joins its neighbours. An item outside a list is left alone.
inline void z_link_remove(z_link *item)
{
    if (!z_link_is_linked(item))
        return;
    item->previous->next = item->next;
    item->next->previous = item->previous;
    item->previous = item->next = nullptr;
    ++z_link_change_count;
}

// Swaps the item with the one before it; false for the first item.
inline bool z_link_move_up(z_link *item)
{
    if (z_link_is_first(item))
        return false;
    z_link *reference = item->previous;
    z_link_remove(item);
    z_link_insert_before(item, reference);
    return true;
}

// Swaps the item with the one after it; false for the last item.
inline bool z_link_move_down(z_link *item)
{
    if (z_link_is_last(item))
        return false;
    z_link *reference = item->next;
    z_link_remove(item);
    z_link_insert_after(item, reference);
    return true;
}

// Zero-based position, counted by walking back to the head.
[[nodiscard]] inline int z_link_get_index(const z_link *item)
{
    int index = 0;
    for (const z_link *link = item->previous; link->previous != nullptr; link = link->previous)
        ++index;
    return index;
}

// The neighbours of an element, null at the ends of the list.
template <typename T>
[[nodiscard]] T *z_link_get_next(T *item)
{
    return z_link_is_last(item) ? nullptr : static_cast<T *>(item->next);
}

template <typename T>
[[nodiscard]] T *z_link_get_previous(T *item)
{
    return z_link_is_first(item) ? nullptr : static_cast<T *>(item->previous);
}

template <typename T>
class z_list {
public:
    class iterator {
    public:
        explicit iterator(z_link *start) : link(start) {}
        T *operator*() const
        {
            return static_cast<T *>(link);
        }
        iterator &operator++()
        {
            link = link->next;
            return *this;
        }
        bool operator==(const iterator &) const = default;

    private:
        z_link *link;
    };

    z_list()
    {
        head.next = &tail;
        tail.previous = &head;
    }
    z_list(const z_list &) = delete;
    z_list &operator=(const z_list &) = delete;
    ~z_list()
    {
        destroy_all();
    }

    [[nodiscard]] bool is_empty() const
    {
        return head.next == &tail;
    }
    [[nodiscard]] T *get_first() const
    {
        return is_empty() ? nullptr : static_cast<T *>(head.next);
    }
    [[nodiscard]] T *get_last() const
    {
        return is_empty() ? nullptr : static_cast<T *>(tail.previous);
    }

    // The list takes the item over; the item stays reachable through the returned pointer.
    template <typename Deleter>
    T *add_first(std::unique_ptr<T, Deleter> item)
    {
        z_link_insert_after(item.get(), &head);
        return item.release();
    }
    template <typename Deleter>
    T *add_last(std::unique_ptr<T, Deleter> item)
    {
        z_link_insert_before(item.get(), &tail);
        return item.release();
    }

    // Moves every item of `source` to the end of this list, in order.
    void take_all_from(z_list &source)
    {
        while (T *item = source.get_first()) {
            z_link_remove(item);
            z_link_insert_before(item, &tail);
        }
    }

    void destroy_all()
    {
        while (T *item = get_first()) {
            z_link_remove(item);
            delete item;
        }
    }

    // Iteration gives plain pointers, `for (T *item : list)`. Removing the current item ends the walk's
    // validity.
    [[nodiscard]] iterator begin() const
    {
        return iterator(head.next);
    }
    [[nodiscard]] iterator end() const
    {
        return iterator(tail.previous->next);
    }

private:
    z_link head;
    z_link tail;
};
