#include <optional>
#include <string>

#include <sys/wait.h>

#include "app/main.h"
#include "app/running_marker.h"
#include "app/screen_scale.h"
#include "app/user_session.h"
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
        {"home/.cache/Zanvel/running.lock/x", "Couldn't clean up temp files.\n\nCouldn't create mutex."},
        {"install/fonts/LiberationSans-Bold.ttf",
         "Couldn't load required fonts. The program installation is broken."},
    };
    for (const auto &[obstacle, message] : cases) {
        write_file(obstacle, "");
        Steps steps;
        steps.add(
            [message = std::string(message)] { return dismiss_error("Startup failed.\n\n" + message); });
        EXPECT_EQ(1, z_main(0, nullptr));
        std::filesystem::remove_all(root / "home");
    }
}

TEST_F(StartUpTest, BrokenSettingsGiveAWarningAndTheDefaults)
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

TEST_F(StartUpTest, NobodyCleansUpWhileAnotherOneRuns)
{
    const std::string file = "home/.cache/Zanvel/temp12345678.odt";
    // The start fails without the font; the marker is held from then on all the same.
    const auto start_leaves_file = [&] {
        write_file(file, "");
        EXPECT_FALSE(z_main_start_up());
        z_main_shut_down();
        return exists(file);
    };
    z_platform.lock_file = +[](const char *, z_platform_lock) { return z_platform_no_lock; };
    EXPECT_TRUE(start_leaves_file()) << "Where there are no locks, another one may be running.";
    z_platform.lock_file = system.lock_file;
    EXPECT_FALSE(start_leaves_file());
    EXPECT_TRUE(start_leaves_file());
}

// Otherwise the first could still delete what the second has written.
TEST_F(StartUpTest, WhoComesSecondWaitsUntilTheFirstHasCleanedUp)
{
    static const z_platform_calls *real_calls = nullptr;
    real_calls = &system;
    static intptr_t first;
    static int tries;
    first = system.lock_file(path("running.lock").c_str(), z_platform_lock::exclusive);
    ASSERT_GE(first, 0);
    tries = 0;
    z_platform.lock_file = +[](const char *path, z_platform_lock kind) {
        const intptr_t lock = real_calls->lock_file(path, kind);
        EXPECT_EQ(tries > 3, lock >= 0) << tries;
        if (++tries == 4)
            real_calls->unlock(first);
        return lock;
    };
    EXPECT_EQ(z_running_marker::others, z_running_marker_hold(root.c_str()));
    EXPECT_EQ(5, tries);
}

TEST_F(StartUpTest, AnArgumentThatIsNoTextEndsTheProgram)
{
    const char *arguments[] = {ZANVEL_PROGRAM, "text", "M\xe5ns", nullptr};
    z_utf8_ptr messages;
    int status = 0;
    ASSERT_TRUE(g_spawn_sync(nullptr, const_cast<char **>(arguments), nullptr, G_SPAWN_DEFAULT, nullptr,
                             nullptr, nullptr, z_out(messages), &status, nullptr));
    EXPECT_STREQ("Cannot parse command line argument 2.", messages.get());
    EXPECT_EQ(1, WEXITSTATUS(status));
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
        EXPECT_STREQ(scale, z_screen_scale_choose(size, dpi));
}

} // namespace
