#include "common/workspace/settings.h"
#include "tests/support/fs_faults.h"
#include "tests/support/user_sandbox.h"

namespace {

struct SettingsFileTest : UserSandboxTest {
    const z_settings_ptr settings = z_settings_new(path().c_str());

    bool load(std::string_view elements) const
    {
        write_file("settings.xml", "<settings>" + std::string(elements) + "</settings>");
        return z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING);
    }
    // As a new file.
    std::string save_anew(z_settings *saved) const
    {
        std::filesystem::remove(root / "settings.xml");
        EXPECT_TRUE(z_settings_save(saved, Z_SETTINGS_EVERYTHING)) << z_error_get();
        return read_file("settings.xml");
    }
};

constexpr const char *everything =
    R"(<?xml version="1.0" encoding="UTF-8"?>
<settings>
  <archive path="/a"/>
  <automatically-place-id active="true"/>
  <default-mark-id-style style="2"/>
  <default-printout-settings>
    <identifier setting="Inventory ID or Object ID"/>
    <layout filename="l.layout"/>
    <paper name="A3" orientation="Landscape"/>
    <details show-on-text-page="false" show-on-view-pages="true"/>
    <legend show-on-text-page="true" show-on-view-pages="false")"
    R"( text-page-codeset-filter-level="From all codesets" text-page-mark-filter-level="From this view only")"
    R"( view-page-codeset-filter-level="From no codeset" view-page-mark-filter-level="From no view"/>
    <page-numbers show="false"/>
    <report-type show="false"/>
  </default-printout-settings>
  <export>
    <folder path="/e"/>
  </export>
  <last-used-layout filename="u.layout"/>
  <last-used-paper id="A5_L"/>
  <left-handed active="true"/>
  <preferred-languages>
    <language tag="fr"/>
    <language tag="de-at"/>
  </preferred-languages>
  <recent-custom-remarks>
    <remark>
      <code>B</code>
      <description lang="en">Crack</description>
    </remark>
    <remark>
      <code>A</code>
      <description lang="sv">Spricka</description>
    </remark>
  </recent-custom-remarks>
  <remember-tool-choice active="true"/>
</settings>
)";

TEST_F(SettingsFileTest, ReadsAndWritesEveryItem)
{
    EXPECT_TRUE(z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING));
    EXPECT_NE(save_anew(settings.get()), everything);
    write_file("settings.xml", everything);
    EXPECT_TRUE(z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING));
    EXPECT_EQ(save_anew(settings.get()), everything);
}

TEST_F(SettingsFileTest, WhatDoesNotParseLeavesTheDefaults)
{
    EXPECT_TRUE(load(R"(<archive/><automatically-place-id active="True"/>
        <default-mark-id-style style="7"/><default-mark-id-style style="x"/>
        <default-printout-settings><identifier setting="?"/><paper/><details/>
        <legend text-page-codeset-filter-level="?"/></default-printout-settings>
        <export><other path="x"/></export><left-handed active="yes"/>
        <recent-custom-remarks><remark><code>B</code></remark></recent-custom-remarks>)"));
    EXPECT_EQ(save_anew(settings.get()), save_anew(z_settings_new(path().c_str()).get()));
}

TEST_F(SettingsFileTest, ATagBeyondAsciiFailsAfterReadingTheRest)
{
    EXPECT_FALSE(load("<preferred-languages><language tag=\"fr\"/><language tag=\"\u00e5\"/><language/>"
                      "<language tag=\"de\"/></preferred-languages><left-handed active=\"true\"/>"));
    EXPECT_TRUE(settings->is_left_handed);
    EXPECT_STREQ(settings->preferred_languages.get_last()->tag.get(), "de");
}

TEST_F(SettingsFileTest, NeitherLoadsNorWritesWhatIsNoSettingsFile)
{
    std::string huge = "<settings>";
    while (huge.size() < 4'200'000)
        huge += "<x/>";
    for (const std::string &bytes :
         {std::string(), std::string("<settings"), std::string("<template/>"), huge + "</settings>"}) {
        z_error_clear();
        write_file("settings.xml", bytes);
        EXPECT_FALSE(z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING)) << bytes.substr(0, 20);
        EXPECT_STRNE(z_error_get(), "");
        EXPECT_FALSE(z_settings_save(settings.get(), Z_SETTINGS_EVERYTHING));
        EXPECT_TRUE(read_file("settings.xml") == bytes);
    }
}

