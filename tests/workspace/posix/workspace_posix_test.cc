#include "common/workspace/workspace.h"

#include <sys/stat.h>

#include "tests/support/user_sandbox.h"

namespace {

using PosixWorkspaceTest = UserSandboxTest;

TEST_F(PosixWorkspaceTest, OpensThroughALinkToAFolderOnly)
{
    std::filesystem::create_directories(root / "home/real");
    ASSERT_EQ(mkfifo(path("home/fifo").c_str(), 0600), 0);
    write_file("home/place", "a file");
    const struct {
        const char *link_target, *message; // No message: it opens.
    } cases[] = {
        {"../place", "Cannot open folder.\n\nError 20: Not a directory"},
        {"../fifo", "Cannot open folder.\n\nError 20: Not a directory"},
        {"nowhere", "Cannot create folder.\n\nError 17: File exists"},
        {"../real", nullptr},
    };
    for (const auto &[link_target, message] : cases) {
        std::filesystem::remove_all(root / "home/workspace");
        std::filesystem::create_directory(root / "home/workspace");
        std::filesystem::create_directory_symlink(link_target, root / "home/workspace/templates");
        ASSERT_TRUE(z_workspace_save_folder_path(path("home/workspace").c_str()));
        EXPECT_EQ(z_workspace_open() != nullptr, message == nullptr) << link_target;
        EXPECT_STREQ(z_error_get(), message != nullptr ? message : "") << link_target;
    }
}

} // namespace
