#include "common/gui/view_font_system.h"

#include <string>

#include "common/gui/win32/font_calls.h"

#include <gtest/gtest.h>

namespace {

TEST(ViewFontWin32Test, AFontIsRegisteredForAsLongAsItsFace)
{
    static const z_font_calls real = z_font;
    static std::wstring file;
    static int registered_count = 0;
    z_font.add_resource = +[](const wchar_t *path, DWORD flags, void *reserved) WINAPI {
        EXPECT_EQ(flags, DWORD{FR_PRIVATE | FR_NOT_ENUM});
        file = path;
        ++registered_count;
        return real.add_resource(path, flags, reserved);
    };
    z_font.remove_resource = +[](const wchar_t *path, DWORD flags, void *reserved) WINAPI {
        EXPECT_EQ(flags, DWORD{FR_PRIVATE | FR_NOT_ENUM});
        EXPECT_EQ(file, path);
        --registered_count;
        return real.remove_resource(path, flags, reserved);
    };
    z_font.create_face = [](LOGFONTW *font) {
        EXPECT_EQ(font->lfHeight, 15);
        EXPECT_EQ(font->lfWeight, FW_NORMAL);
        EXPECT_EQ(font->lfQuality, ANTIALIASED_QUALITY);
        return real.create_face(font);
    };
    {
        const z_font_face_ptr face = z_view_font_create_face(ZANVEL_VIEW_FONT, "Liberation Sans Bold");
        EXPECT_NE(face, nullptr);
        const z_font_face_ptr same = z_view_font_create_face(ZANVEL_VIEW_FONT, "Liberation Sans Bold");
        EXPECT_EQ(registered_count, 1) << "They are one face.";
        EXPECT_EQ(z_view_font_create_face(ZANVEL_VIEW_FONT, "Another Sans Bold"), nullptr);
        EXPECT_EQ(z_view_font_create_face(ZANVEL_VIEW_FONT, std::string(32, 'x').c_str()), nullptr);
    }
    EXPECT_EQ(registered_count, 0);
    z_font = real;
}

} // namespace
