#include <string>
#include <utility>
#include <vector>

#include "common/base/fs_system.h"
#include "common/base/win32/fs_system_win32.h"
#include "common/base/win32/path_win32.h"
#include "common/base/win32/wide_arguments.h"
#include "tests/support/file_sandbox.h"
#include <gtest/gtest.h>

namespace {

struct FsSystemWin32Test : FileSandboxTest {
    // Neither writing anew nor replacing nor deleting touches the file.
    void expect_untouchable(const char *name)
    {
        EXPECT_FALSE(write(name, "new"));
        EXPECT_FALSE(put(name, "new"));
        EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 13: Permission denied");
        EXPECT_FALSE(z_fs_utils_delete_file_if_exists(path(name).c_str()));
        EXPECT_STREQ(z_error_get(), "Cannot unlink file.\n\nError 13: Permission denied");
        EXPECT_EQ(get_info(name).size, 3);
        EXPECT_EQ(list(), (std::set<std::string>{name}));
    }
};

TEST_F(FsSystemWin32Test, PathsTakeTheirLiteralForm)
{
    const struct {
        const char *path;
        const wchar_t *literal;
        const char *back;
    } cases[] = {
        {"C:", L"\\\\?\\C:\\", "C:\\"},
        {"C:/a\\\\b\\.\\c\\..\\\u00E5\\", L"\\\\?\\C:\\a\\b\\\u00E5\\", "C:\\a\\b\\\u00E5\\"},
        {"\\\\server/share\\\u20AC", L"\\\\?\\UNC\\server\\share\\\u20AC", "\\\\server\\share\\\u20AC"},
    };
    for (const auto &[path, literal, back] : cases) {
        EXPECT_EQ(z_win32_make_path(path), literal) << path;
        EXPECT_STREQ(z_win32_path_to_utf8(literal).get(), back);
    }
}

TEST_F(FsSystemWin32Test, ABareDriveIsItsRoot)
{
    for (const char *drive : {"C:", "c:", "C:/"}) {
        EXPECT_TRUE(get_info(drive).is_folder) << drive;
        const z_folder_ptr folder = z_fs_utils_open_folder(drive);
        z_utf8_ptr name;
        bool has_system = false;
        while (z_fs_utils_next_folder_entry(folder.get(), name) && name != nullptr)
            has_system = has_system || g_ascii_strcasecmp(name.get(), "windows") == 0;
        EXPECT_TRUE(has_system) << drive;
        EXPECT_FALSE(z_fs_utils_create_folder_recursively(drive));
        EXPECT_STREQ(z_error_get(), "Cannot create folder.\n\nError 17: File exists") << drive;
    }
    for (const char *path : {"\\x", "\\\\x", "\\", "a/b"}) {
        std::string parent = path;
        z_fs_utils_strip_entry_name_from_path(parent.data());
        EXPECT_STREQ(parent.c_str(), "") << path;
    }
}

TEST_F(FsSystemWin32Test, AnAbsolutePathNamesItsDrive)
{
    for (const char *path : {"C:\\a", "c:/a", "\\\\server\\share", "\\\\?\\C:\\a"})
        EXPECT_TRUE(z_fs_path_is_absolute(path)) << path;
    for (const char *path : {"", "\\a", "/a", "a", "C:a", "C:", "1:\\a"})
        EXPECT_FALSE(z_fs_path_is_absolute(path)) << path;
}

TEST_F(FsSystemWin32Test, WhatIsNowhereDoesNotExist)
{
    for (const char *nowhere : {"", "Y:", "Y:\\folder\\file", "\\\\nowhere.invalid\\share\\file"}) {
        z_fs_info info;
        EXPECT_TRUE(z_fs_utils_get_info(nowhere, info) && !info.exists) << nowhere;
        EXPECT_EQ(z_fs_utils_open_file(nowhere, "rb"), nullptr);
        EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 2: No such file or directory") << nowhere;
        EXPECT_FALSE(z_fs_utils_create_folder_recursively(nowhere));
        EXPECT_STREQ(z_error_get(), "Cannot create folder.\n\nError 2: No such file or directory") << nowhere;
    }
}

// None of these may reach another file than the one that is named, nor wait for a device.
TEST_F(FsSystemWin32Test, NamesThatMeanSomethingElseAreRefused)
{
    write_file("file", "text");
    const std::string open_failure = "Cannot open file.\n\nError 22: Invalid argument";
    for (const char *name :
         {"con", "nul .x.y", "Aux.template", "com1", "LPT9.x", "com\u00B2", "conin$", "file.", "file ",
          "file. .", "file:stream", "fil?", "a|b", "a\x1f", "con\\file"}) {
        const std::string bad = path() + "\\" + name;
        EXPECT_EQ(z_fs_utils_open_file(bad.c_str(), "rb"), nullptr) << name;
        EXPECT_EQ(z_error_get(), open_failure) << name;
        EXPECT_FALSE(write(name, "x") || put(name, "x")) << name;
        EXPECT_FALSE(z_fs_utils_delete_file_if_exists(bad.c_str())) << name;
        EXPECT_EQ(z_fs_utils_open_folder(bad.c_str()), nullptr) << name;
        EXPECT_FALSE(z_fs_utils_rename(path("file").c_str(), bad.c_str())) << name;
    }
    for (const char *device : {"nul", "C:file", "\\\\.\\nul", "\\\\.\\pipe\\x", "\\\\?\\C:\\x",
                               "//./C:", "\\\\server\\pipe\\x", "//localhost/Mailslot/x", "\\\\a\\IPC$"}) {
        EXPECT_EQ(z_fs_utils_open_file(device, "wb"), nullptr) << device;
        EXPECT_EQ(z_error_get(), open_failure) << device;
    }
    EXPECT_EQ(z_fs_utils_open_file(path(std::string(256, 'x')).c_str(), "rb"), nullptr);
    EXPECT_EQ(z_fs_utils_get_last_errno(), ENAMETOOLONG);
    for (const char *good : {"console.template", "com10", "lpt.x", ".hidden", "a..b", "a b.c d"})
        EXPECT_TRUE(put(good, "x")) << good << ": " << z_error_get();
    EXPECT_EQ(read_file("file"), "text");
    EXPECT_EQ(list().size(), 7U);
}

// A file system that cannot list statuses may say so after it has begun.
TEST_F(FsSystemWin32Test, FoldersListEveryEntryWithoutStatuses)
{
    static bool has_begun = false;
    z_win32_list_entries =
        +[](HANDLE folder, FILE_INFO_BY_HANDLE_CLASS kind, void *buffer, DWORD size) WINAPI -> BOOL {
        SetLastError(ERROR_INVALID_PARAMETER);
        return !std::exchange(has_begun, true) && GetFileInformationByHandleEx(folder, kind, buffer, size);
    };
    write_file("folder/x", "");
    EXPECT_EQ(list_folder(path()), (std::set<std::string>{".", "..", "folder"}));
    EXPECT_TRUE(std::exchange(has_begun, false));
    z_win32_list_entries = GetFileInformationByHandleEx;
}

TEST_F(FsSystemWin32Test, PathsMayBeLong)
{
    std::string folder = path() + "\\";
    while (folder.size() < 600)
        folder += "folder with a long name \u00E5 \u20AC \U0001F600\\";
    ASSERT_TRUE(z_fs_utils_create_folder_recursively(folder.c_str())) << z_error_get();
    const std::string file = folder + "file", other = folder + "other/../other";
    EXPECT_TRUE(write(file, "old") && put(file, "text")) << z_error_get();
    EXPECT_TRUE(z_fs_utils_rename(file.c_str(), other.c_str())) << z_error_get();
    EXPECT_EQ(list_folder(folder), (std::set<std::string>{".", "..", "other"}));
    EXPECT_TRUE(z_fs_utils_delete_file_if_exists(other.c_str()));
    EXPECT_TRUE(z_fs_utils_delete_folder_if_exists(folder.c_str()) && !get_info(folder).exists);
}

// No text with half a character is valid, which keeps such a name out of every list, and such an argument.
TEST_F(FsSystemWin32Test, NamesWithHalfACharacterKeepTheirBytes)
{
    static std::vector<std::string> seen;
    const auto program = +[](int argc, char **argv) {
        EXPECT_EQ(argv[argc], nullptr);
        seen.assign(argv, argv + argc);
        return 7 + argc;
    };
    const wchar_t *arguments[] = {L"\xDE00 half \xD83D", L"\u00E5\u20AC\xD83D\xDE00", L"", nullptr};
    EXPECT_EQ(z_win32_run_with_wide_arguments(3, arguments, program), 10);
    EXPECT_EQ(seen,
              (std::vector<std::string>{"\xED\xB8\x80 half \xED\xA0\xBD", "\u00E5\u20AC\U0001F600", ""}));
}

TEST_F(FsSystemWin32Test, LinksAreFollowedAndStay)
{
    write_file("target", "old");
    const std::filesystem::path link = root / "link";
    if (!CreateSymbolicLinkW(link.c_str(), L"target", SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE) ||
        GetFileAttributesW(link.c_str()) == INVALID_FILE_ATTRIBUTES)
        GTEST_SKIP() << "The user may make no links here.";
    EXPECT_TRUE(put("link", "put") && read_file("target") == "put") << z_error_get();
    EXPECT_TRUE(write("link", "written") && read_file("target") == "written") << z_error_get();
    EXPECT_NE(GetFileAttributesW(link.c_str()) & FILE_ATTRIBUTE_REPARSE_POINT, 0U);
    EXPECT_TRUE(z_fs_utils_delete_file_if_exists(path("link").c_str()));
    EXPECT_EQ(list(), (std::set<std::string>{"target"}));
}

TEST_F(FsSystemWin32Test, OpenFilesHinderNobodyAndAreNotInherited)
{
    const z_file_ptr file = z_fs_utils_open_file(write_file("file", "a\r\n\x1A\n").c_str(), "r");
    char bytes[8];
    EXPECT_EQ(z_fs.read(file.get(), bytes, sizeof bytes), 5U);
    DWORD flags = HANDLE_FLAG_INHERIT;
    EXPECT_TRUE(GetHandleInformation(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file.get()))), &flags));
    EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0U);
    EXPECT_TRUE(z_fs_utils_rename(path("file").c_str(), path("moved").c_str())) << z_error_get();
    const z_file_ptr added = z_fs_utils_open_file(path("moved").c_str(), "a+");
    EXPECT_EQ(z_fs.write(added.get(), "\n", 1), 1U);
    EXPECT_EQ(z_fs.flush(added.get()) + z_fs.sync(added.get()), 0);
    EXPECT_EQ(read_file("moved"), "a\r\n\x1A\n\n");
}

