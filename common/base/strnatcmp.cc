#include "common/base/strnatcmp.h"

#include <cstring>

#include "common/base/char.h"

enum class letters { exact, folded };
enum class zeros { counted, skipped };

static int get_order(int a, int b)
{
    return (a > b) - (a < b);
}

// Compares two numbers that begin with a zero, or of which one does, from the left. `length` is set to that
// of both when they are equal.
static int compare_fractions(const char *a, const char *b, int *length)
{
    int i = 0;
    for (; z_char_is_digit(a[i]) && z_char_is_digit(b[i]); ++i) {
        if (a[i] != b[i])
            return get_order(a[i], b[i]);
    }
    *length = i;
    return get_order(z_char_is_digit(a[i]), z_char_is_digit(b[i]));
}

// The same for numbers without leading zeros: the longer is the larger, else the first difference decides.
static int compare_integers(const char *a, const char *b, int *length)
{
    int bias = 0;
    int i = 0;
    for (; z_char_is_digit(a[i]) && z_char_is_digit(b[i]); ++i) {
        if (bias == 0)
            bias = get_order(a[i], b[i]);
    }
    *length = i;
    const int by_length = get_order(z_char_is_digit(a[i]), z_char_is_digit(b[i]));
    return by_length != 0 ? by_length : bias;
}

static const char *skip_insignificant(const char *text, zeros zero_rule)
{
    while (z_char_is_space(*text) || (zero_rule == zeros::skipped && *text == '0'))
        ++text;
    return text;
}

static int strnatcmp0(const char *a, const char *b, letters letter_rule, zeros zero_rule)
{
    for (;;) {
        a = skip_insignificant(a, zero_rule);
        b = skip_insignificant(b, zero_rule);
        if (z_char_is_digit(*a) && z_char_is_digit(*b)) {
            int length = 0;
            const int order =
                *a == '0' || *b == '0' ? compare_fractions(a, b, &length) : compare_integers(a, b, &length);
            if (order != 0)
                return order;
            // Equal numbers are the same digits: no need to compare what is left of them digit after digit.
            a += length;
            b += length;
            continue;
        }
        if (*a == '\0' && *b == '\0')
            return 0;
        const char char_a = letter_rule == letters::folded ? z_char_to_upper(*a) : *a;
        const char char_b = letter_rule == letters::folded ? z_char_to_upper(*b) : *b;
        if (char_a != char_b)
            return get_order(static_cast<signed char>(char_a), static_cast<signed char>(char_b));
        ++a;
        ++b;
    }
}

int strnatcmp(const char *a, const char *b)
{
    return strnatcmp0(a, b, letters::exact, zeros::counted);
}

int strnatcasecmp(const char *a, const char *b)
{
    return strnatcmp0(a, b, letters::folded, zeros::counted);
}

int strnatzerocmp(const char *a, const char *b)
{
    return strnatcmp0(a, b, letters::exact, zeros::skipped);
}

int strnatzerocasecmp(const char *a, const char *b)
{
    return strnatcmp0(a, b, letters::folded, zeros::skipped);
}

int strnatcmp_cascade(const char *a, const char *b)
{
    for (const auto compare : {strnatzerocasecmp, strnatcasecmp, strnatzerocmp, strnatcmp}) {
        const int order = compare(a, b);
        if (order != 0)
            return order;
    }
    return get_order(strcmp(a, b), 0);
}
