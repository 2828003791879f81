#include "common/base/fs_utils.h"

#include <set>

#include "tests/support/file_sandbox.h"
#include "tests/support/fs_faults.h"

namespace {

using FsUtilsTest = FileSandboxTest;

TEST_F(FsUtilsTest, OnlyRegularFilesOpen)
{
    write_file("file", "text");
    EXPECT_NE(z_fs_utils_open_file(path("file").c_str(), "rb"), nullptr);
    EXPECT_EQ(z_fs_utils_open_file(path("none").c_str(), "rb"), nullptr);
    EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 2: No such file or directory");
    for (const char *mode : {"rb", "wb"}) {
        EXPECT_EQ(z_fs_utils_open_file(path("").c_str(), mode), nullptr);
        EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 21: Is a directory");
    }
}

TEST_F(FsUtilsTest, APathThatIsNotUtf8NamesNothing)
{
    const char *bad = "caf\xE9.template";
    EXPECT_EQ(z_fs_utils_open_file(bad, "rb"), nullptr);
    EXPECT_FALSE(z_fs_utils_delete_file_if_exists(bad));
    EXPECT_FALSE(z_fs_utils_put_file(bad, "", 0, z_fs_existing::replace));
    EXPECT_TRUE(std::string(z_error_get()).starts_with("GError 1: ")) << z_error_get();
}

TEST_F(FsUtilsTest, FoldersListEveryEntry)
{
    write_file("räksmörgås", "text");
    write_file("folder/x", "");
    EXPECT_EQ(list_folder(path()), (std::set<std::string>{".", "..", "folder", "räksmörgås"}));
}

TEST_F(FsUtilsTest, FoldersAreMadeWithWhatIsMissingAbove)
{
    EXPECT_TRUE(z_fs_utils_create_folder_recursively(path("a//b/c//").c_str()));
    EXPECT_TRUE(std::filesystem::is_directory(root / "a/b/c"));
    EXPECT_FALSE(z_fs_utils_create_folder_recursively(path("a/b").c_str()));
    EXPECT_STREQ(z_error_get(), "Cannot create folder.\n\nError 17: File exists");
    EXPECT_FALSE(z_fs_utils_create_folder(path("x/y").c_str()));
}

TEST_F(FsUtilsTest, DeletingWhatDoesNotExistSucceeds)
{
    write_file("file", "");
    write_file("full/x", "");
    EXPECT_TRUE(z_fs_utils_delete_file_if_exists(path("none").c_str()));
    EXPECT_TRUE(z_fs_utils_delete_folder_if_exists(path("none").c_str()));
    EXPECT_STREQ(z_error_get(), "");
    EXPECT_FALSE(z_fs_utils_delete_folder_if_exists(path("full").c_str()));
    EXPECT_TRUE(std::string(z_error_get()).starts_with("Cannot delete folder.\n\nError ")) << z_error_get();
    EXPECT_TRUE(z_fs_utils_delete_file_if_exists(path("file").c_str()));
    EXPECT_FALSE(exists("file"));
}

TEST_F(FsUtilsTest, InfoTellsKindTimeAndSize)
{
    write_file("file", "12345");
    std::filesystem::resize_file(write_file("huge", ""), (uint64_t{1} << 31) + 5);
    for (const char *name : {"file", "huge"}) {
        const z_fs_info info = get_info(name);
        EXPECT_TRUE(info.exists && info.is_file && !info.is_folder);
        EXPECT_EQ(info.size, name[0] == 'h' ? INT32_MAX : 5);
        EXPECT_GT(info.modification_time, 1'500'000'000);
    }
    EXPECT_TRUE(get_info("").is_folder);
    for (const char *name : {"none", "none/x", "file/x"}) {
        const z_fs_info info = get_info(name);
        EXPECT_FALSE(info.exists || info.is_folder || info.is_file || info.size || info.modification_time);
    }
}

TEST_F(FsUtilsTest, PuttingAFileReplacesItOnlyIfAsked)
{
    write_file("file", "old");
    EXPECT_TRUE(put("file", "new")) << z_error_get();
    EXPECT_FALSE(put("file", "newer", z_fs_existing::refuse));
    EXPECT_STREQ(z_error_get(), "Cannot rename file/folder.\n\nError 17: File exists");
    EXPECT_EQ(read_file("file"), "new");
    EXPECT_TRUE(put("fresh", "", z_fs_existing::refuse));
    EXPECT_EQ(list(), (std::set<std::string>{"file", "fresh"}));
}

// Whatever fails on the way, the old file stays and nothing else does.
TEST_F(FsUtilsTest, PuttingAFileFailsWithoutATrace)
{
    write_file("file", "old");
    std::set<std::string> texts;
    for (int step = 0;; ++step) {
        z_error_clear();
        const FsFaults faults(step);
        const bool done = put("file", "new");
        if (!faults.has_struck()) {
            EXPECT_TRUE(done);
            break;
        }
        EXPECT_FALSE(done) << step;
        EXPECT_EQ(read_file("file"), "old") << step;
        EXPECT_EQ(list(), (std::set<std::string>{"file"})) << step;
        texts.insert(z_error_get());
    }
    EXPECT_EQ(texts, (std::set<std::string>{
                         "Cannot close file.\n\nError 28: No space left on device",
                         "Cannot open file.\n\nError 28: No space left on device",
                         "Cannot rename file/folder.\n\nError 28: No space left on device",
                         "File write error.",
                     }));
    EXPECT_EQ(read_file("file"), "new");
}

TEST_F(FsUtilsTest, RenamingNeverReplaces)
{
    write_file("old", "old");
    write_file("new", "new");
    EXPECT_FALSE(z_fs_utils_rename(path("old").c_str(), path("new").c_str()));
    EXPECT_STREQ(z_error_get(), "Cannot rename file/folder.\n\nError 17: File exists");
    EXPECT_EQ(read_file("new"), "new");
    EXPECT_TRUE(z_fs_utils_rename(path("old").c_str(), path("newer").c_str()));
    EXPECT_EQ(list(), (std::set<std::string>{"new", "newer"}));
}

} // namespace
