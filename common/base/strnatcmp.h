#pragma once

// Natural order: numbers inside texts compare by value, so "file2" comes before "file10". White space does
// not count, and bytes beyond ASCII come before ASCII. Results are -1, 0 and +1, and independent of the
// locale.
//
// A number that begins with a zero compares digit by digit like a decimal fraction ("02" before "1"); the
// `zero` forms skip zeros like white space instead. The `case` forms take a to z for A to Z.

[[nodiscard]] int strnatcmp(const char *a, const char *b);
[[nodiscard]] int strnatcasecmp(const char *a, const char *b);
[[nodiscard]] int strnatzerocmp(const char *a, const char *b);
[[nodiscard]] int strnatzerocasecmp(const char *a, const char *b);

// The four of them, the most forgiving first, each deciding where the one before sees no difference, and
// the bytes last: 0 only for equal texts. This is the order of every list of names.
[[nodiscard]] int strnatcmp_cascade(const char *a, const char *b);
