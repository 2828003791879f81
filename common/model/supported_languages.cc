#include "common/model/supported_languages.h"

#include <cstring>

#include "common/base/error.h"

struct language_row {
    const char *tag;
    const char *name;
    const char *default_dialect_tag;
};

// Files and settings carry these tags and names: "en-uk" and "New Zeeland" stay as they are.
static constexpr language_row languages[] = {
    {"af", "Afrikaans", nullptr},
    {"sq", "Albanian", nullptr},
    {"eu", "Basque", nullptr},
    {"ca", "Catalan", nullptr},
    {"da", "Danish", nullptr},
    {"nl", "Dutch", nullptr},
    {"nl-be", "Dutch/Belgium", nullptr},
    {"en", "English", "en-uk"},
    {"en-au", "English/Australia", nullptr},
    {"en-bz", "English/Belize", nullptr},
    {"en-ca", "English/Canada", nullptr},
    {"en-ie", "English/Ireland", nullptr},
    {"en-jm", "English/Jamaica", nullptr},
    {"en-nz", "English/New Zeeland", nullptr},
    {"en-ph", "English/Philippines", nullptr},
    {"en-za", "English/South Africa", nullptr},
    {"en-tt", "English/Trinidad", nullptr},
    {"en-uk", "English/United Kingdom", nullptr},
    {"en-us", "English/United States", nullptr},
    {"en-zw", "English/Zimbabwe", nullptr},
    {"fo", "Faroese", nullptr},
    {"fi", "Finnish", nullptr},
    {"fr", "French", "fr-fr"},
    {"fr-be", "French/Belgium", nullptr},
    {"fr-ca", "French/Canada", nullptr},
    {"fr-fr", "French/France", nullptr},
    {"fr-lu", "French/Luxembourg", nullptr},
    {"fr-mc", "French/Monaco", nullptr},
    {"fr-ch", "French/Switzerland", nullptr},
    {"de", "German", "de-de"},
    {"de-at", "German/Austria", nullptr},
    {"de-de", "German/Germany", nullptr},
    {"de-li", "German/Liechtenstein", nullptr},
    {"de-lu", "German/Luxembourg", nullptr},
    {"de-ch", "German/Switzerland", nullptr},
    {"is", "Icelandic", nullptr},
    {"ga", "Irish", nullptr},
    {"it", "Italian", nullptr},
    {"it-ch", "Italian/Switzerland", nullptr},
    {"no", "Norwegian", nullptr},
    {"nb", "Norwegian Bokmål", nullptr},
    {"nn", "Norwegian Nynorsk", nullptr},
    {"pt", "Portuguese", nullptr},
    {"pt-br", "Portuguese/Brazil", nullptr},
    {"rm", "Rhaeto-Romance", nullptr},
    {"gd", "Scots Gaelic", nullptr},
    {"es", "Spanish", "es-es"},
    {"es-ar", "Spanish/Argentina", nullptr},
    {"es-bo", "Spanish/Bolivia", nullptr},
    {"es-cl", "Spanish/Chile", nullptr},
    {"es-co", "Spanish/Colombia", nullptr},
    {"es-cr", "Spanish/Costa Rica", nullptr},
    {"es-cu", "Spanish/Cuba", nullptr},
    {"es-do", "Spanish/Dominican Republic", nullptr},
    {"es-ec", "Spanish/Ecuador", nullptr},
    {"es-sv", "Spanish/El Salvador", nullptr},
    {"es-gt", "Spanish/Guatemala", nullptr},
    {"es-hn", "Spanish/Honduras", nullptr},
    {"es-mx", "Spanish/Mexico", nullptr},
    {"es-ni", "Spanish/Nicaragua", nullptr},
    {"es-pa", "Spanish/Panama", nullptr},
    {"es-py", "Spanish/Paraguay", nullptr},
    {"es-pe", "Spanish/Peru", nullptr},
    {"es-pr", "Spanish/Puerto Rico", nullptr},
    {"es-es", "Spanish/Spain", nullptr},
    {"es-us", "Spanish/United States", nullptr},
    {"es-uy", "Spanish/Uruguay", nullptr},
    {"es-ve", "Spanish/Venezuela", nullptr},
    {"sw", "Swahili", nullptr},
    {"sv", "Swedish", nullptr},
    {"sv-fi", "Swedish/Finland", nullptr},
};
static constexpr int language_count = sizeof languages / sizeof languages[0];

