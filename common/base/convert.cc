#include "common/base/convert.h"

#include <cstdint>
#include <cstring>

#include "common/base/base16.h"
#include "common/base/error.h"

static z_utf8_ptr allocate_utf8(size_t byte_count)
{
    return z_utf8_ptr(static_cast<char *>(g_malloc(byte_count)));
}

static z_latin1_ptr allocate_latin1(size_t byte_count)
{
    return z_latin1_ptr(static_cast<char *>(g_malloc(byte_count)));
}

// Copies the leading ASCII bytes, eight at a time as far as that goes, and returns how many they were. Each
// eight are read before they are written, so the destination may be the source or lie before it.
static size_t copy_ascii_words(char *destination, const char *source, size_t byte_count)
{
    size_t copied = 0;
    for (; copied + sizeof(uint64_t) <= byte_count; copied += sizeof(uint64_t)) {
        uint64_t word;
        memcpy(&word, source + copied, sizeof(word));
        if ((word & 0x8080808080808080U) != 0)
            break;
        memcpy(destination + copied, &word, sizeof(word));
    }
    return copied;
}

// Decodes the two bytes of a character from U+0080 to U+00FF, the only ones beyond ASCII that fit.
static bool decode_two_bytes(char *latin1, const char *utf8)
{
    const auto lead = static_cast<uint8_t>(utf8[0]);
    if (lead != 0xC2 && lead != 0xC3)
        return false;
    const auto continuation = static_cast<uint8_t>(utf8[1]);
    if ((continuation & 0xC0) != 0x80)
        return false;
    *latin1 = static_cast<char>((lead & 0x03) << 6 | (continuation & 0x3F));
    return true;
}

static bool is_ascii(char c)
{
    return static_cast<uint8_t>(c) < 0x80;
}

static bool convert_utf8_to_latin1(const char *utf8, size_t byte_count, char *latin1)
{
    const char *const end = utf8 + byte_count;
    while (utf8 < end) {
        const size_t copied = copy_ascii_words(latin1, utf8, static_cast<size_t>(end - utf8));
        utf8 += copied;
        latin1 += copied;
        // Fewer than eight single bytes are left before the next character beyond ASCII, or before the end.
        while (utf8 < end && is_ascii(*utf8))
            *latin1++ = *utf8++;
        for (; utf8 < end && !is_ascii(*utf8); utf8 += 2) {
            if (!decode_two_bytes(latin1++, utf8)) {
                z_error_set("Character incompatible with ISO-8859-1 found where not allowed.");
                return false;
            }
        }
    }
    *latin1 = '\0';
    return true;
}

z_latin1_ptr z_convert_utf8_to_latin1(const char *utf8)
{
    const size_t byte_count = strlen(utf8);
    z_latin1_ptr latin1 = allocate_latin1(byte_count + 1);
    return convert_utf8_to_latin1(utf8, byte_count, latin1.get()) ? std::move(latin1) : nullptr;
}

z_latin1_ptr z_convert_utf8_to_latin1_and_free(z_utf8_ptr utf8)
{
    z_latin1_ptr latin1(utf8.release());
    return z_convert_utf8_to_latin1_buf(latin1.get(), latin1.get()) ? std::move(latin1) : nullptr;
}

bool z_convert_utf8_to_latin1_buf(const char *utf8, char *buffer)
{
    return convert_utf8_to_latin1(utf8, strlen(utf8), buffer);
}

bool z_convert_test_utf8_char_for_latin1(const char *utf8)
{
    char latin1;
    return is_ascii(*utf8) || decode_two_bytes(&latin1, utf8);
}

z_utf8_ptr z_convert_latin1_to_utf8(const char *latin1)
{
    z_utf8_ptr utf8 = allocate_utf8(2 * strlen(latin1) + 1);
    z_convert_latin1_to_utf8_buf(latin1, utf8.get());
    return utf8;
}

char *z_convert_latin1_to_utf8_buf(const char *latin1, char *buffer)
{
    char *utf8 = buffer;
    for (; *latin1 != '\0'; ++latin1) {
        if (is_ascii(*latin1)) {
            *utf8++ = *latin1;
        } else {
            const auto byte = static_cast<uint8_t>(*latin1);
            *utf8++ = static_cast<char>(0xC0 | byte >> 6);
            *utf8++ = static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    *utf8 = '\0';
    return buffer;
}

z_utf8_ptr z_convert_utf16_to_utf8(const gunichar2 *utf16)
{
    z_gerror_ptr error;
    z_utf8_ptr utf8(g_utf16_to_utf8(utf16, -1, nullptr, nullptr, z_out(error)));
    if (utf8 == nullptr)
        z_error_set_from_gerror_and_free(std::move(error));
    return utf8;
}

z_utf16_ptr z_convert_utf8_to_utf16(const char *utf8)
{
    z_gerror_ptr error;
    z_utf16_ptr utf16(g_utf8_to_utf16(utf8, -1, nullptr, nullptr, z_out(error)));
    if (utf16 == nullptr)
        z_error_set_from_gerror_and_free(std::move(error));
    return utf16;
}

bool is_latin1_char_fat_safe(char c)
{
    return c != '\0' && (g_ascii_isalnum(c) || strchr(" $%'-_@~!{}()#&+,;=[].", c) != nullptr);
}

z_utf8_ptr z_convert_object_id_to_fat_safe_file_name_format(const char *id_latin1)
{
    if (id_latin1 == nullptr)
        return nullptr;
    z_utf8_ptr name = allocate_utf8(3 * strlen(id_latin1) + 1);
    char *out = name.get();
    for (const char *in = id_latin1; *in != '\0'; ++in) {
        if (is_latin1_char_fat_safe(*in)) {
            *out++ = *in;
        } else {
            *out++ = '`';
            z_util_encode_base16_byte(out, static_cast<uint8_t>(*in));
            out += 2;
        }
    }
    *out = '\0';
    return name;
}

z_latin1_ptr z_convert_fat_safe_file_name_format_to_object_id(const char *text, size_t max_length)
{
    if (text == nullptr)
        return nullptr;
    const char *const end = text + strnlen(text, max_length);
    z_latin1_ptr id = allocate_latin1(static_cast<size_t>(end - text) + 1);
    char *out = id.get();
    while (text < end) {
        if (*text == '`') {
            uint8_t byte = 0;
            // An escaped NUL would cut the identifier short.
            if (end - text < 3 || !z_util_decode_base16_byte(&byte, text + 1) || byte == 0)
                return nullptr;
            *out++ = static_cast<char>(byte);
            text += 3;
        } else {
            if (!is_latin1_char_fat_safe(*text))
                return nullptr;
            *out++ = *text++;
        }
    }
    *out = '\0';
    return id;
}

static bool is_latin1_char_ntfs_safe(char c)
{
    const auto byte = static_cast<uint8_t>(c);
    return is_latin1_char_fat_safe(c) || c == '^' || c == '`' || (byte >= 0xA1 && byte != 0xAD);
}

z_utf8_ptr z_convert_object_id_to_ntfs_safe_file_name_format(const char *id_latin1)
{
    if (id_latin1 == nullptr)
        return nullptr;
    z_latin1_ptr name = allocate_latin1(strlen(id_latin1) + 1);
    char *out = name.get();
    for (const char *in = id_latin1; *in != '\0'; ++in) {
        if (is_latin1_char_ntfs_safe(*in))
            *out++ = *in;
        else if (out == name.get() || out[-1] != '-')
            *out++ = '-';
    }
    *out = '\0';
    return z_convert_latin1_to_utf8(name.get());
}
