#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/base/stream.h"
#include "common/base/xml.h"
#include "tests/support/file_sandbox.h"

namespace {

struct FsSystemPosixTest : FileSandboxTest {
    FsSystemPosixTest()
    {
        chmod(root.c_str(), 0777);
    }
    [[nodiscard]] mode_t get_mode(const char *name) const
    {
        struct stat status = {};
        EXPECT_EQ(lstat(path(name).c_str(), &status), 0);
        return status.st_mode & 07777;
    }
};

TEST_F(FsSystemPosixTest, NothingWaitsForAFifo)
{
    ASSERT_EQ(mkfifo(path("fifo").c_str(), 0666), 0);
    EXPECT_EQ(z_fs_utils_open_file(path("fifo").c_str(), "rb"), nullptr);
    EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 95: Operation not supported");
    EXPECT_FALSE(write("fifo", "text"));
    EXPECT_FALSE(put("fifo", "text"));
    EXPECT_EQ(z_fs_utils_open_folder(path("fifo").c_str()), nullptr);
    const std::string document = "<!DOCTYPE r SYSTEM '" + path("fifo") + ".dtd'><r/>";
    std::filesystem::rename(root / "fifo", root / "fifo.dtd");
    EXPECT_EQ(z_xml_parse_memory(document.data(), document.size()), nullptr);
    EXPECT_EQ(z_error_get(),
              "Could not parse XML data.\n\nRefused to load external entity: " + path("fifo.dtd"));
}

TEST_F(FsSystemPosixTest, OpenFilesAreHiddenFromStartedPrograms)
{
    const z_file_ptr file = z_fs_utils_open_file(write_file("file", "").c_str(), "rb");
    EXPECT_NE(fcntl(fileno(file.get()), F_GETFD) & FD_CLOEXEC, 0);
}

TEST_F(FsSystemPosixTest, AFileWrittenAnewKeepsItsLinkAndPermissions)
{
    std::filesystem::create_directory(root / "folder");
    write_file("folder/file", "old");
    chmod(path("folder/file").c_str(), 0606);
    std::filesystem::create_symlink("folder/file", root / "link");
    std::filesystem::create_symlink("link", root / "link to link");
    EXPECT_TRUE(write("link", "new"));
    EXPECT_EQ(read_file("folder/file"), "new");
    EXPECT_EQ(get_mode("folder/file"), 0606U);
    EXPECT_TRUE(put("link to link", "newer")) << z_error_get();
    EXPECT_EQ(read_file("folder/file"), "newer");
    EXPECT_EQ(get_mode("folder/file"), 0606U);
    EXPECT_EQ(list(), (std::set<std::string>{"folder", "folder/file", "link", "link to link"}));
    EXPECT_TRUE(std::filesystem::is_symlink(root / "link"));

    std::filesystem::create_symlink(root / "absent", root / "dangling");
    z_fs_info info;
    EXPECT_TRUE(z_fs_utils_get_info(path("dangling").c_str(), info) && !info.exists);
    EXPECT_TRUE(write("dangling", "made"));
    EXPECT_EQ(read_file("absent"), "made");
    EXPECT_TRUE(z_fs_utils_delete_file_if_exists(path("link").c_str()));
    EXPECT_TRUE(exists("folder/file") && !exists("link"));
    std::filesystem::create_symlink("loop", root / "loop");
    EXPECT_FALSE(put("loop", "x"));
    EXPECT_EQ(z_fs_utils_get_last_errno(), ELOOP);
}

TEST_F(FsSystemPosixTest, FoldersListOnlyWhatAPathCanName)
{
    write_file("bad\xE9", "");
    EXPECT_EQ(list_folder(path()), (std::set<std::string>{".", ".."}));
}

TEST_F(FsSystemPosixTest, TheRootKeepsItsDelimiter)
{
    EXPECT_STREQ(z_fs_utils_create_path_in_folder("//", "", "a").get(), "/a");
    for (const char *path : {"/x", "//x", "///"}) {
        std::string parent = path;
        z_fs_utils_strip_entry_name_from_path(parent.data());
        EXPECT_STREQ(parent.c_str(), "/") << path;
    }
    EXPECT_STREQ(z_fs_utils_end_folder_path_with_a_single_delimiter("///").get(), "/");
}

TEST_F(FsSystemPosixTest, WhatTheUserMayNotWriteIsLeftAlone)
{
    write_file("read-only", "old");
    chmod(path("read-only").c_str(), 0444);
    write_file("folder/file", "old");
    chmod(path("folder/file").c_str(), 0666);
    chmod(path("folder").c_str(), 0555);
    // The superuser may write everything; what is refused to others shows only as one of them.
    ASSERT_TRUE(geteuid() != 0 || seteuid(65534) == 0);
    for (const char *name : {"read-only", "folder/file"}) {
        EXPECT_FALSE(write(name, "new"));
        EXPECT_STREQ(z_error_get(), "Creating file failed.");
        EXPECT_FALSE(put(name, "new"));
        EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 13: Permission denied");
    }
    ASSERT_EQ(seteuid(getuid()), 0);
    EXPECT_EQ(read_file("read-only") + read_file("folder/file"), "oldold");
    EXPECT_EQ(list("folder").size(), 1U);
}

} // namespace
