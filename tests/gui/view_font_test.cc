#include "common/gui/view_font.h"

#include <filesystem>
#include <string>

#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include "common/base/error.h"
#include "tests/support/sandbox.h"

namespace {

// Where this computer keeps a font of that full name.
std::string find_font(const char *full_name)
{
    const z_ptr<FcPattern, FcPatternDestroy> pattern(
        FcPatternBuild(nullptr, FC_FULLNAME, FcTypeString, full_name, nullptr));
    const z_ptr<FcObjectSet, FcObjectSetDestroy> wanted(FcObjectSetBuild(FC_FILE, nullptr));
    const z_ptr<FcFontSet, FcFontSetDestroy> fonts(FcFontList(nullptr, pattern.get(), wanted.get()));
    FcChar8 *file = nullptr;
    if (fonts == nullptr || fonts->nfont == 0 ||
        FcPatternGetString(fonts->fonts[0], FC_FILE, 0, &file) != FcResultMatch)
        return "";
    return reinterpret_cast<const char *>(file);
}

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
    void install(const char *folder, const char *full_name) const
    {
        const std::string font = find_font(full_name);
        ASSERT_NE(font, "") << full_name << " is not installed";
        std::filesystem::create_directories(root / folder);
        std::filesystem::copy_file(font, root / folder / "LiberationSans-Bold.ttf",
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
    install("installation/fonts", "Liberation Sans Bold");
    ASSERT_TRUE(load()) << z_error_get();
    const double width = measure();
    EXPECT_GT(width, 45);
    EXPECT_LT(width, 60);
    install("current/fonts", "Liberation Sans Bold");
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
    install("installation/fonts", "Liberation Sans");
    EXPECT_FALSE(load());
    EXPECT_EQ(z_get_view_font_face(), nullptr);
    EXPECT_STREQ(z_error_get(), text);
}

} // namespace
