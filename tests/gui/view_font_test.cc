#include "common/gui/view_font.h"

#include <filesystem>

#include "tests/support/sandbox.h"

namespace {

struct ViewFontTest : SandboxTest {
    ViewFontTest()
    {
        std::filesystem::create_directories(root / "current");
        std::filesystem::current_path(root / "current");
    }
    ~ViewFontTest() override
    {
        std::filesystem::current_path(old_folder);
        z_resources_clean_up_view_font();
    }
    // Tries with the font of this file under the name that is looked for.
    bool load(const char *folder, const char *file_name) const
    {
        std::filesystem::create_directories(root / folder);
        std::filesystem::copy_file(std::filesystem::path(ZANVEL_VIEW_FONT).parent_path() / file_name,
                                   root / folder / "LiberationSans-Bold.ttf");
        return z_resources_load_view_font(path("installation").c_str());
    }

    const std::filesystem::path old_folder = std::filesystem::current_path();
};

TEST_F(ViewFontTest, ComesFromTheCurrentFolderOrTheInstallation)
{
    for (const char *folder : {"installation/fonts", "current/fonts"}) {
        EXPECT_TRUE(load(folder, "LiberationSans-Bold.ttf")) << z_error_get();
        EXPECT_NE(z_get_view_font_face(), nullptr);
        z_resources_clean_up_view_font();
        std::filesystem::remove_all(root / folder);
    }
}

TEST_F(ViewFontTest, AnythingElseIsABrokenInstallation)
{
    EXPECT_FALSE(load("other", "LiberationSans-Bold.ttf"));
    EXPECT_FALSE(load("installation/fonts", "LiberationSans-Regular.ttf"));
    write_file("installation/fonts/LiberationSans-Bold.ttf", "no font");
    EXPECT_FALSE(z_resources_load_view_font(path("installation").c_str()));
    EXPECT_EQ(z_get_view_font_face(), nullptr);
    EXPECT_STREQ(z_error_get(), "Couldn't load required fonts. The program installation is broken.");
}

} // namespace
