#include <string>

#include "app/main.h"
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

TEST_F(StartUpTest, TheFirstStartMakesAWorkspaceAndListsWhatCameAlong)
{
    const std::string bundled = print_template("Bundled");
    write_file("install/templates/a.template", bundled);
    write_file("install/codesets/a.codeset", "codeset");
    std::filesystem::create_directory(root / "install/fonts");
    std::filesystem::copy_file(ZANVEL_VIEW_FONT, root / "install/fonts/LiberationSans-Bold.ttf");
    const char *title = "Zanvel Templates Manager 3.2.3";
    Steps steps;
    steps.add([title] {
        GtkWidget *window = find_window(title);
        if (window == nullptr)
            return false;
        GtkWidget *list =
            find_widget(window, [](GtkWidget *widget) { return GTK_IS_TREE_VIEW(widget) != FALSE; });
        const z_ptr<GtkTreePath, gtk_tree_path_free> first(gtk_tree_path_new_first());
        gtk_tree_selection_select_path(gtk_tree_view_get_selection(GTK_TREE_VIEW(list)), first.get());
        return press_button(title, "Edit");
    });
    steps.add([] { return press_button("Question", "Yes"); });
    steps.add([] { return press_button("Edit template - a.template", "Save template"); });
    steps.add([title] { return close_window(title); });
    EXPECT_EQ(0, z_main(0, nullptr));
    EXPECT_EQ(bundled, read_file(default_workspace + std::string("/templates/a.template")));
    EXPECT_TRUE(exists(default_workspace + std::string("/codesets/a.codeset")));
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

// Making a workspace in place of one that cannot be opened would lose the way to the user's own.
TEST_F(StartUpTest, WithoutAWorkspaceTheSessionEndsWithTheReason)
{
    const struct {
        const char *obstacle, *saved, *message;
    } cases[] = {
        {"home/Documents", nullptr,
         "Creating a workspace at the chosen location failed.\n\nCannot create folder.\n\n"
         "Error 20: Not a directory"},
        {"own/templates", "own", "Cannot open folder.\n\nError 20: Not a directory"},
    };
    for (const auto &[obstacle, saved, message] : cases) {
        write_file(obstacle, "");
        ASSERT_TRUE(z_workspace_save_folder_path(saved != nullptr ? path(saved).c_str() : nullptr));
        Steps steps;
        steps.add([message = std::string(message)] { return dismiss_error(message); });
        EXPECT_EQ(nullptr, z_user_session_start(stack.get()));
        std::filesystem::remove(root / obstacle);
        EXPECT_FALSE(exists(default_workspace));
        z_utf8_ptr saved_path;
        EXPECT_TRUE(z_workspace_get_saved_folder_path(saved_path));
        EXPECT_EQ(saved == nullptr, saved_path == nullptr);
    }
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
    for (const bool another_one_runs : {false, true}) {
        write_file("home/.cache/Zanvel/temp12345678.odt", "");
        EXPECT_FALSE(z_main_start_up()); // Without the font; the marker is held from now on all the same.
        EXPECT_EQ(another_one_runs, exists("home/.cache/Zanvel/temp12345678.odt"));
        z_main_shut_down();
    }
}

} // namespace