TEST_F(SettingsFileTest, SavingKeepsWhatItDoesNotWrite)
{
    write_file("settings.xml",
               "<settings><!-- mine --><other a='1'>two <b>words</b> <i>here</i></other>"
               "<spaced xml:space='preserve'> <b/> </spaced>\n\n\n<left-handed active='false' x='1'/>"
               "<export><folder path='/old'/><extra/><folder path='/older'/></export><lone> </lone>"
               "<left-handed active='true'/></settings>");
    z_settings_set_left_handed(settings.get(), true);
    z_settings_set_export_folder_path(settings.get(), "/m\u00e5l");
    ASSERT_TRUE(z_settings_save(settings.get(), settings->changed_items));
    EXPECT_EQ(settings->changed_items, 0u);
    EXPECT_EQ(read_file("settings.xml"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<settings>\n"
              "  <!-- mine -->\n"
              "  <other a=\"1\">two <b>words</b> <i>here</i></other>\n"
              "  <spaced xml:space=\"preserve\"> <b/> </spaced>\n"
              "  <left-handed active=\"true\" x=\"1\"/>\n"
              "  <export>\n    <folder path=\"/m\u00e5l\"/>\n    <extra/>\n  </export>\n"
              "  <lone> </lone>\n</settings>\n");
}

TEST_F(SettingsFileTest, ProgramsThatSaveOneAfterTheOtherLoseNothing)
{
    static size_t lock_count;
    lock_count = 0;
    z_platform.lock_folder = [](const char *) -> intptr_t { return ++lock_count, z_platform_no_lock; };
    void (*const changes[])(z_settings *) = {
        [](z_settings *program) { z_settings_set_archive_path(program, "/a"); },
        [](z_settings *program) { z_settings_set_default_mark_id_style(program, 1); },
        [](z_settings *program) { z_settings_set_last_used_legacy_paper_id(program, "p"); },
        [](z_settings *program) { z_settings_set_remember_tool_choice(program, true); },
        [](z_settings *program) {
            z_settings_destroy_preferred_languages(program);
            z_settings_add_preferred_language(program, z_settings_language_new("is"));
        },
    };
    for (const auto change : changes) {
        const z_settings_ptr program = z_settings_new(path().c_str());
        change(program.get());
        EXPECT_TRUE(z_settings_save(program.get(), program->changed_items)) << z_error_get();
    }
    EXPECT_EQ(lock_count, std::size(changes));
    EXPECT_EQ(read_file("settings.xml"), R"(<?xml version="1.0" encoding="UTF-8"?>
<settings>
  <archive path="/a"/>
  <default-mark-id-style style="1"/>
  <last-used-paper id="p"/>
  <remember-tool-choice active="true"/>
  <preferred-languages>
    <language tag="is"/>
  </preferred-languages>
</settings>
)");
}

TEST_F(SettingsFileTest, AFailureAtAnyStepOfASaveLeavesTheFileAndTheChange)
{
    write_file("settings.xml", "<settings/>");
    z_settings_set_archive_path(settings.get(), "\x01");
    EXPECT_FALSE(z_settings_save(settings.get(), Z_SETTINGS_EVERYTHING));
    for (int step = 0;; ++step) {
        write_file("settings.xml", "<settings/>");
        z_settings_set_archive_path(settings.get(), "/a");
        const FsFaults faults(step);
        const bool is_saved = z_settings_save(settings.get(), Z_SETTINGS_ARCHIVE);
        EXPECT_EQ(is_saved, settings->changed_items == 0) << step;
        EXPECT_EQ(is_saved, read_file("settings.xml") != "<settings/>") << step;
        if (!faults.has_struck())
            break;
    }
    EXPECT_NE(read_file("settings.xml").find("<archive path=\"/a\"/>"), std::string::npos);
}

} // namespace
