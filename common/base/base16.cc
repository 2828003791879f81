#include "common/base/base16.h"

#include <cstring>

#include "common/base/error.h"

z_utf8_ptr z_util_encode_base16(const uint8_t *data, size_t byte_count)
{
    z_utf8_ptr text(static_cast<char *>(g_malloc(2 * byte_count + 1)));
    for (size_t i = 0; i < byte_count; ++i)
        z_util_encode_base16_byte(text.get() + 2 * i, data[i]);
    text.get()[2 * byte_count] = '\0';
    return text;
}

void z_util_encode_base16_byte(char *digits, uint8_t byte)
{
    digits[0] = z_util_encode_base16_nibble(byte >> 4);
    digits[1] = z_util_encode_base16_nibble(byte & 0x0F);
}

char z_util_encode_base16_nibble(uint8_t nibble)
{
    return "0123456789abcdef"[nibble & 0x0F];
}

z_bytes_ptr z_util_decode_base16(const char *text, size_t *byte_count)
{
    const size_t length = strlen(text);
    if (length % 2 != 0) {
        z_error_set("Illegal base 16 string length.");
        return nullptr;
    }
    z_bytes_ptr data(static_cast<guint8 *>(g_malloc(length / 2 + 1)));
    for (size_t i = 0; i < length / 2; ++i) {
        if (!z_util_decode_base16_byte(&data.get()[i], text + 2 * i)) {
            z_error_set("Illegal base 16 character.");
            return nullptr;
        }
    }
    if (byte_count != nullptr)
        *byte_count = length / 2;
    return data;
}

bool z_util_decode_base16_byte(uint8_t *byte, const char *digits)
{
    uint8_t high = 0;
    uint8_t low = 0;
    if (!z_util_decode_base16_nibble(&high, digits[0]) || !z_util_decode_base16_nibble(&low, digits[1]))
        return false;
    *byte = static_cast<uint8_t>(high << 4 | low);
    return true;
}

bool z_util_decode_base16_nibble(uint8_t *nibble, char digit)
{
    if (digit >= '0' && digit <= '9')
        *nibble = static_cast<uint8_t>(digit - '0');
    else if (digit >= 'a' && digit <= 'f')
        *nibble = static_cast<uint8_t>(digit - 'a' + 10);
    else
        return false;
    return true;
}
