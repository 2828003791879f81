#include "tests/support/known_warnings.h"

#include <algorithm>
#include <cstring>
#include <iterator>

// Of Wine, which is not Windows in everything.
static const char *const known_warnings[] = {
    "Failed to get device node property",                                 // of a monitor that no driver knows
    "pango_font_description_get_family: assertion 'desc != NULL' failed", // for fonts that it does not list
    "Setting selection property with 0x0000000000000000 == NULL",         // of a clipboard that changes hands
    "Unsupported generic selection NONE",                                 // the same
};

bool is_known_warning(const char *message)
{
    return std::any_of(std::begin(known_warnings), std::end(known_warnings),
                       [message](const char *text) { return std::strstr(message, text) != nullptr; });
}
