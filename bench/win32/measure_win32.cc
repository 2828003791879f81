#include "bench/measure.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include <windows.h>

#include <psapi.h>

const double bench_bound_factor = 1.5;

double bench_get_time()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

static size_t get_used_bytes()
{
    PROCESS_MEMORY_COUNTERS counters{};
    return GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters) ? counters.PagefileUsage : 0;
}

// A process cannot be split in two here, so the work is done in a thread of its own while this one watches
// what it takes.
bool bench_run_apart(const std::function<bool()> &work, double *peak_mb)
{
    const size_t start_bytes = get_used_bytes();
    size_t peak_bytes = start_bytes;
    bool success = false;
    std::atomic<bool> is_done = false;
    std::jthread worker([&] {
        success = work();
        is_done = true;
    });
    while (!is_done) {
        peak_bytes = std::max(peak_bytes, get_used_bytes());
        Sleep(1);
    }
    worker.join();
    if (peak_mb != nullptr)
        *peak_mb = static_cast<double>(peak_bytes - start_bytes) / (1024 * 1024);
    return success;
}
