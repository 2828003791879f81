#include "common/gui/font.h"

#include <gtest/gtest.h>

namespace {

TEST(Font, ScalingCutsToWholeUnitsAndKeepsTheKindOfSize)
{
    for (bool absolute : {false, true}) {
        z_font_description_ptr font(pango_font_description_new());
        if (absolute)
            pango_font_description_set_absolute_size(font.get(), 10007);
        else
            pango_font_description_set_size(font.get(), 10007);
        z_gui_scale_font_description(font.get(), 1.6);
        EXPECT_EQ(16011, pango_font_description_get_size(font.get()));
        EXPECT_EQ(absolute, pango_font_description_get_size_is_absolute(font.get()) != FALSE);
    }
}

} // namespace
