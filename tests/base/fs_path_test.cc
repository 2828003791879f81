#include "common/base/fs_path.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

TEST(FsPathTest, ComponentsFollowTheFolder)
{
    const struct {
        const char *folder;
        std::vector<const char *> components;
        const char *expected;
    } cases[] = {
        {"/work//", {"templates", "", "a.template"}, "/work/templates/a.template"},
        {"/work//", {}, "/work"},
        {"work", {"a/b/"}, "work/a/b/"},
        {"", {"a", "b"}, "a/b"},
        {"", {"", ""}, ""},
        {"/", {"a"}, "/a"},
        {"//", {"", "a"}, "/a"},
        {"//", {}, "/"},
    };
    for (const auto &each : cases) {
        const z_utf8_ptr path =
            z_fs_utils_create_path_in_folder_(each.folder, each.components.data(), each.components.size());
        EXPECT_STREQ(path.get(), each.expected) << each.folder;
    }
    EXPECT_STREQ(z_fs_utils_create_path_in_folder("/a/", "b", "", "c").get(), "/a/b/c");
    EXPECT_STREQ(z_fs_utils_create_path_in_folder("/a/").get(), "/a");
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
        {"/dir//file", "/dir//file/", "/dir//file", "/dir", "file"},
        {"dir/file//", "dir/file/", "dir/file", "dir/file", ""},
        {"/x", "/x/", "/x", "/", "x"},
        {"//x", "//x/", "//x", "/", "x"},
        {"/", "/", "/", "/", ""},
        {"///", "/", "/", "/", ""},
        {"\\a\\b", "\\a\\b/", "\\a\\b", "", "\\a\\b"},
    };
    for (const auto &each : cases) {
        EXPECT_STREQ(z_fs_utils_end_folder_path_with_a_single_delimiter(each.path).get(),
                     each.with_one_delimiter);
        std::string stripped = each.path;
        z_fs_utils_strip_ending_path_delimiters(stripped.data());
        EXPECT_STREQ(stripped.c_str(), each.stripped);
        std::string parent = each.path;
        z_fs_utils_strip_entry_name_from_path(parent.data());
        EXPECT_STREQ(parent.c_str(), each.parent) << each.path;
        EXPECT_STREQ(z_fs_utils_find_entry_name_in_path(each.path), each.entry_name);
    }
}

TEST(FsPathTest, AFileNameMustFillTheEntry)
{
    EXPECT_TRUE(z_fs_utils_is_file_name_in_path("/dir/a.template", "a.template"));
    EXPECT_TRUE(z_fs_utils_is_file_name_in_path("a.template", "a.template"));
    EXPECT_FALSE(z_fs_utils_is_file_name_in_path("/dir/ba.template", "a.template"));
    EXPECT_FALSE(z_fs_utils_is_file_name_in_path("/dir/A.template", "a.template"));
    EXPECT_FALSE(z_fs_utils_is_file_name_in_path("e", "a.template"));
}

} // namespace
