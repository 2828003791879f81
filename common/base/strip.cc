#include "common/base/strip.h"

#include <cstddef>

#include "common/base/char.h"

enum class strip_rule { detabify, spacify, spacify_compactly };

struct latin1_encoding {
    using owner = z_latin1_ptr;

    static size_t get_length(const char *)
    {
        return 1;
    }
    static bool is_space(const char *character)
    {
        return z_char_is_space(*character);
    }
};

struct utf8_encoding {
    using owner = z_utf8_ptr;

    static size_t get_length(const char *character)
    {
        return static_cast<size_t>(g_utf8_next_char(character) - character);
    }
    static bool is_space(const char *character)
    {
        return g_unichar_isspace(g_utf8_get_char(character));
    }
};

template <typename Encoding>
static const char *skip_space(const char *text)
{
    while (*text != '\0' && Encoding::is_space(text))
        text += Encoding::get_length(text);
    return text;
}

// One pass: `in` reads, `out` writes at or before it. `end` stands behind the last character that is no white
// space, where the text will end.
template <typename Encoding, strip_rule rule>
static char *strip_in_place(char *text)
{
    char *const start = text + (skip_space<Encoding>(text) - text);
    char *out = start;
    char *end = start;
    for (const char *in = start; *in != '\0';) {
        const size_t length = Encoding::get_length(in);
        if (Encoding::is_space(in)) {
            if (rule != strip_rule::spacify_compactly || out == end)
                *out++ = rule == strip_rule::detabify && *in == '\n' ? '\n' : ' ';
            in += length;
        } else {
            for (const char *const next = in + length; in < next;)
                *out++ = *in++;
            end = out;
        }
    }
    *end = '\0';
    return start;
}

template <typename Encoding, strip_rule rule>
static typename Encoding::owner strip_in_new(const char *text)
{
    typename Encoding::owner copy(g_strdup(skip_space<Encoding>(text)));
    strip_in_place<Encoding, rule>(copy.get());
    return copy;
}

char *z_strip_surrounding_and_detabify_within_original_for_latin1(char *latin1)
{
    return strip_in_place<latin1_encoding, strip_rule::detabify>(latin1);
}

char *z_strip_surrounding_and_spacify_within_original_for_latin1(char *latin1)
{
    return strip_in_place<latin1_encoding, strip_rule::spacify>(latin1);
}

char *z_strip_surrounding_and_spacify_compactly_within_original_for_latin1(char *latin1)
{
    return strip_in_place<latin1_encoding, strip_rule::spacify_compactly>(latin1);
}

char *z_strip_surrounding_and_spacify_compactly_within_original_for_ascii(char *ascii)
{
    return strip_in_place<latin1_encoding, strip_rule::spacify_compactly>(ascii);
}

char *z_strip_surrounding_and_detabify_within_original_for_utf8(char *utf8)
{
    return strip_in_place<utf8_encoding, strip_rule::detabify>(utf8);
}

char *z_strip_surrounding_and_spacify_within_original_for_utf8(char *utf8)
{
    return strip_in_place<utf8_encoding, strip_rule::spacify>(utf8);
}

char *z_strip_surrounding_and_spacify_compactly_within_original_for_utf8(char *utf8)
{
    return strip_in_place<utf8_encoding, strip_rule::spacify_compactly>(utf8);
}

z_latin1_ptr z_strip_surrounding_and_detabify_in_new_for_latin1(const char *latin1)
{
    return strip_in_new<latin1_encoding, strip_rule::detabify>(latin1);
}

z_latin1_ptr z_strip_surrounding_and_spacify_in_new_for_latin1(const char *latin1)
{
    return strip_in_new<latin1_encoding, strip_rule::spacify>(latin1);
}

z_latin1_ptr z_strip_surrounding_and_spacify_compactly_in_new_for_latin1(const char *latin1)
{
    return strip_in_new<latin1_encoding, strip_rule::spacify_compactly>(latin1);
}

z_utf8_ptr z_strip_surrounding_and_detabify_in_new_for_utf8(const char *utf8)
{
    return strip_in_new<utf8_encoding, strip_rule::detabify>(utf8);
}

z_utf8_ptr z_strip_surrounding_and_spacify_in_new_for_utf8(const char *utf8)
{
    return strip_in_new<utf8_encoding, strip_rule::spacify>(utf8);
}

z_utf8_ptr z_strip_surrounding_and_spacify_compactly_in_new_for_utf8(const char *utf8)
{
    return strip_in_new<utf8_encoding, strip_rule::spacify_compactly>(utf8);
}
