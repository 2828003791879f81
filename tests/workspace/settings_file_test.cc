#include <sstream>

#include "common/workspace/settings.h"
#include "tests/support/fs_faults.h"
#include "tests/support/langstr_text.h"
#include "tests/support/user_sandbox.h"

namespace {

struct SettingsFileTest : UserSandboxTest {
    const z_settings_ptr settings = z_settings_new(path().c_str());

    bool load(std::string_view elements, uint32_t items = Z_SETTINGS_EVERYTHING) const
    {
        write_file("settings.xml", "<settings>" + std::string(elements) + "</settings>");
        return z_settings_load(settings.get(), items);
    }
    // Every item of the record in one text, so that a change of a wrong one shows.
    std::string show() const
    {
        const z_printout_settings &printout = settings->default_printout;
        std::ostringstream text;
        const auto show_page = [&text](const z_page_filter_settings &page) {
            text << page.shows_details << page.shows_legend << static_cast<int>(page.codeset_filter_level)
                 << static_cast<int>(page.mark_filter_level) << " ";
        };
        const char *layout = printout.layout_file_name.get();
        text << "archive=" << settings->archive_path.get() << " place=" << settings->automatically_places_id
             << " style=" << settings->default_mark_id_style
             << " printout=" << static_cast<int>(printout.identifier) << ","
             << (layout != nullptr ? layout : "none") << "," << printout.paper_name.get() << ","
             << printout.is_landscape << " ";
        show_page(printout.text_page);
        show_page(printout.view_page);
        text << printout.shows_page_numbers << printout.shows_report_type
             << " export=" << settings->export_folder_path.get()
             << " layout=" << settings->last_used_layout_file_name.get()
             << " paper=" << settings->last_used_paper_id.get() << " left=" << settings->is_left_handed
             << " languages=";
        for (const z_preferred_language *language : settings->preferred_languages)
            text << language->tag.get() << ",";
        text << " remarks=";
        for (const z_remark *remark : settings->recent_custom_remarks)
            text << remark->code.get() << ":" << text_from_langstr(remark->description.get()) << ",";
        text << " tool=" << settings->remembers_tool_choice;
        return text.str();
    }
};

constexpr const char *defaults = "archive= place=0 style=0 printout=1,none,A4,0 1021 0121 11 export= layout= "
                                 "paper=A4_P left=0 languages=sv,en-uk,en, remarks= tool=0";

constexpr const char *everything =
    R"(<archive path="/a"/>
    <automatically-place-id active="true"/>
    <default-mark-id-style style="2"/>
    <default-printout-settings>
        <identifier setting="Inventory ID or Object ID"/>
        <layout filename="l.layout"/>
        <paper name="A3" orientation="Landscape"/>
        <details show-on-text-page="false" show-on-view-pages="true"/>
        <legend show-on-text-page="true" show-on-view-pages="false"
            text-page-codeset-filter-level="From all codesets"
            text-page-mark-filter-level="From this view only"
            view-page-codeset-filter-level="From no codeset"
            view-page-mark-filter-level="From no view"/>
        <page-numbers show="false"/>
        <report-type show="false"/>
    </default-printout-settings>
    <export><folder path="/e"/></export>
    <last-used-layout filename="u.layout"/>
    <last-used-paper id="A5_L"/>
    <left-handed active="true"/>
    <preferred-languages><language tag="fr"/><language tag="de-at"/></preferred-languages>
    <recent-custom-remarks>
        <remark><code>B</code><description lang="en">Crack</description></remark>
        <remark><code>A</code><description lang="sv">Spricka</description></remark>
    </recent-custom-remarks>
    <remember-tool-choice active="true"/>
    <of-another-program x="1"/>)";

TEST_F(SettingsFileTest, ReadsEveryItem)
{
    EXPECT_TRUE(z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING));
    EXPECT_EQ(show(), defaults);
    EXPECT_TRUE(load(everything));
    EXPECT_EQ(show(), "archive=/a place=1 style=2 printout=3,l.layout,A3,1 0112 1033 00 export=/e "
                      "layout=u.layout paper=A5_L left=1 languages=fr,de-at, "
                      "remarks=B:en=Crack,A:sv=Spricka, tool=1");
}

TEST_F(SettingsFileTest, ReadsOnlyTheItemsOfTheMask)
{
    EXPECT_TRUE(load(everything, Z_SETTINGS_LEFT_HANDED | Z_SETTINGS_EXPORT));
    EXPECT_EQ(show(), "archive= place=0 style=0 printout=1,none,A4,0 1021 0121 11 export=/e layout= "
                      "paper=A4_P left=1 languages=sv,en-uk,en, remarks= tool=0");
}

