#include "common/workspace/workspace.h"

#include <utility>

#include "common/base/fs_path.h"
#include "common/workspace/bundled_components.h"
#include "tests/support/fs_faults.h"
#include "tests/support/native_path.h"
#include "tests/support/user_sandbox.h"

namespace {

struct WorkspaceTest : UserSandboxTest {
    void install() const
    {
        write_file("install/codesets/a.codeset", "codeset a");
        write_file("install/templates/a.template", "template a");
        write_file("install/templates/b.template", "template b");
        write_file("install/templates/folder/c.template", "not installed");
    }
    const std::string default_path = path("home/Documents/Zanvel Workspace");
};

TEST_F(WorkspaceTest, CreatesTheWorkspaceWithTheBundledComponents)
{
    install();
    EXPECT_EQ(z_workspace_get_default_folder_path().get(), default_path);
    ASSERT_TRUE(z_workspace_create((default_path + native("//")).c_str())) << z_error_get();
    EXPECT_EQ(list("home/Documents"),
              (std::set<std::string>{"Zanvel Workspace", "Zanvel Workspace/codesets",
                                     "Zanvel Workspace/codesets/a.codeset", "Zanvel Workspace/templates",
                                     "Zanvel Workspace/templates/a.template",
                                     "Zanvel Workspace/templates/b.template"}));
    EXPECT_EQ(read_file("home/Documents/Zanvel Workspace/templates/b.template"), "template b");
    EXPECT_EQ(saved_path(), default_path);

    const z_workspace_ptr workspace = z_workspace_open();
    ASSERT_NE(workspace, nullptr) << z_error_get();
    EXPECT_EQ(workspace->templates_folder_path.get(), default_path + native("/templates"));
    EXPECT_EQ(workspace->settings->file_path.get(), default_path + native("/settings.xml"));
    for (const char *name : {"codesets", "documents", "layouts", "templates"})
        EXPECT_TRUE(exists(std::string("home/Documents/Zanvel Workspace/") + name)) << name;
    EXPECT_FALSE(exists("home/Documents/Zanvel Workspace/fonts"));
}

TEST_F(WorkspaceTest, AFailureAtAnyStepOfTheCreationLeavesNothing)
{
    install();
    const std::set<std::string> before = list("home");
    int failed_count = 0;
    for (int step = 0; step < 1000; ++step) {
        SCOPED_TRACE(testing::Message() << "step " << step);
        z_error_clear();
        bool created;
        {
            const FsFaults faults(step);
            created = z_workspace_create(default_path.c_str());
            if (!faults.has_struck())
                break;
        }
        if (created) { // A step that it can do without.
            EXPECT_EQ(list("home/Documents").size(), 6u);
            EXPECT_EQ(saved_path(), default_path);
            std::filesystem::remove_all(root / "home/Documents");
        } else {
            ++failed_count;
            EXPECT_STRNE(z_error_get(), "");
            EXPECT_EQ(saved_path(), "none");
        }
        EXPECT_TRUE(z_workspace_save_folder_path(nullptr));
        std::filesystem::remove_all(root / "home/.config");
        EXPECT_EQ(list("home"), before);
    }
    EXPECT_GT(failed_count, 50);
}

TEST_F(WorkspaceTest, WhatIsAlreadyThereIsNoPlaceForANewOne)
{
    write_file("home/Documents/Zanvel Workspace/notes.txt", "mine");
    EXPECT_FALSE(z_workspace_create(default_path.c_str()));
    EXPECT_STREQ(z_error_get(), "Cannot create folder.\n\nError 17: File exists");
    EXPECT_EQ(read_file("home/Documents/Zanvel Workspace/notes.txt"), "mine");
    for (const char *place : {"", "relative/place"}) {
        EXPECT_FALSE(z_workspace_create(place));
        EXPECT_STREQ(z_error_get(), "Cannot access the specified location.");
    }
    EXPECT_FALSE(exists("relative"));
}

TEST_F(WorkspaceTest, OpeningTellsAnEmptyPlaceFromAnObstacle)
{
    z_error_set("older text");
    EXPECT_EQ(z_workspace_open(), nullptr);
    EXPECT_STREQ(z_error_get(), "");

    write_file("home/place", "a file");
    write_file("home/of file/templates", "a file");
    for (const char *workspace : {"home/place/", "home/of file"}) {
        ASSERT_TRUE(z_workspace_save_folder_path(path(workspace).c_str()));
        EXPECT_EQ(z_workspace_open(), nullptr) << workspace;
        EXPECT_STREQ(z_error_get(), "Cannot open folder.\n\nError 20: Not a directory") << workspace;
    }
    EXPECT_TRUE(z_workspace_save_folder_path(path("home/place//").c_str()));
    EXPECT_EQ(saved_path(), path("home/place"));

    ASSERT_TRUE(z_workspace_save_folder_path("relative"));
    EXPECT_EQ(saved_path(), "none");
    ASSERT_TRUE(z_workspace_save_folder_path(nullptr));
    EXPECT_EQ(saved_path(), "none");

    own_registry_break();
    std::filesystem::create_directories(default_path);
    EXPECT_EQ(z_workspace_open(), nullptr);
    EXPECT_STRNE(z_error_get(), "");
}

// Both programs find a folder missing, and the other one is first to make it.
TEST_F(WorkspaceTest, TwoStartsAtOnceDoNotDisturbEachOther)
{
    install();
    ASSERT_TRUE(z_workspace_save_folder_path(path("own/deep/place").c_str()));
    const auto make_each_folder_twice = [] {
        static int (*real)(const char *);
        real = z_fs.create_folder;
        z_fs.create_folder = [](const char *folder_path) {
            const std::string_view name = z_fs_utils_find_entry_name_in_path(folder_path);
            return name != "place" ? (real(folder_path), real(folder_path)) : real(folder_path);
        };
    };
    {
        const FsFaults restoring;
        make_each_folder_twice();
        EXPECT_TRUE(z_workspace_create(path("own/deep/place").c_str())) << z_error_get();
        EXPECT_NE(z_workspace_open(), nullptr) << z_error_get();
        EXPECT_STREQ(z_error_get(), "");
    }
    EXPECT_EQ(list("own/deep/place").size(), 7u);
}

TEST_F(WorkspaceTest, UntouchedOldLayoutsAreUpgraded)
{
    const std::string digest_of_old = "149603e6c03516362a8da23f624db945"; // of "old"
    const z_layout_upgrade table[] = {
        {"standard.layout", digest_of_old.c_str(), z_layout_upgrade_action::replace_or_withdraw},
        {"modern.layout", digest_of_old.c_str(), z_layout_upgrade_action::replace},
    };
    const std::span<const z_layout_upgrade> real = std::exchange(z_layout_upgrades, table);
    const struct {
        const char *standard, *modern;         // in the workspace
        const char *new_standard, *new_modern; // in the installation, "-" for none
        const char *then;                      // in the workspace afterwards
    } cases[] = {
        {"old", "old", "new", "newer", "new newer more"}, {"mine", "mine", "new", "newer", "mine mine -"},
        {"old", "old", "-", "-", "- old more"},           {"old", "-", "folder", "newer", "- newer more"},
        {"mine", "-", "new", "newer", "mine - -"},
    };
    const auto write = [this](const std::string &place, const std::string &content) {
        std::filesystem::remove_all(root / place);
        if (content == "folder")
            std::filesystem::create_directories(root / place);
        else if (content != "-")
            write_file(place, content);
    };
    ASSERT_TRUE(z_workspace_save_folder_path(path("own").c_str()));
    for (const auto &[standard, modern, new_standard, new_modern, then] : cases) {
        std::filesystem::remove_all(root / "own");
        write("own/layouts/standard.layout", standard);
        write("own/layouts/modern.layout", modern);
        write("install/layouts/standard.layout", new_standard);
        write("install/layouts/modern.layout", new_modern);
        write("install/layouts/third.layout", "more");
        std::filesystem::create_directories(root / "own");
        ASSERT_NE(z_workspace_open(), nullptr) << z_error_get();
        std::string found;
        for (const char *name : {"standard", "modern", "third"}) {
            const std::string place = std::string("own/layouts/") + name + ".layout";
            found += (exists(place) ? read_file(place) : "-") + " ";
        }
        EXPECT_EQ(found, std::string(then) + " ") << standard << modern << new_standard << new_modern;
    }

    // Without the installation's layouts an old copy is the only one, and stays.
    std::filesystem::remove_all(root / "install/layouts");
    write("own/layouts/standard.layout", "old");
    ASSERT_NE(z_workspace_open(), nullptr);
    EXPECT_EQ(read_file("own/layouts/standard.layout"), "old");
    z_layout_upgrades = real;
}

TEST_F(WorkspaceTest, AFailedUpgradeKeepsTheOldLayout)
{
    const z_layout_upgrade table[] = {
        {"a.layout", "149603e6c03516362a8da23f624db945", z_layout_upgrade_action::replace_or_withdraw}};
    const std::span<const z_layout_upgrade> real = std::exchange(z_layout_upgrades, table);
    write_file("install/layouts/a.layout", "new");
    write_file("install/layouts/b.layout", "more");
    for (int step = 0; step < 1000; ++step) {
        write_file("own/layouts/a.layout", "old");
        bool struck;
        {
            const FsFaults faults(step);
            z_workspace_upgrade_layouts(path("own").c_str());
            struck = faults.has_struck();
        }
        const std::string content = read_file("own/layouts/a.layout");
        EXPECT_TRUE(content == "new" || (struck && content == "old")) << step << content;
        EXPECT_STREQ(z_error_get(), "");
        if (!struck)
            break;
    }
    z_layout_upgrades = real;
}

} // namespace
