#include "bench/measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

static double measure_ms(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double bench_seconds(const std::function<void()> &action)
{
    const double start = bench_get_time();
    action();
    return bench_get_time() - start;
}

double bench_median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

bench_ratio bench_compare_times(int rounds, const std::function<void()> &ours,
                                const std::function<void()> &yardstick)
{
    ours(); // Both once unmeasured, for the caches.
    yardstick();
    std::vector<double> our_times;
    std::vector<double> yardstick_times;
    for (int round = 0; round < rounds; ++round) {
        our_times.push_back(measure_ms(ours));
        yardstick_times.push_back(measure_ms(yardstick));
    }
    const double our_time = bench_median(our_times);
    const double yardstick_time = bench_median(yardstick_times);
    return {our_time / yardstick_time, our_time, yardstick_time};
}

bool bench_print(const char *name, const bench_ratio &ratio, double bound, const char *unit)
{
    bound *= bench_bound_factor;
    const bool holds = ratio.ratio <= bound;
    std::printf("%-34s %8.4f  bound %8.4f  %s  (%.3f against %.3f %s)\n", name, ratio.ratio, bound,
                holds ? "ok  " : "OVER", ratio.ours, ratio.yardstick, unit);
    return holds;
}
