#include "common/base/utf16.h"

#include <cstring>

size_t z_utf16_strlen(const gunichar2 *utf16)
{
    size_t length = 0;
    while (utf16[length] != 0)
        ++length;
    return length;
}

gunichar2 *z_utf16_strcpy(gunichar2 *destination, const gunichar2 *source)
{
    memcpy(destination, source, (z_utf16_strlen(source) + 1) * sizeof(*source));
    return destination;
}

gunichar2 *z_utf16_replace_code_unit(gunichar2 *utf16, gunichar2 from, gunichar2 to)
{
    for (gunichar2 *unit = utf16; *unit != 0; ++unit) {
        if (*unit == from)
            *unit = to;
    }
    return utf16;
}
