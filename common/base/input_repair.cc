#include "common/base/input_repair.h"

#include <algorithm>
#include <cstring>

#include "common/base/convert.h"

enum class verdict { kept, spaced, dropped };

// Needs: `character` is the start of a character in valid UTF-8.
static verdict judge_character(const char *character, z_input_lines lines)
{
    const gunichar code_point = g_utf8_get_char(character);
    if (code_point == ' ' || (code_point == '\n' && lines == z_input_lines::several))
        return verdict::kept;
    if (g_unichar_isspace(code_point))
        return verdict::spaced;
    if (code_point < ' ' || !z_convert_test_utf8_char_for_latin1(character))
        return verdict::dropped;
    return verdict::kept;
}

static bool is_valid_utf8(const char *utf8, size_t byte_count)
{
    return g_utf8_validate_len(utf8, byte_count, nullptr) != FALSE;
}

bool z_input_needs_repair(const char *utf8, size_t byte_count, z_input_lines lines)
{
    if (!is_valid_utf8(utf8, byte_count))
        return true;
    for (const char *character = utf8; character < utf8 + byte_count;
         character = g_utf8_next_char(character)) {
        if (judge_character(character, lines) != verdict::kept)
            return true;
    }
    return false;
}

z_utf8_ptr z_input_repair(const char *utf8, size_t byte_count, z_input_lines lines)
{
    if (!is_valid_utf8(utf8, byte_count))
        return nullptr;
    // Nothing grows: a character is copied, becomes one byte or none.
    z_utf8_ptr repaired(static_cast<char *>(g_malloc(byte_count + 1)));
    char *end = repaired.get();
    const char *next = nullptr;
    for (const char *character = utf8; character < utf8 + byte_count; character = next) {
        next = g_utf8_next_char(character);
        switch (judge_character(character, lines)) {
        case verdict::kept:
            end = std::copy(character, next, end);
            break;
        case verdict::spaced:
            *end++ = ' ';
            break;
        case verdict::dropped:
            break;
        }
    }
    *end = '\0';
    return repaired;
}

z_latin1_ptr z_input_repair_to_latin1(const char *utf8, z_input_lines lines)
{
    z_utf8_ptr repaired = z_input_repair(utf8, strlen(utf8), lines);
    return repaired ? z_convert_utf8_to_latin1_and_free(std::move(repaired)) : z_convert_utf8_to_latin1(utf8);
}
