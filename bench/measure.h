#pragma once

// What the benchmarks measure with. Times are compared as ratios within one run, ours and the yardstick in
// turns, so that the machine and its other work count for both.

#include <functional>
#include <vector>

// Seconds, of the processor where the system counts them finely, so that other work on the machine counts less.
double bench_get_time();
double bench_seconds(const std::function<void()> &action);
double bench_median(std::vector<double> values);

struct bench_ratio {
    double ratio;
    double ours;
    double yardstick;
};

// Medians, in milliseconds.
bench_ratio bench_compare_times(int rounds, const std::function<void()> &ours,
                                const std::function<void()> &yardstick);

// How many times as far each bound is away on this system.
extern const double bench_bound_factor;

// "name  ratio  bound". Returns whether the bound holds.
bool bench_print(const char *name, const bench_ratio &ratio, double bound, const char *unit);

// Does the work in a process of its own, so that no benchmark works in the memory that another has left
// scattered. Returns what the work returns, and the most memory that it took beyond what it started with, in
// megabytes.
bool bench_run_apart(const std::function<bool()> &work, double *peak_mb = nullptr);
