#include "common/gui/view_font.h"

#include <filesystem>

#include "tests/support/sandbox.h"

namespace {

struct ViewFontTest : SandboxTest {
    ViewFontTest() : old_folder(std::filesystem::current_path())
    {
        std::filesystem::create_directories(root / "current");
        std::filesystem::create_directories(root / "installation/fonts");
        std::filesystem::current_path(root / "current");
    }
    ~ViewFontTest() override
    {
        std::filesystem::current_path(old_folder);
        z_resources_clean_up_view_font();
    }
    // The font of this file, under the name that is looked for.
    void install(const char *folder, const char *file_name) const
    {
        const std::filesystem::path fonts = std::filesystem::path(ZANVEL_VIEW_FONT).parent_path();
        std::filesystem::create_directories(root / folder);
        std::filesystem::copy_file(fonts / file_name, root / folder / "LiberationSans-Bold.ttf",
                                   std::filesystem::copy_options::overwrite_existing);
    }
    [[nodiscard]] bool load() const
    {
        return z_resources_load_view_font(path("installation").c_str());
    }
    // The width of a word, which also makes Cairo open the file.
    static double measure()
    {
        cairo_matrix_t size, identity;
        cairo_matrix_init_scale(&size, 15, 15);
        cairo_matrix_init_identity(&identity);
        const z_ptr<cairo_font_options_t, cairo_font_options_destroy> options(cairo_font_options_create());
        const z_ptr<cairo_scaled_font_t, cairo_scaled_font_destroy> font(
            cairo_scaled_font_create(z_get_view_font_face(), &size, &identity, options.get()));
        cairo_text_extents_t extents;
        cairo_scaled_font_text_extents(font.get(), "Zanvel", &extents);
        return cairo_scaled_font_status(font.get()) == CAIRO_STATUS_SUCCESS ? extents.x_advance : 0;
    }

    std::filesystem::path old_folder;
};

TEST_F(ViewFontTest, ComesFromTheCurrentFolderOrTheInstallation)
{
    install("installation/fonts", "LiberationSans-Bold.ttf");
    ASSERT_TRUE(load()) << z_error_get();
    const double width = measure();
    EXPECT_GT(width, 45);
    EXPECT_LT(width, 60);
    install("current/fonts", "LiberationSans-Bold.ttf");
    std::filesystem::remove_all(root / "installation");
    ASSERT_TRUE(load());
    std::filesystem::current_path(old_folder);
    EXPECT_EQ(measure(), width);
}

TEST_F(ViewFontTest, AnythingElseIsABrokenInstallation)
{
    const char *text = "Couldn't load required fonts. The program installation is broken.";
    EXPECT_FALSE(load());
    EXPECT_STREQ(z_error_get(), text);
    write_file("installation/fonts/LiberationSans-Bold.ttf", "no font");
    EXPECT_FALSE(load());
    install("installation/fonts", "LiberationSans-Regular.ttf");
    EXPECT_FALSE(load());
    EXPECT_EQ(z_get_view_font_face(), nullptr);
    EXPECT_STREQ(z_error_get(), text);
}

} // namespace
