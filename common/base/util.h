#pragma once

// Numbers as texts. Whatever comes from files, settings or users is read by the strict parsers here, and what
// goes into files is written with a full stop whatever the locale.
//
// A parser takes the whole text or nothing. On failure it returns false, leaves `value` alone and sets
// z_error to the reason. Leading white space is refused (the vertical tab included), ranges include both
// limits, and integers are decimal.

#include <cstdint>

#include "common/base/handles.h"

// `rest` becomes what follows the number, and points into `text`.
[[nodiscard]] bool z_util_parse_double_with_unit(double *value, const char **rest, const char *text);
[[nodiscard]] bool z_util_parse_double(double *value, const char *text);
[[nodiscard]] bool z_util_parse_double_in_range(double *value, const char *text, double minimum,
                                                double maximum);
// For what a user types, with the user's decimal character and no other.
[[nodiscard]] bool z_util_parse_double_for_locale(double *value, const char *text);

[[nodiscard]] bool z_util_parse_int64(int64_t *value, const char *text);
[[nodiscard]] bool z_util_parse_int64_in_range(int64_t *value, const char *text, int64_t minimum,
                                               int64_t maximum);
[[nodiscard]] bool z_util_parse_int(int32_t *value, const char *text);
[[nodiscard]] bool z_util_parse_int_in_range(int32_t *value, const char *text, int32_t minimum,
                                             int32_t maximum);

[[nodiscard]] bool z_util_parse_uint64(uint64_t *value, const char *text);
[[nodiscard]] bool z_util_parse_uint64_in_range(uint64_t *value, const char *text, uint64_t minimum,
                                                uint64_t maximum);
[[nodiscard]] bool z_util_parse_uint(uint32_t *value, const char *text);
[[nodiscard]] bool z_util_parse_uint_in_range(uint32_t *value, const char *text, uint32_t minimum,
                                              uint32_t maximum);

// The shortest text that reads back as the same value: 0.1, 100000, 1e+22.
[[nodiscard]] z_utf8_ptr z_util_format_double(double value);
[[nodiscard]] z_utf8_ptr z_util_format_double_for_locale(double value);
// No space stands before the unit.
[[nodiscard]] z_utf8_ptr z_util_format_double_with_unit(double value, const char *unit);

// A comma or a full stop, asked of the locale once per process: set the locale before the first number.
[[nodiscard]] char z_util_get_decimal_character_for_locale();

// For display: "640 x 480 pixels", and sizes as "1.5 KB" below a binary megabyte, from there as "1.5 MB".
[[nodiscard]] z_utf8_ptr z_util_get_pixels_string(int width_px, int height_px);
[[nodiscard]] z_utf8_ptr z_util_get_memory_string(uint64_t byte_count);
