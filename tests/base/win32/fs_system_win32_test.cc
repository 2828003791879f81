#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "common/base/fs_system.h"
#include "common/base/stream.h"
#include "common/base/win32/path_win32.h"
#include "tests/support/open_handles.h"
#include "tests/support/sandbox.h"

namespace {

// Another program's hold on a file.
class Held {
public:
    Held(const std::filesystem::path &path, DWORD access, DWORD share)
        : handle(CreateFileW(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        EXPECT_NE(handle, INVALID_HANDLE_VALUE);
    }
    Held(const Held &) = delete;
    Held &operator=(const Held &) = delete;
    ~Held()
    {
        CloseHandle(handle);
    }

private:
    HANDLE handle;
};

struct FsSystemWin32Test : SandboxTest {
    const OpenHandles handles;

    static bool write(const std::string &file, std::string_view text)
    {
        z_output_stream_ptr stream = z_output_stream_new_for_file_path(file.c_str());
        const bool is_written = z_output_stream_write(stream.get(), text.data(), text.size());
        return z_output_stream_destroy(std::move(stream)) && is_written;
    }
    static bool put(const std::string &file, std::string_view text)
    {
        return z_fs_utils_put_file(file.c_str(), text.data(), text.size(), z_fs_existing::replace);
    }
    static z_fs_info get_info(const std::string &file)
    {
        z_fs_info info;
        EXPECT_TRUE(z_fs_utils_get_info(file.c_str(), info)) << file << ": " << z_error_get();
        return info;
    }
    static std::set<std::string> list_folder(const char *path)
    {
        const z_folder_ptr folder = z_fs_utils_open_folder(path);
        EXPECT_NE(folder, nullptr) << z_error_get();
        std::set<std::string> names;
        z_utf8_ptr name;
        while (folder != nullptr && z_fs_utils_next_folder_entry(folder.get(), name) && name != nullptr)
            names.insert(name.get());
        return names;
    }
    [[nodiscard]] DWORD get_attributes(const char *name) const
    {
        return GetFileAttributesW((root / name).c_str());
    }
};

TEST_F(FsSystemWin32Test, DelimitersAloneNameNothing)
{
    EXPECT_STREQ(z_fs_utils_create_path_in_folder("\\\\", "a").get(), "a");
    EXPECT_STREQ(z_fs_utils_end_folder_path_with_a_single_delimiter("C:").get(), "C:\\");
    for (const char *path : {"\\x", "\\\\x", "\\", "a/b"}) {
        std::string parent = path;
        z_fs_utils_strip_entry_name_from_path(parent.data());
        EXPECT_STREQ(parent.c_str(), "") << path;
    }
}

TEST_F(FsSystemWin32Test, ABareDriveIsItsRoot)
{
    for (const char *drive : {"C:", "c:", "C:\\", "C:\\\\", "C:/"}) {
        EXPECT_TRUE(get_info(drive).is_folder) << drive;
        EXPECT_EQ(list_folder(drive).count("windows") + list_folder(drive).count("Windows"), 1U) << drive;
        EXPECT_FALSE(z_fs_utils_create_folder_recursively(drive));
        EXPECT_STREQ(z_error_get(), "Cannot create folder.\n\nError 17: File exists") << drive;
    }
    const std::filesystem::path old_folder = std::filesystem::current_path();
    std::filesystem::current_path(root); // where the system would look
    EXPECT_EQ(list_folder("C:").count("file"), 0U);
    EXPECT_EQ(z_fs_utils_open_file("C:file", "wb"), nullptr);
    std::filesystem::current_path(old_folder);
}

TEST_F(FsSystemWin32Test, WhatIsNowhereDoesNotExist)
{
    for (const char *nowhere : {"", "Y:", "Y:\\folder\\file", "\\\\nowhere.invalid\\share\\file"}) {
        EXPECT_FALSE(get_info(nowhere).exists) << nowhere;
        EXPECT_EQ(z_fs_utils_open_file(nowhere, "rb"), nullptr);
        EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 2: No such file or directory") << nowhere;
        EXPECT_FALSE(z_fs_utils_create_folder_recursively(nowhere));
        EXPECT_STREQ(z_error_get(), "Cannot create folder.\n\nError 2: No such file or directory") << nowhere;
        EXPECT_FALSE(put(nowhere, "text"));
    }
}

// None of these may reach another file than the one that is named, nor wait for a device.
TEST_F(FsSystemWin32Test, NamesThatMeanSomethingElseAreRefused)
{
    write_file("file", "text");
    const std::string open_failure = "Cannot open file.\n\nError 22: Invalid argument";
    for (const char *name :
         {"con",       "con.template", "NUL",   "nul .x.y", "Aux.template", "com1",        "LPT9.x",
          "com\u00B2", "conin$",       "file.", "file ",    "file. .",      "file:stream", "fil?",
          "fil*",      "a<b",          "a|b",   "a\"b",     "a\x1f",        "con\\file"}) {
        const std::string bad = path() + "\\" + name;
        EXPECT_EQ(z_fs_utils_open_file(bad.c_str(), "rb"), nullptr) << name;
        EXPECT_EQ(z_error_get(), open_failure) << name;
        EXPECT_FALSE(write(bad, "x") || put(bad, "x")) << name;
        EXPECT_FALSE(z_fs_utils_delete_file_if_exists(bad.c_str())) << name;
        EXPECT_EQ(z_fs_utils_open_folder(bad.c_str()), nullptr) << name;
        EXPECT_FALSE(z_fs_utils_rename(path("file").c_str(), bad.c_str())) << name;
    }
    for (const char *device : {"nul", "\\\\.\\nul", "\\\\.\\pipe\\x", "\\\\?\\C:\\x", "//./C:"}) {
        EXPECT_EQ(z_fs_utils_open_file(device, "wb"), nullptr) << device;
        EXPECT_EQ(z_error_get(), open_failure) << device;
    }
    for (const char *good : {"console.template", "com10", "lpt.x", ".hidden", "a..b", "a b.c d"})
        EXPECT_TRUE(put(path(good), "x")) << good << ": " << z_error_get();
    EXPECT_EQ(read_file("file"), "text");
    EXPECT_EQ(list().size(), 7U);
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
    EXPECT_EQ(get_info(other).size, 4);
    EXPECT_TRUE(z_fs_utils_delete_file_if_exists(other.c_str()) && !get_info(other).exists);
    EXPECT_TRUE(z_fs_utils_delete_folder_if_exists(folder.c_str()) && !get_info(folder).exists);
    EXPECT_FALSE(put(path(std::string(300, 'x')), "x"));
}

// They are valid nowhere else, which keeps them out of every list.
TEST_F(FsSystemWin32Test, NamesWithHalfACharacterKeepTheirBytes)
{
    EXPECT_EQ(z_win32_name_to_bytes(L"\xDE00 half \xD83D"), "\xED\xB8\x80 half \xED\xA0\xBD");
    EXPECT_EQ(z_win32_name_to_bytes(L"\u00E5\u20AC\xD83D\xDE00"), "\u00E5\u20AC\U0001F600");
    write_file("\u00E5\u20AC\U0001F600", "");
    EXPECT_EQ(list_folder(path().c_str()), (std::set<std::string>{".", "..", "\u00E5\u20AC\U0001F600"}));
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

TEST_F(FsSystemWin32Test, WhatAnotherProgramHoldsIsLeftAlone)
{
    for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        write_file("held", "old");
        {
            const Held held(root / "held", GENERIC_READ, share);
            EXPECT_FALSE(write(path("held"), "new"));
            EXPECT_FALSE(put(path("held"), "new"));
            EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 13: Permission denied");
            EXPECT_FALSE(z_fs_utils_delete_file_if_exists(path("held").c_str()));
            EXPECT_STREQ(z_error_get(), "Cannot unlink file.\n\nError 13: Permission denied");
            EXPECT_FALSE(z_fs_utils_rename(path("held").c_str(), path("moved").c_str()));
            EXPECT_STREQ(z_error_get(), "Cannot rename file/folder.\n\nError 13: Permission denied");
            EXPECT_EQ(get_info(path("held")).size, 3);
        }
        EXPECT_EQ(read_file("held"), "old");
        EXPECT_EQ(list(), (std::set<std::string>{"held"}));
    }
}

TEST_F(FsSystemWin32Test, ReadOnlyFilesAreLeftAlone)
{
    write_file("read-only", "old");
    SetFileAttributesW((root / "read-only").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(write(path("read-only"), "new"));
    EXPECT_FALSE(put(path("read-only"), "new"));
    EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 13: Permission denied");
    EXPECT_FALSE(z_fs_utils_delete_file_if_exists(path("read-only").c_str()));
    EXPECT_EQ(read_file("read-only"), "old");
    SetFileAttributesW((root / "read-only").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(FsSystemWin32Test, HiddenFilesStayHidden)
{
    write_file("hidden", "the old text");
    SetFileAttributesW((root / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    for (const auto &change : {write, put}) {
        EXPECT_TRUE(change(path("hidden"), "new")) << z_error_get();
        EXPECT_NE(get_attributes("hidden") & FILE_ATTRIBUTE_HIDDEN, 0U);
        EXPECT_EQ(read_file("hidden"), "new");
    }
    EXPECT_NE(z_fs_utils_open_file(path("hidden").c_str(), "wb"), nullptr) << z_error_get();
    EXPECT_EQ(read_file("hidden"), "");
}

TEST_F(FsSystemWin32Test, EveryStateOfAFileHasItsIdentity)
{
    const std::string file = write_file("file", "a");
    z_fs_identity first, second, other;
    ASSERT_TRUE(z_fs_utils_get_identity(file.c_str(), first) && first.is_file);
    write_file("other", "a");
    ASSERT_TRUE(z_fs_utils_get_identity(path("other").c_str(), other));
    EXPECT_EQ(first.device, other.device);
    EXPECT_NE(first.file_number, other.file_number);
    const std::string upper = path("FILE");
    ASSERT_TRUE(z_fs_utils_get_identity(upper.c_str(), second));
    EXPECT_EQ(first, second);
    EXPECT_EQ(first.modification_time_ns / 1'000'000'000, get_info(file).modification_time);
    ASSERT_TRUE(put(file, "b") && z_fs_utils_get_identity(file.c_str(), second));
    EXPECT_NE(first, second);
}

} // namespace
