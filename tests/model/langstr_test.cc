#include "common/model/langstr.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "common/model/langstr_builder.h"
#include "tests/support/langstr_text.h"

namespace {

TEST(LangstrTest, SettingATranslation)
{
    const struct {
        const char *before, *tag, *text, *after;
    } cases[] = {
        {"", "en", "Door", "en=Door"},
        {"en=Door|sv=X", "en", "Gate", "en=Gate|sv=X"},
        {"en=Door", "sv", "X", "en=Door|sv=X"},
        {"=Door", "sv", "Door", "sv=Door"},
        {"=Door", "sv", "Gate", "=Door|sv=Gate"},
        {"=Door", "", "Gate", "=Door|=Gate"},
        {"=Door|=Gate", "", "Gate", "=Door|=Gate"},
        {"en=Door", "EN", "Door", "en=Door|EN=Door"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.before << " + " << c.tag << "=" << c.text);
        z_langstr_ptr langstr = langstr_from_text(c.before);
        const bool changed = z_langstr_set_translation(langstr, c.tag, c.text);
        EXPECT_EQ(text_from_langstr(langstr.get()), c.after);
        EXPECT_EQ(changed, std::string(c.before) != c.after);
    }
}

TEST(LangstrTest, ATranslationMayBorrowFromTheLangstrItself)
{
    z_langstr_ptr langstr = langstr_from_text("en=Front door|sv=X");
    EXPECT_TRUE(z_langstr_set_translation(langstr, "en", langstr->text.get() + 6));
    EXPECT_TRUE(z_langstr_set_translation(langstr, langstr->next->tag.get(), langstr->text.get()));
    EXPECT_EQ(text_from_langstr(langstr.get()), "en=door|sv=door");
}

TEST(LangstrTest, LookingATextUp)
{
    const struct {
        const char *langstr, *tag, *exact, *with_fallback;
    } cases[] = {
        {"en=A|sv=B", "sv", "B", "B"},    {"sv-fi=A", "sv", "-", "A"},
        {"sv=A", "sv-fi", "-", "-"},      {"en-us=A|en-uk=B", "en", "-", "A"},
        {"en-us=A|en=B", "en", "B", "B"}, {"enx-us=A", "en", "-", "-"},
        {"=A|=B", "", "A", "A"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.langstr << " asked for " << c.tag);
        const z_langstr_ptr langstr = langstr_from_text(c.langstr);
        const char *exact = z_langstr_get_string(langstr.get(), c.tag, z_dialect_fallback::refused);
        const char *dialect = z_langstr_get_string(langstr.get(), c.tag, z_dialect_fallback::allowed);
        EXPECT_STREQ(exact != nullptr ? exact : "-", c.exact);
        EXPECT_STREQ(dialect != nullptr ? dialect : "-", c.with_fallback);
    }
}

TEST(LangstrTest, ShowsTheMostPreferredLanguageThatHasAText)
{
    const struct {
        std::vector<const char *> preferred;
        const char *langstr, *shown;
    } cases[] = {
        {{"sv", "en-uk", "en"}, "en-us=A|sv-fi=B", "B"},
        {{"de-de", "de", "en-uk", "en"}, "sv=A|en-us=B", "B"},
        {{"fr"}, "sv=A|en=B", "A"},
    };
    for (const auto &c : cases) {
        z_list<z_preferred_language> languages;
        for (const char *tag : c.preferred)
            languages.add_last(std::make_unique<z_preferred_language>())->tag.reset(g_strdup(tag));
        const z_langstr_ptr langstr = langstr_from_text(c.langstr);
        EXPECT_STREQ(z_langstr_get_preferred_string(langstr.get(), languages), c.shown) << c.langstr;
    }
    EXPECT_EQ(z_langstr_get_preferred_string(nullptr, {}), nullptr);
}

TEST(LangstrTest, ABuilderGivesWhatSettingOneByOneGives)
{
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        z_langstr_builder builder;
        z_langstr_ptr expected;
        for (int call = 0; call < 300; ++call) {
            const std::string tag = random() % 3 == 0 ? "" : "t" + std::to_string(random() % 100);
            const std::string text = "x" + std::to_string(random() % 60);
            builder.set_translation(tag.c_str(), text.c_str());
            z_langstr_set_translation(expected, tag.c_str(), text.c_str());
        }
        ASSERT_EQ(text_from_langstr(builder.take().get()), text_from_langstr(expected.get()));
    }
}

// Neither time that grows with the square nor a recursion as deep as the langstr is long.
TEST(LangstrTest, AHugeLangstrIsNoBurden)
{
    z_langstr_builder builder;
    for (int count = 0; count < 100'000; ++count)
        builder.set_translation(count % 2 == 0 ? std::to_string(count).c_str() : "",
                                std::to_string(count).c_str());
    const z_langstr_ptr langstr = builder.take();
    EXPECT_TRUE(z_langstr_is_identical(langstr.get(), z_langstr_clone(langstr.get()).get()));
}

} // namespace
