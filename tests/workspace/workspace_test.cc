#include "common/workspace/workspace.h"

#include <utility>

#include "common/workspace/bundled_components.h"
#include "tests/support/fs_faults.h"
#include "tests/support/user_sandbox.h"

namespace {

struct WorkspaceTest : UserSandboxTest {
    const std::string default_path = path("home/Documents/Zanvel Workspace");

    void install() const
    {
        write_file("install/codesets/a.codeset", "codeset a");
        write_file("install/templates/a.template", "template a");
        write_file("install/templates/folder/c.template", "not installed");
    }
};

TEST_F(WorkspaceTest, CreatesTheWorkspaceWithTheBundledComponents)
{
    install();
    ASSERT_TRUE(z_workspace_create((default_path + to_text("//")).c_str())) << z_error_get();
    EXPECT_EQ(saved_path(), default_path);
    EXPECT_EQ(read_file("home/Documents/Zanvel Workspace/templates/a.template"), "template a");
    const z_workspace_ptr workspace = z_workspace_open();
    ASSERT_NE(workspace, nullptr) << z_error_get();
    EXPECT_EQ(workspace->settings->file_path.get(), default_path + to_text("/settings.xml"));
    EXPECT_EQ(list("home/Documents/Zanvel Workspace"),
              (std::set<std::string>{"codesets", "codesets/a.codeset", "documents", "layouts", "templates",
                                     "templates/a.template"}));
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
            EXPECT_EQ(list("home/Documents").size(), 5u);
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
    EXPECT_GT(failed_count, 40);
}

TEST_F(WorkspaceTest, WhatIsAlreadyThereIsNoPlaceForANewOne)
{
    write_file("home/Documents/Zanvel Workspace/notes.txt", "mine");
    EXPECT_FALSE(z_workspace_create(default_path.c_str()));
    EXPECT_STREQ(z_error_get(), "Cannot create folder.\n\nError 17: File exists");
    EXPECT_EQ(read_file("home/Documents/Zanvel Workspace/notes.txt"), "mine");
    EXPECT_FALSE(z_workspace_create("relative/place"));
    EXPECT_STREQ(z_error_get(), "Cannot access the specified location.");
}

TEST_F(WorkspaceTest, OpeningTellsAnEmptyPlaceFromAnObstacle)
{
    EXPECT_EQ(z_workspace_open(), nullptr);
    EXPECT_STREQ(z_error_get(), "");

    write_file("home/place", "a file");
    write_file("home/of file/templates", "a file");
    for (const char *workspace : {"home/place/", "home/of file"}) {
        ASSERT_TRUE(z_workspace_save_folder_path(path(workspace).c_str()));
        EXPECT_EQ(z_workspace_open(), nullptr) << workspace;
        EXPECT_STREQ(z_error_get(), "Cannot open folder.\n\nError 20: Not a directory") << workspace;
    }
    ASSERT_TRUE(z_workspace_save_folder_path("relative"));
    EXPECT_EQ(saved_path(), "none");

    own_registry_break();
    std::filesystem::create_directories(to_path(default_path));
    EXPECT_EQ(z_workspace_open(), nullptr);
    EXPECT_STRNE(z_error_get(), "");
}

// Another program finds the folders missing, too, and is first to make them.
TEST_F(WorkspaceTest, TwoStartsAtOnceDoNotDisturbEachOther)
{
    std::filesystem::create_directories(to_path(default_path));
    const FsFaults restoring;
    static int (*real)(const char *);
    real = z_fs.create_folder;
    z_fs.create_folder = [](const char *path) { return (void)real(path), real(path); };
    EXPECT_NE(z_workspace_open(), nullptr) << z_error_get();
    EXPECT_STREQ(z_error_get(), "");
}

struct LayoutUpgradeTest : UserSandboxTest {
    static constexpr const char *digest_of_old = "d5816f35916d1d9482fb0f1ec201101d";
    const std::string old = std::string(100'000, 'x');
    const z_layout_upgrade table[2] = {
        {"standard.layout", digest_of_old, z_layout_upgrade_action::replace_or_withdraw},
        {"modern.layout", digest_of_old, z_layout_upgrade_action::replace},
    };
    const std::span<const z_layout_upgrade> real = std::exchange(z_layout_upgrades, table);

    ~LayoutUpgradeTest() override
    {
        z_layout_upgrades = real;
    }
};

TEST_F(LayoutUpgradeTest, UntouchedOldLayoutsAreUpgraded)
{
    const struct {
        std::string standard, modern;         // in the workspace, "-" for none
        std::string new_standard, new_modern; // in the installation
        std::string then;                     // in the workspace afterwards
    } cases[] = {
        {old, old, "new", "newer", "new newer more "},
        {"mine", "mine", "new", "newer", "mine mine - "},
        {old, old, "-", "-", "- " + old + " more "},
        {"mine", "-", "new", "newer", "mine - - "},
    };
    ASSERT_TRUE(z_workspace_save_folder_path(path("own").c_str()));
    for (const auto &[standard, modern, new_standard, new_modern, then] : cases) {
        std::filesystem::remove_all(root / "own");
        std::filesystem::remove_all(root / "install");
        write_file("install/layouts/third.layout", "more");
        for (const auto &[place, content] : {std::pair("own/layouts/standard.layout", standard),
                                             std::pair("own/layouts/modern.layout", modern),
                                             std::pair("install/layouts/standard.layout", new_standard),
                                             std::pair("install/layouts/modern.layout", new_modern)})
            if (content != "-")
                write_file(place, content);
        ASSERT_NE(z_workspace_open(), nullptr) << z_error_get();
        std::string found;
        for (const char *name : {"standard", "modern", "third"}) {
            const std::string place = std::string("own/layouts/") + name + ".layout";
            found += (exists(place) ? read_file(place) : "-") + " ";
        }
        EXPECT_TRUE(found == then) << found;
    }

    // Without the installation's layouts, or room for them, an old copy is the only one, and stays.
    std::filesystem::remove_all(root / "install/layouts");
    write_file("own/layouts/standard.layout", old);
    ASSERT_NE(z_workspace_open(), nullptr);
    write_file("install/layouts/standard.layout", "new");
    const FsFaults restoring;
    z_fs.write = [](FILE *, const void *, size_t) -> size_t { return 0; };
    ASSERT_NE(z_workspace_open(), nullptr);
    EXPECT_TRUE(read_file("own/layouts/standard.layout") == old);
}

} // namespace
