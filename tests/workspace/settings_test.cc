#include "common/workspace/settings.h"

#include "tests/support/langstr_text.h"
#include "tests/support/user_sandbox.h"

namespace {

using SettingsTest = UserSandboxTest;

TEST_F(SettingsTest, PrefersTheUsersLanguageAndThenEnglish)
{
    static const char *locale;
    z_platform.get_user_language_index = +[] {
        return z_platform_get_language_index_for_locales({&locale, 1});
    };
    const struct {
        const char *locale, *languages;
    } cases[] = {
        {"de", "de-de de en-uk en "}, {"sv_FI", "sv-fi sv en-uk en "},
        {"sv_SE", "sv en-uk en "},    {"en_US", "en-us en "},
        {"en", "en-uk en "},          {"ja_JP", "en-uk en "},
    };
    for (const auto &c : cases) {
        locale = c.locale;
        const z_settings_ptr settings = z_settings_new("/w");
        std::string tags;
        for (const z_preferred_language *language : settings->preferred_languages)
            tags += std::string(language->tag.get()) + " ";
        EXPECT_EQ(tags, c.languages) << c.locale;
    }
}

TEST_F(SettingsTest, KeepsTheFiveMostRecentRemarks)
{
    const z_settings_ptr settings = z_settings_new("/w");
    const auto use = [&](const char *code, const char *description) {
        z_settings_set_most_recent_custom_remark(settings.get(), code, langstr_from_text(description).get());
    };
    for (const char *code : {"A", "B", "A", "C", "D", "E"})
        use(code, "en=1");
    use("A", "en=2");
    std::string text;
    for (const z_remark *remark : settings->recent_custom_remarks)
        text += std::string(remark->code.get()) + ":" + text_from_langstr(remark->description.get()) + " ";
    EXPECT_EQ(text, "A:en=2 E:en=1 D:en=1 C:en=1 A:en=1 ");
}

} // namespace
