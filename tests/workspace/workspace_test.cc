#include "common/workspace/workspace.h"

#include <string>

#include "tests/support/fs_faults.h"
#include "tests/support/user_sandbox.h"

namespace {

struct WorkspaceTest : UserSandboxTest {
    static std::string saved_path()
    {
        z_utf8_ptr path;
        EXPECT_TRUE(z_workspace_get_saved_folder_path(path));
        return path != nullptr ? path.get() : "none";
    }
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
    ASSERT_TRUE(z_workspace_create((default_path + "//").c_str())) << z_error_get();
    EXPECT_EQ(list("home/Documents"),
              (std::set<std::string>{"Zanvel Workspace", "Zanvel Workspace/codesets",
                                     "Zanvel Workspace/codesets/a.codeset", "Zanvel Workspace/templates",
                                     "Zanvel Workspace/templates/a.template",
                                     "Zanvel Workspace/templates/b.template"}));
    EXPECT_EQ(read_file("home/Documents/Zanvel Workspace/templates/b.template"), "template b");
    EXPECT_EQ(saved_path(), default_path);

    const z_workspace_ptr workspace = z_workspace_open();
    ASSERT_NE(workspace, nullptr) << z_error_get();
    EXPECT_EQ(workspace->templates_folder_path.get(), default_path + "/templates");
    EXPECT_EQ(workspace->settings->file_path.get(), default_path + "/settings.xml");
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
    ASSERT_TRUE(z_workspace_save_folder_path(path("home/place/").c_str()));
    EXPECT_EQ(saved_path(), path("home/place"));
    EXPECT_EQ(z_workspace_open(), nullptr);
    EXPECT_STREQ(z_error_get(), "Cannot open folder.\n\nError 20: Not a directory");

    write_file("home/workspace/templates", "a file");
    ASSERT_TRUE(z_workspace_save_folder_path(path("home/workspace").c_str()));
    EXPECT_EQ(z_workspace_open(), nullptr);
    EXPECT_STREQ(z_error_get(), "Cannot open folder.\n\nError 20: Not a directory");

    ASSERT_TRUE(z_workspace_save_folder_path("relative"));
    EXPECT_EQ(saved_path(), "none");
    ASSERT_TRUE(z_workspace_save_folder_path(nullptr));
    EXPECT_EQ(saved_path(), "none");

    write_file("home/.config/Zanvel/registry.ini", "broken");
    std::filesystem::create_directories(default_path);
    EXPECT_EQ(z_workspace_open(), nullptr);
    EXPECT_STRNE(z_error_get(), "");
}

} // namespace
