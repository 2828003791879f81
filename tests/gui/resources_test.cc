#include "common/gui/resources.h"

#include <gtest/gtest.h>

#include "common/base/error.h"
#include "common/base/zip.h"
#include "common/gui/resources_archive.h"

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
};

TEST_F(ResourcesTest, EveryMemberLoads)
{
    const z_zip_archive_ptr archive =
        z_zip_open_archive_for_reading_from_buffer(z_resources_archive.data(), z_resources_archive.size());
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive.get(), 0); ++i) {
        const std::string name = zip_get_name(archive.get(), static_cast<zip_uint64_t>(i), 0);
        if (name.ends_with(".png"))
            EXPECT_NE(z_resources_load_image(name.c_str()), nullptr) << name;
        else
            EXPECT_NE(z_resources_load_xml_doc(name.c_str()), nullptr) << name;
    }
}

// Three bars over the whole width, each one pixel high.
TEST_F(ResourcesTest, ASmallImageFillsWholePixelsAtEveryScale)
{
    for (const int scale : {1, 2}) {
        const int width = 11 * scale, height = 9 * scale;
        const z_cairo_surface_ptr surface(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
        cairo_surface_set_device_scale(surface.get(), scale, scale);
        const z_cairo_ptr cr(cairo_create(surface.get()));
        z_gfx_image_draw(z_get_text_tab_menu_icon_image(), cr.get(), 0, 0);
        cairo_surface_flush(surface.get());
        const unsigned char *row = cairo_image_surface_get_data(surface.get());
        for (int y = 0; y < height; ++y, row += cairo_image_surface_get_stride(surface.get()))
            for (int x = 0; x < width; ++x)
                EXPECT_EQ(row[x], y / scale % 4 == 0 ? 0xff : 0) << x << ' ' << y;
    }
}

TEST_F(ResourcesTest, WhatDoesNotLoadSaysSo)
{
    EXPECT_EQ(z_resources_load_image("none.png"), nullptr);
    EXPECT_STREQ(z_error_get(), "Could not load image resource.\n\nOpening compressed input file failed.");
    EXPECT_EQ(z_resources_load_xml_doc("save.png"), nullptr);
    EXPECT_TRUE(std::string(z_error_get()).starts_with("Could not open XML resource.\n\n"));
}

} // namespace
