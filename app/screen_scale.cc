#include "app/screen_scale.h"

#include <algorithm>
#include <cstdlib>

#include "app/desktop_system.h"
#include "common/workspace/platform.h"

static constexpr int small_screen_max_px = 1299;
static constexpr int double_scale_min_dpi = 144;
static constexpr int double_scale_max_dpi = 191;

const char *z_screen_scale_choose(const z_screen &screen)
{
    const auto &[size, dpi] = screen;
    if (size && std::min(std::abs(size->width_px), std::abs(size->height_px)) <= small_screen_max_px)
        return "1";
    if (dpi && *dpi >= double_scale_min_dpi && *dpi <= double_scale_max_dpi)
        return "2";
    return nullptr;
}

void z_screen_scale_set()
{
    z_screen screen;
    if (z_desktop.measure_screen(screen))
        z_platform_set_own_environment_value("GDK_SCALE", z_screen_scale_choose(screen));
}
