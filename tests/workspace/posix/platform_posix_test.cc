#include "common/workspace/platform.h"

#include <sys/stat.h>

#include "tests/support/user_sandbox.h"

namespace {

using PosixPlatformTest = UserSandboxTest;

// Anybody could otherwise have something deleted that lies elsewhere.
TEST_F(PosixPlatformTest, OnlyRegularFilesOfTheOwnFolderAreDeleted)
{
    const auto is_meant = +[](const char *name) { return name[0] == 'x'; };
    write_file("home/.cache/Zanvel/x1", "");
    write_file("home/.cache/Zanvel/y", "");
    write_file("home/.cache/Zanvel/x2/x3", "");
    std::filesystem::create_symlink(root / "home/.cache/Zanvel/y", root / "home/.cache/Zanvel/x4");
    EXPECT_TRUE(z_platform_delete_temp_files(is_meant));
    EXPECT_FALSE(exists("home/.cache/Zanvel/x1"));
    for (const char *name : {"y", "x2/x3", "x4"})
        EXPECT_TRUE(exists(std::string("home/.cache/Zanvel/") + name)) << name;

    std::filesystem::create_directory_symlink(root / "home/.cache/Zanvel/x2", root / "link");
    EXPECT_FALSE(z_platform.delete_files(path("link").c_str(), is_meant));
    EXPECT_TRUE(exists("home/.cache/Zanvel/x2/x3"));
}

TEST_F(PosixPlatformTest, TheTemporaryFolderIsTheUsersAlone)
{
    const std::string folder = path("home/.cache/Zanvel");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(z_platform_get_temp_files_folder_path().get(), folder);
        struct stat status;
        ASSERT_EQ(stat(folder.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0700u);
        ASSERT_EQ(chmod(folder.c_str(), 0755), 0);
    }
    std::filesystem::remove(folder);
    std::filesystem::create_directory_symlink(root / "install", folder);
    EXPECT_EQ(z_platform_get_temp_files_folder_path(), nullptr);
    EXPECT_STREQ(z_error_get(), "Couldn't get system temp path.");
}

TEST_F(PosixPlatformTest, LinksLeadToTheSameFile)
{
    write_file("a/one", "x");
    std::filesystem::create_directory_symlink(root / "a", root / "b");
    EXPECT_TRUE(z_platform_compare_file_system_paths(path("a/one").c_str(), path("b/one").c_str()));
}

TEST_F(PosixPlatformTest, AWorkspaceOpensThroughALinkToAFolderOnly)
{
    std::filesystem::create_directories(root / "home/real");
    std::filesystem::create_directories(root / "home/workspace");
    ASSERT_TRUE(z_workspace_save_folder_path(path("home/workspace").c_str()));
    std::filesystem::create_directory_symlink("nowhere", root / "home/workspace/templates");
    EXPECT_EQ(z_workspace_open(), nullptr);
    EXPECT_STREQ(z_error_get(), "Cannot create folder.\n\nError 17: File exists");
    std::filesystem::remove(root / "home/workspace/templates");
    std::filesystem::create_directory_symlink("../real", root / "home/workspace/templates");
    EXPECT_NE(z_workspace_open(), nullptr);
}

} // namespace
