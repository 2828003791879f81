#include "common/workspace/platform.h"

#include <cstdlib>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "common/model/supported_languages.h"
#include "common/workspace/folder_lock.h"
#include "tests/support/fs_faults.h"
#include "tests/support/user_sandbox.h"

namespace {

using PlatformTest = UserSandboxTest;

TEST_F(PlatformTest, FindsTheLanguageOfTheFirstLocaleThatIsSupported)
{
    const struct {
        std::vector<const char *> locales;
        const char *tag;
    } cases[] = {
        {{"de_AT.UTF-8", "de_AT", "de", "C"}, "de-at"},
        {{"en_GB", "C"}, "en-uk"},
        {{"en_IN", "sv"}, "en"},
        {{"ja_JP", "ja", "sv_SE@euro", "C"}, "sv"},
        {{"pt_BR.ISO-8859-1"}, "pt-br"},
        {{"svenska", "no"}, "no"},
        {{"zh_CN", "C", "POSIX", ""}, nullptr},
        {{}, nullptr},
    };
    for (const auto &c : cases) {
        const int index = z_platform_get_language_index_for_locales(c.locales);
        EXPECT_STREQ(index >= 0 ? z_supported_languages_get_tag(index) : nullptr, c.tag);
    }
    EXPECT_STREQ(z_supported_languages_get_tag(z_platform_get_user_language_index()), "sv");
}

TEST_F(PlatformTest, TheInstallationLiesWithTheProgramOrBesideItsBinFolder)
{
    static const char *executable;
    z_platform.get_executable_path = +[] { return g_strdup(executable); };
    const struct {
        const char *executable, *folder;
    } cases[] = {
        {"/opt/zanvel/zanvel-template", "/opt/zanvel"},
        {"/usr/bin/zanvel-template", "/usr/share/zanvel-templates-manager"},
        {"/bin/zanvel-template", "/share/zanvel-templates-manager"},
        {"/usr/cabin/zanvel-template", "/usr/cabin"},
    };
    for (const auto &c : cases) {
        executable = c.executable;
        EXPECT_STREQ(z_platform_get_install_folder_path().get(), c.folder);
    }
    executable = nullptr;
    EXPECT_EQ(z_platform_get_install_folder_path(), nullptr);
    EXPECT_STREQ(z_error_get(), "Error getting exe path from system.");
}

TEST_F(PlatformTest, TheTemporaryFolderIsTheUsersAlone)
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

TEST_F(PlatformTest, APlantedTemporaryFolderIsRefused)
{
    std::filesystem::create_directories(root / "home/.cache");
    std::filesystem::create_directories(root / "elsewhere");
    std::filesystem::create_directory_symlink(root / "elsewhere", root / "home/.cache/Zanvel");
    EXPECT_EQ(z_platform_get_temp_files_folder_path(), nullptr);
    EXPECT_STREQ(z_error_get(), "Couldn't get system temp path.");
}

TEST_F(PlatformTest, TellsWhetherTwoPathsAreOneFile)
{
    write_file("a/one", "x");
    write_file("a/two", "x");
    std::filesystem::create_directory_symlink(root / "a", root / "b");
    const auto same = [this](const char *a, const char *b) {
        return z_platform_compare_file_system_paths(path(a).c_str(), path(b).c_str());
    };
    EXPECT_TRUE(same("a/one", "b//one"));
    EXPECT_TRUE(same("a", "b"));
    EXPECT_FALSE(same("a/one", "a/two"));
    EXPECT_FALSE(same("a/none", "a/none"));
}

struct RegistryTest : UserSandboxTest {
    static constexpr const char *file = "home/.config/Zanvel/registry.ini";

    static std::string read(const char *name)
    {
        z_utf8_ptr value;
        if (!z_platform_read_string_from_registry(value, "Software\\Zanvel", name))
            return std::string("failed: ") + z_error_get();
        return value != nullptr ? value.get() : "none";
    }
    static bool write(const char *name, const char *text)
    {
        return z_platform_write_string_to_registry("Software\\Zanvel", name, text);
    }
    static bool remove(const char *name)
    {
        return z_platform_delete_value_in_registry("Software\\Zanvel", name);
    }
};

TEST_F(RegistryTest, KeepsTextsOfAllKinds)
{
    EXPECT_EQ(read("Path"), "none");
    EXPECT_TRUE(remove("Path"));
    EXPECT_FALSE(exists("home/.config"));
    for (const char *text :
         {"/home/a b/ Zanvel ", "", "  two\nlines\t\\ ; # [x]", "M\u00e5ns \u2014 \U0001F600"}) {
        ASSERT_TRUE(write("Path", text)) << z_error_get();
        EXPECT_EQ(read("Path"), text);
    }
    EXPECT_TRUE(write("Other", "1"));
    EXPECT_TRUE(remove("Path"));
    EXPECT_TRUE(remove("Path"));
    EXPECT_EQ(read("Path"), "none");
    EXPECT_EQ(read("Other"), "1");
}

TEST_F(RegistryTest, LeavesAFileAloneThatItCannotRead)
{
    const std::string parsing = "failed: Error parsing value in the Windows registry.\n\n";
    for (const char *bytes : {"no key file", "[Software\\Zanvel]\nOther=1\n["}) {
        write_file(file, bytes);
        EXPECT_EQ(read("Path").find(parsing), 0u) << read("Path");
        EXPECT_FALSE(write("Path", "x"));
        EXPECT_FALSE(remove("Path"));
        EXPECT_EQ(read_file(file), bytes);
    }
    write_file(file, "[Software\\Zanvel]\nPath=bad \\q escape\n");
    EXPECT_EQ(read("Path").find(parsing), 0u);
    EXPECT_EQ(read("Other"), "none");

    std::filesystem::remove(root / file);
    std::filesystem::create_directory(root / file);
    EXPECT_EQ(read("Path").find("failed: Error opening key in the Windows registry.\n\n"), 0u);
    EXPECT_FALSE(write("Path", "x"));
}

TEST_F(RegistryTest, AFailureAtAnyStepOfAWriteLeavesTheOldValue)
{
    ASSERT_TRUE(write("Path", "old"));
    for (int step = 0;; ++step) {
        bool written;
        {
            const FsFaults faults(step);
            written = write("Path", "new");
            if (!faults.has_struck())
                break;
        }
        EXPECT_EQ(read("Path"), written ? "new" : "old") << step;
        ASSERT_TRUE(write("Path", "old"));
    }
    EXPECT_EQ(read("Path"), "new");
}

TEST_F(RegistryTest, WaitsForAnotherProgramButNotForEver)
{
    ASSERT_TRUE(write("Path", "1"));
    const int other = open(path("home/.config/Zanvel").c_str(), O_RDONLY);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    EXPECT_FALSE(write("Path", "2"));
    EXPECT_EQ(std::string(z_error_get()).find("Error creating/opening key in the Windows registry.\n\n"), 0u);
    EXPECT_EQ(read("Path"), "1");
    close(other);
    EXPECT_TRUE(write("Path", "3"));
}

} // namespace
