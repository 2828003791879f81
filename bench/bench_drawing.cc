// How much less a form costs to draw than laying out and showing every text each time, and how little of the
// cost of a scroll step depends on what is not on the screen. A ratio is ours to the yardstick, which stands
// behind it.

#include <cstdio>
#include <cstdlib>

#include "bench/measure.h"
#include "bench/sample_form.h"
#include "common/base/error.h"
#include "common/gui/resources.h"

static double time_first_draw(bench_form *form)
{
    std::vector<double> times;
    for (int run = 0; run < 3; ++run) {
        form->forget_sizes();
        times.push_back(bench_seconds([form] { form->draw(0); }));
    }
    return bench_median(times);
}

int main()
{
    if (!z_resources_open() || !z_resources_load_shared_images()) {
        std::fprintf(stderr, "%s\n", z_error_get());
        return EXIT_FAILURE;
    }
    bench_form small(1000);
    bench_form middle(10000);
    bench_form large(100000);

    const double plain = middle.time_plain_draw();
    const double first = time_first_draw(&middle);
    const double small_plain = small.time_plain_draw();
    const double small_first = time_first_draw(&small);
    const double small_step = small.time_scroll_step();
    const double middle_step = middle.time_scroll_step();
    const double large_step = large.time_scroll_step();

    const auto print = [](const char *name, double ours, double yardstick, double bound) {
        return bench_print(name, {ours / yardstick, ours * 1e3, yardstick * 1e3}, bound, "ms");
    };
    // At least 300 times faster.
    bool success = print("draw-scroll-step-10000", middle_step, plain, 1.0 / 300.0);
    success &= print("draw-scroll-step-100000-to-1000", large_step, small_step, 10.0);
    success &= print("draw-first-10000", first, plain, 0.75);
    success &= print("draw-first-1000", small_first, small_plain, 0.75);
    return success ? EXIT_SUCCESS : EXIT_FAILURE;
}
