#include "common/base/char.h"

char *z_char_replace_char(char *text, char from, char to)
{
    for (char *c = text; *c != '\0'; ++c) {
        if (*c == from)
            *c = to;
    }
    return text;
}
