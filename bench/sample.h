#pragma once

// Realistic templates of any size for the benchmarks.

#include "common/model/template.h"

// In four languages, with as many rows.
[[nodiscard]] z_template_ptr bench_make_template(int row_count);

// What a row comes to in the file.
inline constexpr int bench_bytes_per_row = 860;
