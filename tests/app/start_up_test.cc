#include <optional>

#include "app/desktop_system.h"
#include "app/main.h"
#include "app/screen_scale.h"
#include "app/user_session.h"
#include "tests/support/workspace_sandbox.h"

namespace {

using StartUpTest = UserSandboxTest;

TEST_F(StartUpTest, AStartThatFailsSaysWhere)
{
    write_file("install/fonts/LiberationSans-Bold.ttf", "");
    Steps steps;
    steps.add([] {
        return dismiss_error(
            "Startup failed.\n\nCouldn't load required fonts. The program installation is broken.");
    });
    EXPECT_EQ(1, z_main(0, nullptr));
}

TEST_F(StartUpTest, SettingsAreSavedWhenTheyCouldBeReadAndHaveChanged)
{
    const std::string file = "home/Documents/Zanvel Workspace/settings.xml";
    write_file(file, "<settings>");
    const z_window_stack_ptr stack = z_window_stack_new();
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
    const std::pair<const char *, bool> cases[] = {
        {"tempABCDEFGH.odt", true},    {"TEMP1234_.5%.OXT", true},   {"temp\u00e5\u00e5345678.o.t", true},
        {"temp1234567.odt", false},    {"temp12345678.odtx", false}, {"temp12345678.ot", false},
        {"temp12345678.oft/x", false},
    };
    for (const auto &[name, goes] : cases)
        write_file(std::string("home/.cache/Zanvel/") + name, "");
    EXPECT_TRUE(z_main_remove_old_temp_files());
    EXPECT_STREQ("", z_error_get());
    for (const auto &[name, goes] : cases)
        EXPECT_EQ(!goes, exists(std::string("home/.cache/Zanvel/") + name)) << name;
}

// Of what was measured; the user's own scale stays only where nothing was.
TEST(ScreenScaleTest, FollowsTheSizeAndThenTheDensity)
{
    const struct {
        std::optional<z_screen_size> size;
        std::optional<int> dpi;
        const char *scale;
    } cases[] = {
        {{{1299, 9999}}, 168, "1"}, {{{1300, 1300}}, 168, "2"}, {{{-3840, -1299}}, {}, "1"}, {{}, 191, "2"},
        {{}, 192, nullptr},         {{}, 143, nullptr},         {{}, {}, nullptr},
    };
    for (const auto &[size, dpi, scale] : cases)
        EXPECT_STREQ(scale, z_screen_scale_choose({size, dpi}));

    const z_desktop_calls real = z_desktop;
    g_setenv("GDK_SCALE", "3", TRUE);
    z_desktop.measure_screen = +[](z_screen &) { return false; };
    z_screen_scale_set();
    EXPECT_STREQ("3", g_getenv("GDK_SCALE"));
    z_desktop.measure_screen = +[](z_screen &) { return true; };
    z_screen_scale_set();
    EXPECT_EQ(nullptr, g_getenv("GDK_SCALE"));
    z_desktop = real;
}

} // namespace
