#include "common/gui/win32/dialog_thread.h"

#include <atomic>

#include <glib.h>

#include "common/gui/gui_events.h"

static constexpr gulong poll_interval_us = 50'000;

struct dialog_run {
    const std::function<bool()> &dialog;
    GThread *thread = nullptr;
    std::atomic<bool> is_done = false;
    std::atomic<bool> is_accepted = false;
};

static gpointer dialog_thread_proc(gpointer data)
{
    auto *run = static_cast<dialog_run *>(data);
    run->is_accepted = run->dialog();
    run->is_done = true;
    return nullptr;
}

// Without a thread nothing is chosen.
static gboolean start_idle_callback(gpointer data)
{
    auto *run = static_cast<dialog_run *>(data);
    run->thread = g_thread_try_new("dialog", dialog_thread_proc, run, nullptr);
    if (run->thread == nullptr)
        run->is_done = true;
    return G_SOURCE_REMOVE;
}

// The first events let through start the thread, so that it has started, or failed to, is no flag of its own.
bool z_dialog_thread_run(const std::function<bool()> &dialog)
{
    dialog_run run = {dialog};
    g_idle_add(start_idle_callback, &run);
    while (z_util_let_through_gtk_events(), !run.is_done)
        g_usleep(poll_interval_us);
    if (run.thread != nullptr)
        g_thread_join(run.thread);
    return run.is_accepted;
}
