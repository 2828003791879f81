#pragma once

// The languages that texts can be tagged with, and the spelling dictionaries that some of them have.

#include "common/base/handles.h"

// A language's place in the table, from 0 to the count less one. Not checked. All texts are borrowed: tags
// ASCII, names UTF-8.
[[nodiscard]] int z_supported_languages_get_count();
[[nodiscard]] const char *z_supported_languages_get_tag(int index);
[[nodiscard]] const char *z_supported_languages_get_name(int index);
// Null where the language lists no dialects with a preferred one.
[[nodiscard]] const char *z_supported_languages_get_default_dialect_tag(int index);

// -1 for a tag that the table does not have.
[[nodiscard]] int z_supported_languages_get_index_for_tag(const char *tag);
// "Unknown language" for a tag that the table does not have.
[[nodiscard]] const char *z_supported_languages_get_name_for_tag(const char *tag);

// "Swedish/Finland [sv-fi]"; "Undefined" for the empty tag.
[[nodiscard]] z_utf8_ptr z_supported_languages_format_language_string(const char *tag);

// The tag of such a string. Null, with the unknown error, if it is none of the table's; a string without "["
// has the empty tag.
[[nodiscard]] z_latin1_ptr z_supported_languages_get_tag_from_language_string(const char *utf8);

// The dictionary's name in the spelling library's form, such as "en_GB". Null if the tag has none.
[[nodiscard]] const char *z_spellcheck_get_dict_name_for_langtag(const char *tag);