TEST_F(SettingsFileTest, WhatDoesNotParseLeavesTheDefaults)
{
    EXPECT_TRUE(load(R"(<archive/><automatically-place-id active="True"/>
        <default-mark-id-style style="7"/><default-mark-id-style style="x"/><default-mark-id-style/>
        <default-printout-settings><identifier setting="?"/><paper/><legend/><details/>
        </default-printout-settings><export><other path="x"/></export><left-handed active="yes"/>
        <recent-custom-remarks><remark><code>B</code></remark></recent-custom-remarks>)"));
    EXPECT_EQ(show(), defaults);
    EXPECT_TRUE(load(R"(<default-printout-settings><legend text-page-codeset-filter-level="?"
        view-page-mark-filter-level="?"/></default-printout-settings>)"));
    EXPECT_EQ(show(), defaults);
}

TEST_F(SettingsFileTest, ATagBeyondAsciiFailsAfterReadingTheRest)
{
    EXPECT_FALSE(load("<preferred-languages><language tag=\"fr\"/><language tag=\"\u00e5\"/><language/>"
                      "<language tag=\"de\"/></preferred-languages><left-handed active=\"true\"/>"));
    EXPECT_NE(show().find("left=1 languages=fr,de, "), std::string::npos) << show();
}

TEST_F(SettingsFileTest, NeitherLoadsNorWritesWhatIsNoSettingsFile)
{
    std::string huge = "<settings>";
    while (huge.size() < 4'200'000)
        huge += "<x/>";
    for (const std::string &bytes : {std::string(), std::string("\0\x01\x02", 3), std::string("<settings"),
                                     std::string("<template/>"), huge + "</settings>"}) {
        z_error_clear();
        write_file("settings.xml", bytes);
        EXPECT_FALSE(z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING)) << bytes.substr(0, 20);
        EXPECT_STRNE(z_error_get(), "");
        EXPECT_EQ(show(), defaults);
        EXPECT_FALSE(z_settings_save(settings.get(), Z_SETTINGS_EVERYTHING));
        EXPECT_TRUE(read_file("settings.xml") == bytes);
    }
    std::filesystem::remove(root / "settings.xml");
    std::filesystem::create_directory(root / "settings.xml");
    EXPECT_FALSE(z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING));
    EXPECT_FALSE(z_settings_save(settings.get(), Z_SETTINGS_EVERYTHING));
}

TEST_F(SettingsFileTest, ReadsBackWhatItSaves)
{
    ASSERT_TRUE(load(everything));
    const std::string loaded = show();
    std::filesystem::remove(root / "settings.xml");
    ASSERT_TRUE(z_settings_save(settings.get(), Z_SETTINGS_EVERYTHING)) << z_error_get();
    const std::string saved = read_file("settings.xml");
    ASSERT_TRUE(load("<preferred-languages/><recent-custom-remarks/>"));
    EXPECT_NE(show(), loaded);
    write_file("settings.xml", saved);
    ASSERT_TRUE(z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING));
    EXPECT_EQ(show(), loaded);
    ASSERT_TRUE(z_settings_save(settings.get(), Z_SETTINGS_EVERYTHING));
    EXPECT_EQ(read_file("settings.xml"), saved);
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
        [](z_settings *program) { z_settings_set_automatically_place_id(program, true); },
        [](z_settings *program) { z_settings_set_default_mark_id_style(program, 1); },
        [](z_settings *program) { z_settings_set_last_used_legacy_layout_file_name(program, "l"); },
        [](z_settings *program) { z_settings_set_last_used_legacy_paper_id(program, "p"); },
        [](z_settings *program) { z_settings_set_remember_tool_choice(program, true); },
        [](z_settings *program) {
            z_settings_destroy_preferred_languages(program);
            z_settings_add_preferred_language(program, z_settings_language_new("is"));
        },
        [](z_settings *program) {
            z_settings_set_most_recent_custom_remark(program, "C", langstr_from_text("en=D").get());
        },
    };
    for (const auto change : changes) {
        const z_settings_ptr program = z_settings_new(path().c_str());
        change(program.get());
        EXPECT_TRUE(z_settings_save(program.get(), program->changed_items)) << z_error_get();
    }
    EXPECT_EQ(lock_count, std::size(changes));
    ASSERT_TRUE(z_settings_load(settings.get(), Z_SETTINGS_EVERYTHING));
    EXPECT_EQ(show(), "archive=/a place=1 style=1 printout=1,none,A4,0 1021 0121 11 export= layout=l "
                      "paper=p left=0 languages=is, remarks=C:en=D, tool=1");
    EXPECT_EQ(settings->changed_items, 0u);
}

TEST_F(SettingsFileTest, AFailureAtAnyStepOfASaveLeavesTheFileAndTheChange)
{
    write_file("settings.xml", "<settings/>");
    z_settings_set_archive_path(settings.get(), "\x01");
    EXPECT_FALSE(z_settings_save(settings.get(), Z_SETTINGS_EVERYTHING));
    z_settings_set_archive_path(settings.get(), "/a");
    for (int step = 0; settings->changed_items != 0; ++step) {
        EXPECT_EQ(read_file("settings.xml"), "<settings/>");
        const FsFaults faults(step);
        const bool saved = z_settings_save(settings.get(), Z_SETTINGS_ARCHIVE);
        EXPECT_EQ(saved, settings->changed_items == 0) << step;
    }
    EXPECT_NE(read_file("settings.xml").find("<archive path=\"/a\"/>"), std::string::npos);
}

} // namespace
