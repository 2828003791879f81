#include "common/model/supported_languages.h"

#include <string>

#include <gtest/gtest.h>

#include "common/base/error.h"

namespace {

TEST(SupportedLanguagesTest, EveryLanguageIsFoundAgainByItsDisplayedString)
{
    ASSERT_EQ(z_supported_languages_get_count(), 71);
    int dictionary_count = 0;
    for (int index = 0; index < z_supported_languages_get_count(); ++index) {
        const char *tag = z_supported_languages_get_tag(index);
        SCOPED_TRACE(tag);
        EXPECT_EQ(z_supported_languages_get_index_for_tag(tag), index);
        const z_utf8_ptr shown = z_supported_languages_format_language_string(tag);
        EXPECT_STREQ(z_supported_languages_get_tag_from_language_string(shown.get()).get(), tag);
        if (const char *dialect = z_supported_languages_get_default_dialect_tag(index)) {
            EXPECT_EQ(std::string(dialect).find(std::string(tag) + "-"), 0u);
            EXPECT_NE(z_supported_languages_get_index_for_tag(dialect), -1);
        }
        if (z_spellcheck_get_dict_name_for_langtag(tag) != nullptr)
            ++dictionary_count;
    }
    EXPECT_EQ(dictionary_count, 39);
    EXPECT_STREQ(z_supported_languages_format_language_string("en-gb").get(), "Unknown language [en-gb]");
    EXPECT_STREQ(z_supported_languages_format_language_string("").get(), "Undefined");
    EXPECT_EQ(z_supported_languages_get_tag_from_language_string("Swedish [sv"), nullptr);
    EXPECT_STREQ(z_error_get(), "An unknown program error has occured.");
    z_error_clear();
}

} // namespace
