#include "common/workspace/platform.h"

#include <cerrno>
#include <vector>

#include <glib/gstdio.h>

#include "common/model/supported_languages.h"
#include "tests/support/user_sandbox.h"

namespace {

using PlatformTest = UserSandboxTest;

TEST_F(PlatformTest, FindsTheLanguageOfTheFirstLocaleThatIsSupported)
{
    const struct {
        std::vector<const char *> locales;
        const char *tag;
    } cases[] = {
        {{"de_AT.UTF-8", "de_AT", "de", "C"}, "de-at"}, {{"en_GB", "C"}, "en-uk"},
        {{"ja_JP", "ja", "sv_SE@euro", "C"}, "sv"},     {{"svenska", "no"}, "no"},
        {{"zh_CN", "C", "POSIX", ""}, nullptr},
    };
    for (const auto &c : cases) {
        const int index = z_platform_get_language_index_for_locales(c.locales);
        EXPECT_STREQ(index >= 0 ? z_supported_languages_get_tag(index) : nullptr, c.tag);
    }
    EXPECT_STREQ(z_supported_languages_get_tag(z_platform_get_user_language_index()), "sv");
}

TEST_F(PlatformTest, FindsTheLanguageOfANumber)
{
    const auto get_tag = [](int identifier) -> const char * {
        const int index = z_platform_get_language_index_for_identifier(static_cast<uint16_t>(identifier));
        return index < 0 ? nullptr : z_supported_languages_get_tag(index);
    };
    const struct {
        int identifier;
        const char *tag;
    } cases[] = {
        {0x0813, "nl-be"}, {0x0809, "en-uk"}, {0x0414, "nb"},
        {0x0411, nullptr}, {0x540A, "es-us"}, {0xFC0A, "es"},
    };
    for (const auto &[identifier, tag] : cases)
        EXPECT_STREQ(get_tag(identifier), tag) << identifier;
    // Every dialect of a known language has a tag, and one of that language.
    for (int identifier = 0; identifier <= 0xFFFF; ++identifier) {
        const char *language = get_tag(identifier & 0x3FF);
        const char *tag = get_tag(identifier);
        ASSERT_EQ(language == nullptr, tag == nullptr) << identifier;
        ASSERT_TRUE(tag == nullptr || tag[0] == language[0]) << identifier;
    }
}

TEST_F(PlatformTest, DatesAreWrittenAsTheUserDoes)
{
    z_platform.format_date =
        +[](int year, int month, int day) { return g_strdup_printf("%d/%d/%d", day, month, year); };
    EXPECT_STREQ(z_platform_get_date_string({2024, 2, 29}).get(), "29/2/2024");
    for (const z_platform_date &date : {z_platform_date{2023, 2, 29}, {1900, 2, 29}, {10000, 1, 1}})
        EXPECT_EQ(z_platform_get_date_string(date), nullptr) << date.year;
}

TEST_F(PlatformTest, EachStepToATemporaryFileSaysThatItFailed)
{
    static std::string folder;
    folder = path();
    z_platform.get_system_temp_folder_path = +[] { return g_strdup(folder.c_str()); };
    z_file_ptr file = z_platform_create_temp_file();
    ASSERT_NE(file, nullptr) << z_error_get();
    EXPECT_GE(std::fputs("text\n\x1A", file.get()), 0);
    std::rewind(file.get());
    char bytes[10] = {};
    EXPECT_EQ(std::fread(bytes, 1, sizeof bytes, file.get()), 6u);
    EXPECT_STREQ(bytes, "text\n\x1A");
    file.reset();
    EXPECT_EQ(list(), (std::set<std::string>{"home", "install"}));

    static z_platform_calls real;
    real = z_platform;
    const struct {
        const char *message;
        void (*fail)();
    } cases[] = {
        {"Error retrieving system temp path.",
         [] { z_platform.get_system_temp_folder_path = [] { return static_cast<char *>(nullptr); }; }},
        {"Error generating temp file name.\n\nError 2: No such file or directory",
         [] {
             z_platform.make_temp_file_path = [](const char *) {
                 return errno = ENOENT, static_cast<char *>(nullptr);
             };
         }},
        {"Error creating system temp file.\n\nError 2: No such file or directory",
         [] {
             z_platform.make_temp_file_path = [](const char *) {
                 return g_strconcat(folder.c_str(), "/none/zanXXXXXX", nullptr);
             };
         }},
        {"Error translating temp file handle.\n\nError 2: No such file or directory",
         [] {
             z_platform.get_file_descriptor = [](intptr_t handle) {
                 g_close(real.get_file_descriptor(handle), nullptr);
                 return errno = ENOENT, -1;
             };
         }},
        {"Error opening new temp file.\n\nError 2: No such file or directory",
         [] {
             z_platform.open_file_descriptor = [](int, const char *) {
                 return errno = ENOENT, static_cast<FILE *>(nullptr);
             };
         }},
    };
    for (const auto &[message, fail] : cases) {
        z_platform = real;
        fail();
        EXPECT_EQ(z_platform_create_temp_file(), nullptr);
        EXPECT_STREQ(z_error_get(), message);
    }
    EXPECT_EQ(list(), (std::set<std::string>{"home", "install"}));
}

TEST_F(PlatformTest, TheInstallationLiesWithTheProgramOrBesideItsBinFolder)
{
    static std::string executable;
    z_platform.get_executable_path = +[] { return g_strdup(executable.c_str()); };
    write_file("usr/share/zanvel-templates-manager/templates/a.template", "");
    const struct {
        const char *executable, *folder;
    } cases[] = {
        {"usr/bin/program", "usr/share/zanvel-templates-manager"},
        {"usr/cabin/program", "usr/cabin"},
        {"portable/bin/program", "portable/bin"},
    };
    for (const auto &c : cases) {
        executable = path(c.executable);
        EXPECT_EQ(z_platform_get_install_folder_path().get(), path(c.folder));
    }
    z_platform.get_executable_path = +[]() -> char * { return nullptr; };
    EXPECT_EQ(z_platform_get_install_folder_path(), nullptr);
    EXPECT_STREQ(z_error_get(), "Error getting exe path from system.");
}

TEST_F(PlatformTest, CommandLinesAreSplitWhereTheyWereEscaped)
{
    const struct {
        const char *line;
        std::vector<std::string> arguments; // none: starts nothing
    } cases[] = {
        {R"("a b" "" c"d e"f)", {"a b", "", "cd ef"}},
        {R"(C:\dir\ \\x "C:\dir\x\\y")", {R"(C:\dir\)", R"(\\x)", R"(C:\dir\x\\y)"}},
        {R"~("say \"$(rm)\" 'now'" \"x y")~", {R"~(say "$(rm)" 'now')~", R"(\x y)"}},
        {R"("C:\dir\")", {}},
        {"a \"b", {}},
        {" \t", {}},
    };
    for (const auto &[line, arguments] : cases) {
        const z_utf8_strv_ptr split = z_platform_split_command_line(line);
        ASSERT_EQ(arguments.empty(), split == nullptr) << line;
        for (size_t i = 0; i < arguments.size(); ++i)
            EXPECT_EQ(arguments[i], split.get()[i]) << line;
        EXPECT_TRUE(split == nullptr || split.get()[arguments.size()] == nullptr);
    }
    for (const char *text : {"", "a b", "\\\"", "$(x) `y` %PATH% *"}) {
        const z_utf8_ptr escaped = z_platform_escape_string_for_command_line(text);
        EXPECT_STREQ(text, z_platform_split_command_line(escaped.get()).get()[0]);
    }
}

TEST_F(PlatformTest, PrintingNeedsRoomOnTheDisk)
{
    z_platform.get_process_id = +[] { return uint32_t{0x1a2c}; };
    EXPECT_EQ(z_platform_get_temp_legacy_printout_file_path().get(),
              path("home/.cache/Zanvel/temp00001a2c.odt"));
    uint64_t real = 0;
    EXPECT_TRUE(!z_platform.get_free_disk_space(&real) || real > 0);

    static uint64_t byte_count;
    static bool can_tell;
    z_platform.get_free_disk_space = +[](uint64_t *result) {
        *result = byte_count;
        return can_tell;
    };
    const struct {
        uint64_t byte_count;
        bool can_tell, is_enough_for_less, is_enough;
    } cases[] = {
        {0, false, true, true},           {149'999'999, true, false, false},
        {150'000'000, true, true, false}, {199'999'999, true, true, false},
        {200'000'000, true, true, true},  {uint64_t{1} << 32, true, true, true},
    };
    z_error_set_not_enough_diskspace();
    const std::string message = z_error_get();
    for (const auto &c : cases) {
        byte_count = c.byte_count;
        can_tell = c.can_tell;
        for (const bool smaller : {false, true}) {
            z_error_clear();
            const bool is_enough = smaller ? c.is_enough_for_less : c.is_enough;
            EXPECT_EQ(z_platform_has_enough_disk_space_for_printing(smaller), is_enough) << c.byte_count;
            EXPECT_EQ(z_error_get(), is_enough ? "" : message);
        }
    }
}

TEST_F(PlatformTest, TellsWhetherTwoPathsAreOneFile)
{
    write_file("a/one", "x");
    write_file("a/two", "x");
    const auto same = [this](const char *a, const char *b) {
        return z_platform_compare_file_system_paths(path(a).c_str(), path(b).c_str());
    };
    EXPECT_TRUE(same("a/one", "a/../a//one"));
    EXPECT_TRUE(same("a", "a/"));
    EXPECT_FALSE(same("a/one", "a/two"));
    EXPECT_FALSE(same("a/none", "a/none"));
}

using RegistryTest = RegistrySandboxTest;

TEST_F(RegistryTest, KeepsTextsOfAllKinds)
{
    EXPECT_EQ(read("Path"), "none");
    EXPECT_TRUE(remove("Path"));
    for (const char *text : {"", "  two\nlines\t\\ ; # [x]", "M\u00e5ns \u2014 \U0001F600"}) {
        ASSERT_TRUE(write("Path", text)) << z_error_get();
        EXPECT_EQ(read("Path"), text);
    }
    EXPECT_TRUE(write("Other", "1"));
    EXPECT_TRUE(remove("Path"));
    EXPECT_EQ(read("Path"), "none");
    EXPECT_EQ(read("Other"), "1");
}

} // namespace
