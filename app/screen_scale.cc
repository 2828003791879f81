#include "app/screen_scale.h"

#include <algorithm>
#include <cstdlib>

static constexpr int small_screen_max_px = 1299;
static constexpr int double_scale_min_dpi = 144;
static constexpr int double_scale_max_dpi = 191;

const char *z_screen_scale_choose(std::optional<z_screen_size> size, std::optional<int> horizontal_dpi)
{
    if (size && std::min(std::abs(size->width_px), std::abs(size->height_px)) <= small_screen_max_px)
        return "1";
    if (horizontal_dpi && *horizontal_dpi >= double_scale_min_dpi && *horizontal_dpi <= double_scale_max_dpi)
        return "2";
    return nullptr;
}
