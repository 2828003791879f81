#include "common/gui/spell_check.h"

#include <map>

#include <gspell/gspell.h>

#include "common/base/handles.h"
#include "common/model/supported_languages.h"

static const GspellLanguage *find_language(const char *tag)
{
    const char *dictionary_name = z_spellcheck_get_dict_name_for_langtag(tag);
    return dictionary_name != nullptr ? gspell_language_lookup(dictionary_name) : nullptr;
}

// Reading a dictionary takes a while, so the inputs of one language share it for the life of the program.
// Null for no language: a checker made without one would fall back to the user's own.
static GspellChecker *get_checker(const GspellLanguage *language)
{
    static std::map<const GspellLanguage *, z_ref<GspellChecker>> checkers;
    if (language == nullptr)
        return nullptr;
    z_ref<GspellChecker> &checker = checkers[language];
    if (!checker)
        checker = z_take(gspell_checker_new(language));
    return checker.get();
}

static void set_entry_checker(GtkEntry *entry, GspellChecker *checker)
{
    auto *buffer = gspell_entry_buffer_get_from_gtk_entry_buffer(gtk_entry_get_buffer(entry));
    gspell_entry_buffer_set_spell_checker(buffer, checker);
    gspell_entry_set_inline_spell_checking(gspell_entry_get_from_gtk_entry(entry), checker != nullptr);
}

static void set_text_view_checker(GtkTextView *view, GspellChecker *checker)
{
    auto *buffer = gspell_text_buffer_get_from_gtk_text_buffer(gtk_text_view_get_buffer(view));
    gspell_text_buffer_set_spell_checker(buffer, checker);
    gspell_text_view_set_inline_spell_checking(gspell_text_view_get_from_gtk_text_view(view),
                                               checker != nullptr);
}

void z_spell_check_set_language(GtkWidget *input, const char *tag)
{
    GspellChecker *checker = get_checker(find_language(tag));
    if (GTK_IS_ENTRY(input))
        set_entry_checker(GTK_ENTRY(input), checker);
    else
        set_text_view_checker(GTK_TEXT_VIEW(input), checker);
}
