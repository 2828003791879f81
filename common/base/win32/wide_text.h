#pragma once

// Texts on their way to the system's wide-character calls and back. What is no text fails with the message of
// its conversion.

#include <cwchar>

#include "common/base/convert.h"

// The same text as the system's calls want it.
[[nodiscard]] inline wchar_t *z_win32_get_wide(const z_utf16_ptr &text)
{
    return reinterpret_cast<wchar_t *>(text.get());
}

[[nodiscard]] inline z_utf8_ptr z_win32_wide_to_utf8(const wchar_t *text)
{
    return z_convert_utf16_to_utf8(reinterpret_cast<const gunichar2 *>(text));
}
