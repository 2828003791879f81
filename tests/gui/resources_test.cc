#include "common/gui/resources.h"

#include <gtest/gtest.h>

#include "common/base/error.h"
#include "common/base/zip.h"
#include "common/gui/resources_archive.h"
#include "tests/gui/pixels.h"

namespace {

struct ResourcesTest : testing::Test {
    ResourcesTest()
    {
        z_error_clear();
        EXPECT_TRUE(z_resources_open() && z_resources_load_shared_images()) << z_error_get();
    }
    ~ResourcesTest() override
    {
        z_resources_clean_up();
        z_error_clear();
    }
    static std::string draw(const z_gfx_image *image, int scale = 1)
    {
        const Canvas canvas(scale * static_cast<int>(image->width), scale * static_cast<int>(image->height));
        cairo_surface_set_device_scale(cairo_get_target(canvas.cr()), scale, scale);
        z_gfx_image_draw(image, canvas.cr(), 0, 0);
        return canvas.rows();
    }
};

TEST_F(ResourcesTest, EveryMemberLoads)
{
    const z_zip_archive_ptr archive =
        z_zip_open_archive_for_reading_from_buffer(z_resources_archive.data(), z_resources_archive.size());
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    EXPECT_EQ(count, 32);
    for (zip_int64_t i = 0; i < count; ++i) {
        const std::string name = zip_get_name(archive.get(), static_cast<zip_uint64_t>(i), 0);
        if (name.ends_with(".png")) {
            const z_gfx_image_ptr image = z_resources_load_image(name.c_str());
            ASSERT_NE(image, nullptr) << name;
            for (const int scale : {1, 2})
                EXPECT_NE(draw(image.get(), scale).find_first_of("#+"), std::string::npos) << name;
        } else {
            EXPECT_NE(z_resources_load_xml_doc(name.c_str()), nullptr) << name;
        }
    }
}

TEST_F(ResourcesTest, TheSmallImagesFillWholePixels)
{
    for (const size_t scale : {1u, 2u}) {
        std::string bars;
        for (size_t y = 0; y < 9 * scale; ++y)
            bars += std::string(11 * scale, y / scale % 4 == 0 ? '#' : '.') + '\n';
        EXPECT_EQ(draw(z_get_text_tab_menu_icon_image(), static_cast<int>(scale)), bars);
    }
    const std::string off = draw(z_get_checkbox_icon_image(false));
    const std::string on = draw(z_get_checkbox_icon_image(true));
    // Rounded corners, straight and sharp sides.
    std::string box = "++#########++\n+++++++++++++\n";
    for (int i = 0; i < 9; ++i)
        box += "#+++++++++++#\n";
    EXPECT_EQ(off, box + "+++++++++++++\n++#########++\n");
    EXPECT_EQ(on.size(), off.size());
    EXPECT_NE(on.find("#++#"), std::string::npos) << on;
}

TEST_F(ResourcesTest, WhatDoesNotLoadSaysSo)
{
    EXPECT_EQ(z_resources_load_image("none.png"), nullptr);
    EXPECT_STREQ(z_error_get(), "Could not load image resource.\n\nOpening compressed input file failed.");
    EXPECT_EQ(z_resources_load_image("logo.svg"), nullptr);
    EXPECT_TRUE(std::string(z_error_get()).starts_with("Could not load image resource.\n\n"));
    for (const char *name : {"none.xsl", "save.png"}) {
        EXPECT_EQ(z_resources_load_xml_doc(name), nullptr);
        EXPECT_TRUE(std::string(z_error_get()).starts_with("Could not open XML resource.\n\n"));
    }
}

} // namespace
