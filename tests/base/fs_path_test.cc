#include "common/base/fs_path.h"

#include <vector>

#include <gtest/gtest.h>

#include "tests/support/native_path.h"

namespace {

TEST(FsPathTest, ComponentsFollowTheFolder)
{
    const struct {
        const char *folder;
        std::vector<const char *> components;
        const char *expected;
    } cases[] = {
        {"C:/work//", {"templates", "", "a.template"}, "C:/work/templates/a.template"},
        {"C:/work//", {}, "C:/work"},
        {"work", {"a", "b"}, "work/a/b"},
        {"", {"a", "b"}, "a/b"},
        {"", {"", ""}, ""},
    };
    for (const auto &each : cases) {
        const z_utf8_ptr path = z_fs_utils_create_path_in_folder_(
            native(each.folder).c_str(), each.components.data(), each.components.size());
        EXPECT_EQ(path.get(), native(each.expected)) << each.folder;
    }
    const std::string folder = native("a/");
    EXPECT_EQ(z_fs_utils_create_path_in_folder(folder.c_str(), "b", "", "c").get(), native("a/b/c"));
    EXPECT_STREQ(z_fs_utils_create_path_in_folder(folder.c_str()).get(), "a");
}

TEST(FsPathTest, PathsAreTakenApart)
{
    const struct {
        const char *path;
        const char *with_one_delimiter;
        const char *stripped;
        const char *parent;
        const char *entry_name;
    } cases[] = {
        {"", "", "", "", ""},
        {"a.template", "a.template/", "a.template", "", "a.template"},
        {"C:/dir//file", "C:/dir//file/", "C:/dir//file", "C:/dir", "file"},
        {"dir/file//", "dir/file/", "dir/file", "dir/file", ""},
    };
    for (const auto &each : cases) {
        const std::string path = native(each.path);
        EXPECT_EQ(z_fs_utils_end_folder_path_with_a_single_delimiter(path.c_str()).get(),
                  native(each.with_one_delimiter));
        std::string stripped = path;
        z_fs_utils_strip_ending_path_delimiters(stripped.data());
        EXPECT_EQ(stripped.c_str(), native(each.stripped));
        std::string parent = path;
        z_fs_utils_strip_entry_name_from_path(parent.data());
        EXPECT_EQ(parent.c_str(), native(each.parent)) << each.path;
        EXPECT_STREQ(z_fs_utils_find_entry_name_in_path(path.c_str()), each.entry_name);
    }
}

TEST(FsPathTest, AFileNameMustFillTheEntry)
{
    const std::string path = native("dir/a.template");
    EXPECT_TRUE(z_fs_utils_is_file_name_in_path(path.c_str(), "a.template"));
    EXPECT_TRUE(z_fs_utils_is_file_name_in_path("a.template", "a.template"));
    EXPECT_FALSE(z_fs_utils_is_file_name_in_path(path.c_str(), ".template"));
    EXPECT_FALSE(z_fs_utils_is_file_name_in_path(path.c_str(), "A.template"));
    EXPECT_FALSE(z_fs_utils_is_file_name_in_path("e", "a.template"));
}

} // namespace
