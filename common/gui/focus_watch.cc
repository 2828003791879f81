#include "common/gui/focus_watch.h"

#include <algorithm>

static constexpr int priority = 300;
static constexpr guint absence_ms = 500;

static gboolean timeout_callback(gpointer data) noexcept
{
    auto *watch = static_cast<z_focus_watch *>(data);
    watch->timer.forget();
    watch->is_focus_lost = !watch->has_focus(watch->data);
    return G_SOURCE_REMOVE;
}

// The time begins when the toolkit has dealt with everything else, such as opening the window that takes the
// focus.
static gboolean idle_callback(gpointer data) noexcept
{
    auto *watch = static_cast<z_focus_watch *>(data);
    watch->timer.forget();
    watch->timer.reset(g_timeout_add_full(priority, absence_ms, timeout_callback, watch, nullptr));
    return G_SOURCE_REMOVE;
}

void z_focus_watch_note_loss(z_focus_watch *watch)
{
    watch->focus_lost_us = g_get_real_time();
    watch->timer.reset(g_idle_add_full(priority, idle_callback, watch, nullptr));
}

std::optional<int64_t> z_focus_watch_note_gain(z_focus_watch *watch)
{
    if (!std::exchange(watch->is_focus_lost, false))
        return std::nullopt;
    // The clock may have been set back meanwhile.
    const int64_t elapsed_us = std::max<int64_t>(g_get_real_time() - watch->focus_lost_us, 0);
    return elapsed_us / G_USEC_PER_SEC;
}
