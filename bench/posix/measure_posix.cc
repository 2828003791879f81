#include "bench/measure.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

const double bench_bound_factor = 1;

double bench_get_time()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

static bool run(const std::function<bool()> &work, double &peak_mb)
{
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const bool success = work();
        std::fflush(stdout);
        _exit(success ? 0 : 1);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) ||
        WEXITSTATUS(status) > 1)
        std::exit(2);
    peak_mb = static_cast<double>(usage.ru_maxrss) / 1024;
    return WEXITSTATUS(status) == 0;
}

bool bench_run_apart(const std::function<bool()> &work, double *peak_mb)
{
    double start_mb = 0;
    double end_mb = 0;
    run([] { return true; }, start_mb);
    const bool success = run(work, end_mb);
    if (peak_mb != nullptr)
        *peak_mb = end_mb - start_mb;
    return success;
}
