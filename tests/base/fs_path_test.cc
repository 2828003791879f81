#include "common/base/fs_path.h"

#include "tests/support/sandbox.h"

namespace {

// Paths are written with slashes in tables that hold on every system.
const auto native = SandboxTest::to_text;

TEST(FsPathTest, ComponentsFollowTheFolder)
{
    const auto join = [](const char *folder) {
        return z_fs_utils_create_path_in_folder(native(folder).c_str(), "b", "", "c");
    };
    EXPECT_EQ(join("C:/a//").get(), native("C:/a/b/c"));
    EXPECT_EQ(join("").get(), native("b/c"));
    EXPECT_EQ(z_fs_utils_create_path_in_folder(native("C:/a//").c_str()).get(), native("C:/a"));
}

TEST(FsPathTest, PathsAreTakenApart)
{
    const struct {
        const char *path, *with_one_delimiter, *parent, *entry_name;
    } cases[] = {
        {"", "", "", ""},
        {"a.template", "a.template/", "", "a.template"},
        {"C:/dir//file", "C:/dir//file/", "C:/dir", "file"},
        {"dir/file//", "dir/file/", "dir/file", ""},
    };
    for (const auto &each : cases) {
        const std::string path = native(each.path);
        EXPECT_EQ(z_fs_utils_end_folder_path_with_a_single_delimiter(path.c_str()).get(),
                  native(each.with_one_delimiter));
        std::string parent = path;
        z_fs_utils_strip_entry_name_from_path(parent.data());
        EXPECT_EQ(parent.c_str(), native(each.parent)) << each.path;
        EXPECT_STREQ(z_fs_utils_find_entry_name_in_path(path.c_str()), each.entry_name);
    }
    EXPECT_TRUE(z_fs_utils_is_file_name_in_path(native("dir/a.template").c_str(), "a.template"));
    EXPECT_FALSE(z_fs_utils_is_file_name_in_path(native("dir/a.template").c_str(), ".template"));
}

} // namespace
