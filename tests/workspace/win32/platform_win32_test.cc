#include "common/base/win32/wide_text.h"
#include "common/workspace/platform.h"

#include <string>

#include <windows.h>

#include "tests/support/open_handles.h"
#include "tests/support/user_sandbox.h"

namespace {

using Win32PlatformTest = UserSandboxTest;

TEST_F(Win32PlatformTest, TheSystemAnswersForItsUser)
{
    EXPECT_EQ(system.get_user_language_index(),
              z_platform_get_language_index_for_identifier(GetUserDefaultLangID()));
    uint64_t byte_count = 0;
    EXPECT_TRUE(system.get_free_disk_space(&byte_count) && byte_count > 0);
    for (char *(*get_path)() : {system.get_executable_path, system.get_documents_folder_path,
                                system.get_user_temp_folder_path, system.get_system_temp_folder_path}) {
        const z_utf8_ptr path(get_path());
        ASSERT_NE(path, nullptr);
        EXPECT_TRUE(g_path_is_absolute(path.get()) && !g_str_has_suffix(path.get(), "\\")) << path.get();
    }
    EXPECT_TRUE(g_str_has_suffix(z_utf8_ptr(system.get_executable_path()).get(), ".exe"));
    wchar_t expected[80];
    const SYSTEMTIME date = {2024, 2, 0, 29, 0, 0, 0, 0};
    ASSERT_NE(GetDateFormatW(LOCALE_USER_DEFAULT, 0, &date, nullptr, expected, 80), 0);
    EXPECT_STREQ(z_platform_get_date_string({2024, 2, 29}).get(), z_win32_wide_to_utf8(expected).get());
    EXPECT_EQ(z_platform_get_date_string({1600, 1, 1}), nullptr); // before the system's first day
}

TEST_F(Win32PlatformTest, ATemporaryFileIsTheProgramsAlone)
{
    const OpenHandles handles;
    const z_utf8_ptr name(z_platform.make_temp_file_path(path().c_str()));
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(std::string(name.get()).find(path("zan")), 0u);
    const intptr_t file = z_platform.create_temp_file(name.get());
    ASSERT_GE(file, 0);
    EXPECT_EQ(z_platform.create_temp_file(name.get()), -1);
    EXPECT_EQ(errno, EACCES);
    DWORD flags = 0;
    EXPECT_TRUE(GetHandleInformation(reinterpret_cast<HANDLE>(file), &flags) && flags == 0);
    CloseHandle(reinterpret_cast<HANDLE>(file));
    EXPECT_EQ(list(), (std::set<std::string>{"home", "install"}));

    EXPECT_EQ(z_platform.make_temp_file_path(path("gone").c_str()), nullptr);
    EXPECT_EQ(z_platform.create_temp_file(path("gone\\x").c_str()), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(Win32PlatformTest, ALockKeepsOthersOutAndGoesWithItsHandle)
{
    const OpenHandles handles;
    const auto lock = [this](const char *name) { return z_platform.lock_folder(path(name).c_str()); };
    const intptr_t first = lock("home");
    ASSERT_GE(first, 0);
    EXPECT_EQ(lock("home"), z_platform_lock_is_held);
    EXPECT_NE(GetFileAttributesW((root / "home/.zanvel.lock").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0u);
    z_platform.unlock(first);
    const intptr_t second = lock("home");
    ASSERT_GE(second, 0);
    CloseHandle(reinterpret_cast<HANDLE>(second)); // As the end of a process does.
    const intptr_t third = lock("home");
    ASSERT_GE(third, 0);
    z_platform.unlock(third);
    EXPECT_EQ(lock("gone"), z_platform_no_lock);
}

TEST_F(Win32PlatformTest, OnlyPlainFilesOfARealFolderAreDeleted)
{
    const OpenHandles handles;
    const auto is_meant = +[](const char *name) { return name[0] == 'x'; };
    for (const char *name : {"home/x1", "home/y", "home/x2/x3", "home/x4"})
        write_file(name, "");
    const HANDLE held = CreateFileW((root / "home/x4").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_TRUE(z_platform.delete_files(path("home").c_str(), is_meant));
    CloseHandle(held);
    EXPECT_EQ(list("home"), (std::set<std::string>{"x2", "x2/x3", "x4", "y"}));
    EXPECT_FALSE(z_platform.delete_files(path("gone").c_str(), is_meant));
    EXPECT_FALSE(z_platform.delete_files(path("home/y").c_str(), is_meant));

    EXPECT_FALSE(z_platform.make_private_folder(path("home/y").c_str()));
    EXPECT_FALSE(z_platform.make_private_folder(path("gone/folder").c_str()));
    for (int round = 0; round < 2; ++round)
        EXPECT_TRUE(z_platform.make_private_folder(path("home/private").c_str()));
}

TEST_F(Win32PlatformTest, OneFileMayBeSpelledInManyWays)
{
    const OpenHandles handles;
    write_file("a/one", "x");
    ASSERT_TRUE(CreateHardLinkW((root / "a/two").c_str(), (root / "a/one").c_str(), nullptr));
    for (const char *name : {"a/ONE", "A\\one", "a/two"})
        EXPECT_TRUE(z_platform_compare_file_system_paths(path("a/one").c_str(), path(name).c_str())) << name;
}

} // namespace
