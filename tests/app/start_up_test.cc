#include <optional>

#include "app/desktop_system.h"
#include "app/main.h"
#include "app/screen_scale.h"
#include "app/user_session.h"
#include "common/gui/resources_archive.h"
#include "tests/support/workspace_sandbox.h"

namespace {

const char default_workspace[] = "home/Documents/Zanvel Workspace";

struct StartUpTest : UserSandboxTest {
    StartUpTest() : old_folder(std::filesystem::current_path())
    {
        std::filesystem::current_path(root);
    }
    ~StartUpTest() override
    {
        std::filesystem::current_path(old_folder);
    }

    const std::filesystem::path old_folder;
    const z_window_stack_ptr stack = z_window_stack_new();
};

TEST_F(StartUpTest, AStartThatFailsSaysWhere)
{
    const struct {
        const char *obstacle;
        const char *message;
    } cases[] = {
        {"home/.cache/Zanvel", "Couldn't clean up temp files.\n\nCouldn't get system temp path."},
        {"install/fonts/LiberationSans-Bold.ttf",
         "Couldn't load required fonts. The program installation is broken."},
        {"damaged archive",
         "Couldn't load resources.\n\nCould not open data from source.\n\nNot a zip archive"},
    };
    const std::span<const unsigned char> archive = z_resources_archive;
    for (const auto &[obstacle, message] : cases) {
        write_file(obstacle, "");
        if (obstacle == std::string("damaged archive"))
            z_resources_archive = archive.first(1);
        Steps steps;
        steps.add(
            [message = std::string(message)] { return dismiss_error("Startup failed.\n\n" + message); });
        EXPECT_EQ(1, z_main(0, nullptr));
        std::filesystem::remove_all(root / "home");
    }
    z_resources_archive = archive;
}

TEST_F(StartUpTest, ArgumentsThatAreNoTextsEndTheProgram)
{
    char good[] = "M\u00e5ns", half_a_character[] = "\xED\xA0\x80";
    char *arguments[] = {good, good, half_a_character, nullptr};
    testing::internal::CaptureStderr();
    EXPECT_EQ(1, z_main_with_unchecked_arguments(3, arguments));
    EXPECT_EQ(1, z_main_with_unchecked_arguments(-1, nullptr));
    EXPECT_EQ("Cannot parse command line argument 2.", testing::internal::GetCapturedStderr());
}

TEST_F(StartUpTest, SettingsAreSavedWhenTheyCouldBeReadAndHaveChanged)
{
    std::filesystem::create_directories(root / default_workspace);
    const std::string file = default_workspace + std::string("/settings.xml");
    write_file(file, "<settings>");
    Steps steps;
    steps.add([] {
        return answer("Warning", "Something went wrong when reading your personal settings.", "Close");
    });
    z_workspace_ptr workspace = z_user_session_start(stack.get());
    ASSERT_NE(nullptr, workspace);
    EXPECT_FALSE(workspace->settings->preferred_languages.is_empty());
    z_user_session_end(std::move(workspace));
    EXPECT_EQ("<settings>", read_file(file));

    write_file(file, "<settings><of-another-program/></settings>");
    workspace = z_user_session_start(stack.get());
    z_settings_set_left_handed(workspace->settings.get(), true);
    z_user_session_end(std::move(workspace));
    EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<settings>\n  <of-another-program/>\n"
              "  <left-handed active=\"true\"/>\n</settings>\n",
              read_file(file));
}

TEST_F(StartUpTest, OnlyWhatPrintingLeavesBehindIsCleanedUp)
{
    const struct {
        const char *name;
        bool goes;
    } cases[] = {
        {"tempABCDEFGH.odt", true},    {"TEMP1234_.5%.OXT", true},   {"temp\u00e5\u00e5345678.o.t", true},
        {"temp1234567.odt", false},    {"temp123456789.odt", false}, {"temp12345678.odtx", false},
        {"temp12345678.xdt", false},   {"temp12345678.ot", false},   {"xtemp12345678.odt", false},
        {"temp12345678.oft/x", false}, {"running.lock", false},
    };
    for (const auto &[name, goes] : cases)
        write_file(std::string("home/.cache/Zanvel/") + name, "");
    EXPECT_TRUE(z_main_remove_old_temp_files());
    EXPECT_STREQ("", z_error_get());
    for (const auto &[name, goes] : cases)
        EXPECT_EQ(!goes, exists(std::string("home/.cache/Zanvel/") + name)) << name;
}

TEST(ScreenScaleTest, FollowsTheSizeAndThenTheDensity)
{
    const struct {
        std::optional<z_screen_size> size;
        std::optional<int> dpi;
        const char *scale;
    } cases[] = {
        {{{1280, 1024}}, 168, "1"},
        {{{3840, 2160}}, 168, "2"},
        {{{3840, 2160}}, 192, nullptr},
        {{{3840, 2160}}, 120, nullptr},
        {{{1299, 9999}}, {}, "1"},
        {{{1300, 1300}}, {}, nullptr},
        {{{-3840, -1299}}, 144, "1"},
        {{{-3840, -1300}}, 144, "2"},
        {{}, 191, "2"},
        {{}, 143, nullptr},
        {{}, {}, nullptr},
    };
    for (const auto &[size, dpi, scale] : cases)
        EXPECT_STREQ(scale, z_screen_scale_choose({size, dpi}));
}

TEST(ScreenScaleTest, ReplacesTheUsersOwnOnlyWhereTheScreenIsMeasured)
{
    const z_desktop_calls real = z_desktop;
    g_setenv("GDK_SCALE", "3", TRUE);
    z_desktop.measure_screen = +[](z_screen &) { return false; };
    z_screen_scale_set();
    EXPECT_STREQ("3", g_getenv("GDK_SCALE"));
    z_desktop.measure_screen = +[](z_screen &screen) { return screen.horizontal_dpi = 150, true; };
    z_screen_scale_set();
    EXPECT_STREQ("2", g_getenv("GDK_SCALE"));
    z_desktop.measure_screen = +[](z_screen &) { return true; };
    z_screen_scale_set();
    EXPECT_EQ(nullptr, g_getenv("GDK_SCALE"));
    z_desktop = real;
}

} // namespace
