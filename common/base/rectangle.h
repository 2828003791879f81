#pragma once

// Rectangles of whole pixels.

#include <cstdint>

struct z_rectangle {
    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;
};

// Whether the point lies inside. The right and bottom edges are outside, so neighbours never share a point.
[[nodiscard]] inline bool z_rectangle_test(const z_rectangle *rect, int32_t x, int32_t y)
{
    return x >= rect->x && y >= rect->y && int64_t{x} < int64_t{rect->x} + rect->width &&
           int64_t{y} < int64_t{rect->y} + rect->height;
}

inline void z_rectangle_set_empty(z_rectangle *rect)
{
    *rect = z_rectangle{};
}

inline void z_rectangle_copy(z_rectangle *destination, const z_rectangle *source)
{
    *destination = *source;
}
