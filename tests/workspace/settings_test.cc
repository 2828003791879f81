#include "common/workspace/settings.h"

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

} // namespace