struct dictionary_row {
    const char *tag;
    const char *name;
};

// Every Spanish is checked with the one dictionary that there is.
static constexpr dictionary_row dictionaries[] = {
    {"af", "af_ZA"},    {"ca", "ca"},       {"da", "da_DK"},    {"de-de", "de_DE"}, {"en-au", "en_AU"},
    {"en-ca", "en_CA"}, {"en-uk", "en_GB"}, {"en-us", "en_US"}, {"en-za", "en_ZA"}, {"es-ar", "es_ES"},
    {"es-bo", "es_ES"}, {"es-cl", "es_ES"}, {"es-co", "es_ES"}, {"es-cr", "es_ES"}, {"es-cu", "es_ES"},
    {"es-do", "es_ES"}, {"es-ec", "es_ES"}, {"es-es", "es_ES"}, {"es-gt", "es_ES"}, {"es-hn", "es_ES"},
    {"es-mx", "es_ES"}, {"es-ni", "es_ES"}, {"es-pa", "es_ES"}, {"es-pe", "es_ES"}, {"es-pr", "es_ES"},
    {"es-py", "es_ES"}, {"es-sv", "es_ES"}, {"es-us", "es_ES"}, {"es-uy", "es_ES"}, {"es-ve", "es_ES"},
    {"fo", "fo"},       {"fr-fr", "fr"},    {"is", "is"},       {"nl", "nl_NL"},    {"pt", "pt_PT"},
    {"pt-br", "pt_BR"}, {"sv", "sv_SE"},    {"sv-fi", "sv_FI"}, {"sw", "sw_TZ"},
};

int z_supported_languages_get_count()
{
    return language_count;
}

const char *z_supported_languages_get_tag(int index)
{
    return languages[index].tag;
}

const char *z_supported_languages_get_name(int index)
{
    return languages[index].name;
}

const char *z_supported_languages_get_default_dialect_tag(int index)
{
    return languages[index].default_dialect_tag;
}

int z_supported_languages_get_index_for_tag(const char *tag)
{
    for (int index = 0; index < language_count; ++index)
        if (std::strcmp(languages[index].tag, tag) == 0)
            return index;
    return -1;
}

const char *z_supported_languages_get_name_for_tag(const char *tag)
{
    const int index = z_supported_languages_get_index_for_tag(tag);
    return index >= 0 ? languages[index].name : "Unknown language";
}

z_utf8_ptr z_supported_languages_format_language_string(const char *tag)
{
    if (tag[0] == '\0')
        return z_utf8_ptr(g_strdup("Undefined"));
    return z_utf8_ptr(g_strdup_printf("%s [%s]", z_supported_languages_get_name_for_tag(tag), tag));
}

z_latin1_ptr z_supported_languages_get_tag_from_language_string(const char *utf8)
{
    const char *bracket = std::strchr(utf8, '[');
    if (bracket == nullptr)
        return z_latin1_ptr(g_strdup(""));
    // The last character is the closing bracket; nothing at all may follow the opening one.
    const size_t length = std::strlen(bracket + 1);
    z_latin1_ptr tag(g_strndup(bracket + 1, length > 0 ? length - 1 : 0));
    if (z_supported_languages_get_index_for_tag(tag.get()) >= 0)
        return tag;
    z_error_set_unknown();
    return nullptr;
}

const char *z_spellcheck_get_dict_name_for_langtag(const char *tag)
{
    for (const dictionary_row &row : dictionaries)
        if (std::strcmp(row.tag, tag) == 0)
            return row.name;
    return nullptr;
}
