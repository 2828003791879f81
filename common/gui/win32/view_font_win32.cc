#include "common/gui/view_font_system.h"

#include <string>

#include "common/gui/win32/font_calls.h"

#include "common/base/win32/wide_text.h"

using device_ptr = z_ptr<HDC__, DeleteDC>;
using font_ptr = z_ptr<HFONT__, DeleteObject>;

// For this process only, and in no list of fonts.
static constexpr DWORD registration_flags = FR_PRIVATE | FR_NOT_ENUM;

z_font_calls z_font = {
    .add_resource = AddFontResourceExW,
    .remove_resource = RemoveFontResourceExW,
    .create_face = cairo_win32_font_face_create_for_logfontw,
};

// The registration lasts as long as the face, whoever uses that last.
static void unregister(void *data)
{
    const z_utf16_ptr path(static_cast<gunichar2 *>(data));
    z_font.remove_resource(z_win32_get_wide(path), registration_flags, nullptr);
}

static bool make_logical_font(const char *full_name, LOGFONTW &font)
{
    const z_utf16_ptr name = z_convert_utf8_to_utf16(full_name);
    if (name == nullptr || std::wcslen(z_win32_get_wide(name)) >= LF_FACESIZE)
        return false;
    font = {};
    font.lfHeight = 15;
    font.lfWeight = FW_NORMAL;
    font.lfQuality = ANTIALIASED_QUALITY;
    std::wcscpy(font.lfFaceName, z_win32_get_wide(name));
    return true;
}

// The system puts another font in the place of one that it does not have, without a word. What it calls the
// face name is the font's full name, and what it calls the full name is its maker's.
static bool is_available(const LOGFONTW &font)
{
    const device_ptr device(CreateCompatibleDC(nullptr));
    const font_ptr selected(CreateFontIndirectW(&font));
    if (device == nullptr || selected == nullptr)
        return false;
    const HGDIOBJ old = SelectObject(device.get(), selected.get());
    const UINT size = GetOutlineTextMetricsW(device.get(), 0, nullptr);
    std::string bytes(size, '\0');
    auto *metrics = reinterpret_cast<OUTLINETEXTMETRICW *>(bytes.data());
    const bool is_known = size != 0 && GetOutlineTextMetricsW(device.get(), size, metrics) != 0;
    SelectObject(device.get(), old);
    if (!is_known)
        return false;
    const size_t name_offset = reinterpret_cast<size_t>(metrics->otmpFaceName);
    return std::wcscmp(reinterpret_cast<const wchar_t *>(bytes.data() + name_offset), font.lfFaceName) == 0;
}

z_font_face_ptr z_view_font_create_face(const char *path, const char *full_name)
{
    static const cairo_user_data_key_t registration = {};
    LOGFONTW font;
    z_utf16_ptr wide_path = z_convert_utf8_to_utf16(path);
    if (wide_path == nullptr || !make_logical_font(full_name, font) ||
        z_font.add_resource(z_win32_get_wide(wide_path), registration_flags, nullptr) == 0)
        return nullptr;
    z_font_face_ptr face(z_font.create_face(&font));
    if (cairo_font_face_set_user_data(face.get(), &registration, wide_path.get(), unregister) !=
        CAIRO_STATUS_SUCCESS) {
        unregister(wide_path.release());
        return nullptr;
    }
    wide_path.release();
    return is_available(font) ? std::move(face) : nullptr;
}
