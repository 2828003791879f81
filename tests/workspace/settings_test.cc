#include "common/workspace/settings.h"

#include "tests/support/langstr_text.h"
#include "tests/support/user_sandbox.h"

namespace {

using SettingsTest = UserSandboxTest;

std::string show_languages(const z_settings *settings)
{
    std::string tags;
    for (const z_preferred_language *language : settings->preferred_languages)
        tags += std::string(tags.empty() ? "" : " ") + language->tag.get();
    return tags;
}

TEST_F(SettingsTest, PrefersTheUsersLanguageAndThenEnglish)
{
    static const char *locale;
    z_platform.get_user_language_index = +[] {
        return z_platform_get_language_index_for_locales({&locale, 1});
    };
    const struct {
        const char *locale, *languages;
    } cases[] = {
        {"de_DE", "de-de de en-uk en"},
        {"de", "de-de de en-uk en"},
        {"de_AT", "de-at de en-uk en"},
        {"sv_SE", "sv en-uk en"},
        {"sv_FI", "sv-fi sv en-uk en"},
        {"en_US", "en-us en"},
        {"en", "en-uk en"},
        {"ja_JP", "en-uk en"},
    };
    for (const auto &c : cases) {
        locale = c.locale;
        EXPECT_EQ(show_languages(z_settings_new("/w").get()), c.languages) << c.locale;
    }
}

TEST_F(SettingsTest, KeepsTheFiveMostRecentRemarks)
{
    const z_settings_ptr settings = z_settings_new("/w");
    const auto use = [&](const char *code, const char *description) {
        z_settings_set_most_recent_custom_remark(settings.get(), code, langstr_from_text(description).get());
    };
    const auto show = [&] {
        std::string text;
        for (const z_remark *remark : settings->recent_custom_remarks)
            text +=
                std::string(remark->code.get()) + ":" + text_from_langstr(remark->description.get()) + " ";
        return text;
    };
    use("A", "en=1");
    use("A", "en=2");
    use("B", "en=1");
    use("A", "en=1");
    EXPECT_EQ(show(), "A:en=1 B:en=1 A:en=2 ");
    use("C", "en=1");
    use("D", "en=1");
    use("E", "en=1");
    EXPECT_EQ(show(), "E:en=1 D:en=1 C:en=1 A:en=1 B:en=1 ");
}

} // namespace
