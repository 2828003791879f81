#include "common/gui/spell_check.h"

#include <string>

#include <gspell/gspell.h>
#include <gtest/gtest.h>

#include "common/base/handles.h"

namespace {

// The dictionary that checks the input, or "" if none does.
std::string get_checked_language(GtkWidget *input)
{
    GspellChecker *checker = nullptr;
    if (GTK_IS_ENTRY(input)) {
        GtkEntryBuffer *buffer = gtk_entry_get_buffer(GTK_ENTRY(input));
        if (gspell_entry_get_inline_spell_checking(gspell_entry_get_from_gtk_entry(GTK_ENTRY(input))))
            checker =
                gspell_entry_buffer_get_spell_checker(gspell_entry_buffer_get_from_gtk_entry_buffer(buffer));
    } else {
        auto *view = GTK_TEXT_VIEW(input);
        if (gspell_text_view_get_inline_spell_checking(gspell_text_view_get_from_gtk_text_view(view)))
            checker = gspell_text_buffer_get_spell_checker(
                gspell_text_buffer_get_from_gtk_text_buffer(gtk_text_view_get_buffer(view)));
    }
    return checker != nullptr ? gspell_language_get_code(gspell_checker_get_language(checker)) : "";
}

TEST(SpellCheck, FollowsTheLanguageAndStopsWithoutADictionary)
{
    struct {
        const char *tag;
        const char *dictionary;
    } const cases[] = {{"sv", "sv_SE"}, {"en-uk", "en_GB"}, {"en", nullptr}, {"sw", "sw_TZ"}, {"", nullptr}};
    for (GtkWidget *each : {gtk_entry_new(), gtk_text_view_new()}) {
        const z_ref<GtkWidget> input = z_sink(each);
        for (const auto &c : cases) {
            z_spell_check_set_language(each, c.tag);
            const bool is_installed =
                c.dictionary != nullptr && gspell_language_lookup(c.dictionary) != nullptr;
            EXPECT_EQ(get_checked_language(each), is_installed ? c.dictionary : "") << c.tag;
        }
    }
}

} // namespace
