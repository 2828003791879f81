#include "common/gui/gfx.h"

#include <string>

#include <gtest/gtest.h>

#include "common/base/error.h"
#include "tests/gui/pixels.h"

namespace {

TEST(GfxTest, ImagesAreDrawnAtTheirPlace)
{
    Canvas picture(2, 1);
    z_gfx_set_color_rgb(picture.cr(), 0x1080f0);
    cairo_paint(picture.cr());
    const std::string png = picture.to_png();
    const z_gfx_image_ptr image = z_gfx_image_new_from_png(png.data(), png.size());
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->width, 2);
    EXPECT_EQ(image->height, 1);

    Canvas canvas(4, 3);
    z_gfx_set_color_rgb(canvas.cr(), 0xffffff);
    z_gfx_image_draw(image.get(), canvas.cr(), 1, 1);
    EXPECT_EQ(canvas.rows(), "....\n.##.\n....\n");
    EXPECT_EQ(canvas.pixel(2, 1), 0xff1080f0U);
    cairo_paint(canvas.cr());
    EXPECT_EQ(canvas.pixel(2, 1), 0xffffffffU);
}

TEST(GfxTest, ADamagedImageIsRefused)
{
    const std::string png = Canvas(20, 20).to_png();
    for (const size_t length : {size_t{0}, size_t{5}, png.size() / 2}) {
        z_error_clear();
        EXPECT_EQ(z_gfx_image_new_from_png(png.data(), length), nullptr);
        EXPECT_STREQ(z_error_get(), "Error reading data.");
    }
    z_error_clear();
}

} // namespace
