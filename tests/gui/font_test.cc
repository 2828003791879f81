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
        z_font_description_ptr expected(pango_font_description_from_string(text));
        EXPECT_EQ(pango_font_description_get_size(expected.get()),
                  pango_font_description_get_size(font.get()))
            << text;
        EXPECT_EQ(pango_font_description_get_weight(expected.get()),
                  pango_font_description_get_weight(font.get()));
        EXPECT_EQ(pango_font_description_get_style(expected.get()),
                  pango_font_description_get_style(font.get()));
    }
}

} // namespace
