#include "common/workspace/platform.h"

#include <cstring>

#include "common/model/supported_languages.h"
#include "common/workspace/platform_system.h"

struct identifier_row {
    uint16_t identifier;
    const char *tag;
};

static constexpr identifier_row dialects[] = {
    {0x0813, "nl-be"}, {0x0C09, "en-au"}, {0x2809, "en-bz"}, {0x1009, "en-ca"}, {0x1809, "en-ie"},
    {0x2009, "en-jm"}, {0x1409, "en-nz"}, {0x3409, "en-ph"}, {0x1C09, "en-za"}, {0x2C09, "en-tt"},
    {0x0809, "en-uk"}, {0x0409, "en-us"}, {0x3009, "en-zw"}, {0x080C, "fr-be"}, {0x0C0C, "fr-ca"},
    {0x140C, "fr-lu"}, {0x180C, "fr-mc"}, {0x100C, "fr-ch"}, {0x0C07, "de-at"}, {0x1407, "de-li"},
    {0x1007, "de-lu"}, {0x0807, "de-ch"}, {0x0810, "it-ch"}, {0x0414, "nb"},    {0x0814, "nn"},
    {0x0416, "pt-br"}, {0x2C0A, "es-ar"}, {0x400A, "es-bo"}, {0x340A, "es-cl"}, {0x240A, "es-co"},
    {0x140A, "es-cr"}, {0x1C0A, "es-do"}, {0x300A, "es-ec"}, {0x440A, "es-sv"}, {0x100A, "es-gt"},
    {0x480A, "es-hn"}, {0x080A, "es-mx"}, {0x4C0A, "es-ni"}, {0x180A, "es-pa"}, {0x3C0A, "es-py"},
    {0x280A, "es-pe"}, {0x500A, "es-pr"}, {0x0C0A, "es-es"}, {0x380A, "es-uy"}, {0x540A, "es-us"},
    {0x200A, "es-ve"}, {0x081D, "sv-fi"},
};

static constexpr identifier_row primary_languages[] = {
    {0x36, "af"}, {0x1C, "sq"}, {0x2D, "eu"}, {0x03, "ca"}, {0x06, "da"}, {0x13, "nl"},
    {0x09, "en"}, {0x38, "fo"}, {0x0B, "fi"}, {0x0C, "fr"}, {0x07, "de"}, {0x0F, "is"},
    {0x10, "it"}, {0x14, "no"}, {0x16, "pt"}, {0x0A, "es"}, {0x41, "sw"}, {0x1D, "sv"},
};

static const char *find_tag(std::span<const identifier_row> rows, uint16_t identifier)
{
    for (const identifier_row &row : rows) {
        if (row.identifier == identifier)
            return row.tag;
    }
    return nullptr;
}

int z_platform_get_language_index_for_identifier(uint16_t identifier)
{
    const char *tag = find_tag(dialects, identifier);
    if (tag == nullptr)
        tag = find_tag(primary_languages, identifier & 0x3FF);
    return tag == nullptr ? -1 : z_supported_languages_get_index_for_tag(tag);
}

// "de_AT.UTF-8@euro" as the tag "de-at".
static z_latin1_ptr get_tag_for_locale(const char *name)
{
    z_latin1_ptr tag(g_ascii_strdown(name, static_cast<gssize>(std::strcspn(name, ".@"))));
    g_strdelimit(tag.get(), "_", '-');
    if (std::strcmp(tag.get(), "en-gb") == 0)
        tag.reset(g_strdup("en-uk"));
    return tag;
}

int z_platform_get_language_index_for_locales(std::span<const char *const> names)
{
    for (const char *name : names) {
        const z_latin1_ptr tag = get_tag_for_locale(name);
        int index = z_supported_languages_get_index_for_tag(tag.get());
        if (index < 0) {
            tag.get()[std::strcspn(tag.get(), "-")] = '\0';
            index = z_supported_languages_get_index_for_tag(tag.get());
        }
        if (index >= 0)
            return index;
    }
    return -1;
}

int z_platform_get_user_language_index()
{
    return z_platform.get_user_language_index();
}