TEST_F(FsSystemWin32Test, WhatMayNotBeWrittenIsLeftAlone)
{
    write_file("file", "old");
    for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        const std::filesystem::path place = root / "file";
        const HANDLE held =
            CreateFileW(place.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
        EXPECT_NE(held, INVALID_HANDLE_VALUE);
        expect_untouchable("file");
        EXPECT_FALSE(z_fs_utils_rename(path("file").c_str(), path("moved").c_str()));
        EXPECT_STREQ(z_error_get(), "Cannot rename file/folder.\n\nError 13: Permission denied");
        CloseHandle(held);
    }
    EXPECT_TRUE(SetFileAttributesW((root / "file").c_str(), FILE_ATTRIBUTE_READONLY));
    expect_untouchable("file");
    EXPECT_EQ(read_file("file"), "old");
    EXPECT_TRUE(SetFileAttributesW((root / "file").c_str(), FILE_ATTRIBUTE_NORMAL));
}

TEST_F(FsSystemWin32Test, HiddenFilesStayHidden)
{
    write_file("hidden", "the old text");
    EXPECT_TRUE(SetFileAttributesW((root / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN));
    for (const bool is_put : {false, true}) {
        EXPECT_TRUE(is_put ? put("hidden", "new") : write("hidden", "new")) << z_error_get();
        EXPECT_NE(GetFileAttributesW((root / "hidden").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
        EXPECT_EQ(read_file("hidden"), "new");
    }
    EXPECT_NE(z_fs_utils_open_file(path("hidden").c_str(), "wb"), nullptr) << z_error_get();
    EXPECT_EQ(read_file("hidden"), "");
}

} // namespace
