#include "common/gui/spell_check.h"

#include <string>

#include <gspell/gspell.h>
#include <gtest/gtest.h>

#include "common/base/handles.h"

namespace {

// The dictionary that checks the entry, or "" if none does.
std::string get_checked_language(GtkWidget *entry)
{
    if (!gspell_entry_get_inline_spell_checking(gspell_entry_get_from_gtk_entry(GTK_ENTRY(entry))))
        return "";
    GtkEntryBuffer *buffer = gtk_entry_get_buffer(GTK_ENTRY(entry));
    GspellChecker *checker =
        gspell_entry_buffer_get_spell_checker(gspell_entry_buffer_get_from_gtk_entry_buffer(buffer));
    return gspell_language_get_code(gspell_checker_get_language(checker));
}

TEST(SpellCheck, FollowsTheLanguageAndStopsWithoutADictionary)
{
    const z_ref<GtkWidget> entry = z_sink(gtk_entry_new());
    struct {
        const char *tag;
        const char *dictionary;
    } const cases[] = {{"sv", "sv_SE"}, {"en-uk", "en_GB"}, {"en", nullptr}, {"sv", "sv_SE"},
                       {"xx", nullptr}, {"", nullptr},      {"sw", "sw_TZ"}};
    for (const auto &c : cases) {
        z_spell_check_set_language(entry.get(), c.tag);
        const bool is_installed = c.dictionary != nullptr && gspell_language_lookup(c.dictionary) != nullptr;
        EXPECT_EQ(get_checked_language(entry.get()), is_installed ? c.dictionary : "") << c.tag;
    }
}

} // namespace
