#pragma once

// Bytes as lower-case hexadecimal digits, high nibble first. Upper-case digits are not accepted.

#include <cstddef>
#include <cstdint>

#include "common/base/handles.h"

[[nodiscard]] z_utf8_ptr z_util_encode_base16(const uint8_t *data, size_t byte_count);
// Writes two digits and no NUL.
void z_util_encode_base16_byte(char *digits, uint8_t byte);
[[nodiscard]] char z_util_encode_base16_nibble(uint8_t nibble);

// Null on failure, with the reason in z_error; an empty text gives an array without bytes, which is not null.
// `byte_count` may be null.
[[nodiscard]] z_bytes_ptr z_util_decode_base16(const char *text, size_t *byte_count);

// The steps of decoding: false for anything but the lower-case digits, without a message and with `byte` or
// `nibble` as it was. Two digits are read up to the first that is wrong, so a NUL is never passed.
[[nodiscard]] bool z_util_decode_base16_byte(uint8_t *byte, const char *digits);
[[nodiscard]] bool z_util_decode_base16_nibble(uint8_t *nibble, char digit);
