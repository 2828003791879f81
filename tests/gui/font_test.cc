#include "common/gui/font.h"

#include <gtest/gtest.h>

namespace {

TEST(Font, StylesChangeOnlyWhatTheyName)
{
    static const struct {
        z_font_style style;
        const char *text;
    } cases[] = {
        {z_font_style::normal, "Sans 10px"},
        {z_font_style::bold, "Sans Bold 10px"},
        {z_font_style::italic, "Sans Italic 10px"},
        {z_font_style::large_header, "Arial,Sans Bold 16px"},
    };
    for (const auto &[style, text] : cases) {
        z_font_description_ptr font = z_gui_create_fallback_font_description(10);
        z_gui_apply_font_style(font.get(), style);
        EXPECT_STREQ(text, z_utf8_ptr(pango_font_description_to_string(font.get())).get());
    }
}

} // namespace
