#include "common/workspace/platform.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
    ASSERT_EQ(mkfifo(path("home/.cache/Zanvel/x5").c_str(), 0600), 0);
    EXPECT_TRUE(z_platform_delete_temp_files(is_meant));
    EXPECT_FALSE(exists("home/.cache/Zanvel/x1"));
    for (const char *name : {"y", "x2/x3", "x4", "x5"})
        EXPECT_TRUE(exists(std::string("home/.cache/Zanvel/") + name)) << name;

    std::filesystem::create_directory_symlink(root / "home/.cache/Zanvel/x2", root / "link");
    EXPECT_FALSE(z_platform.delete_files(path("link").c_str(), is_meant));
    EXPECT_FALSE(z_platform.delete_files(path("gone").c_str(), is_meant));
    EXPECT_TRUE(exists("home/.cache/Zanvel/x2/x3"));
}

TEST_F(PosixPlatformTest, TheTemporaryFolderIsTheUsersAlone)
{
    const z_utf8_ptr folder = z_platform_get_temp_files_folder_path();
    EXPECT_EQ(folder.get(), path("home/.cache/Zanvel"));
    struct stat status;
    ASSERT_EQ(stat(folder.get(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);

    ASSERT_EQ(chmod(folder.get(), 0755), 0);
    EXPECT_NE(z_platform_get_temp_files_folder_path(), nullptr);
    ASSERT_EQ(stat(folder.get(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700u);
}

TEST_F(PosixPlatformTest, APlantedTemporaryFolderIsRefused)
{
    std::filesystem::create_directories(root / "home/.cache");
    std::filesystem::create_directories(root / "elsewhere");
    std::filesystem::create_directory_symlink(root / "elsewhere", root / "home/.cache/Zanvel");
    EXPECT_EQ(z_platform_get_temp_files_folder_path(), nullptr);
    EXPECT_STREQ(z_error_get(), "Couldn't get system temp path.");
}

TEST_F(PosixPlatformTest, ATemporaryFileHasNoNameAndIsTheUsersAlone)
{
    const z_utf8_ptr pattern(z_platform.make_temp_file_path(root.c_str()));
    const int descriptor = z_platform.get_file_descriptor(z_platform.create_temp_file(pattern.get()));
    struct stat status;
    ASSERT_EQ(fstat(descriptor, &status), 0);
    EXPECT_EQ(status.st_nlink, 0u);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
    EXPECT_EQ(fcntl(descriptor, F_GETFD), FD_CLOEXEC);
    close(descriptor);
}

TEST_F(PosixPlatformTest, LinksLeadToTheSameFile)
{
    write_file("a/one", "x");
    std::filesystem::create_directory_symlink(root / "a", root / "b");
    for (const char *name : {"one", ""})
        EXPECT_TRUE(z_platform_compare_file_system_paths(path(std::string("a/") + name).c_str(),
                                                         path(std::string("b/") + name).c_str()));
}

} // namespace
