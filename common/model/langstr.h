#pragma once

// Multilingual strings.
//
// A langstr is a singly linked list of (language tag, text) entries in insertion order; the null pointer is
// the empty langstr. The order counts: for comparison, for dialect fallback and for the text that is shown
// when no preferred language has one. Tags are ASCII ("en", "en-us", "sv-fi"); the empty tag marks a text
// whose language is not known. Texts are ISO 8859-1. There is at most one entry per tag, but untagged entries
// are told apart by their text. Tags and texts are compared byte by byte.
//
//     z_langstr_ptr -> (en, "Door") -> (sv, "Dörr") -> null

#include "common/base/handles.h"
#include "common/base/list.h"

struct z_langstr;
void z_langstr_free(z_langstr *langstr);
using z_langstr_ptr = z_ptr<z_langstr, z_langstr_free>;

struct z_langstr {
    z_latin1_ptr tag;
    z_latin1_ptr text;
    z_langstr_ptr next;
};

// One language that the user prefers, in an ordered list of them.
struct z_preferred_language : z_link {
    z_latin1_ptr tag;
};

[[nodiscard]] z_langstr_ptr z_langstr_clone(const z_langstr *langstr);

// Gives the tag this text; `tag` and `text` are copied and may belong to the langstr itself. An untagged text
// that is already there is adopted by the tag. Returns whether the langstr changed.
bool z_langstr_set_translation(z_langstr_ptr &langstr, const char *tag, const char *text_latin1);

enum class z_dialect_fallback { refused, allowed };

// The text for the tag, borrowed, or null. With fallback a base language ("sv") also finds the first of its
// dialects ("sv-fi"), never the other way round.
[[nodiscard]] const char *z_langstr_get_string(const z_langstr *langstr, const char *tag,
                                               z_dialect_fallback fallback);

// The text to show somebody who prefers these languages, most preferred first: the first hit with fallback,
// else the langstr's first text. Borrowed; null for the empty langstr.
[[nodiscard]] const char *z_langstr_get_preferred_string(const z_langstr *langstr,
                                                         const z_list<z_preferred_language> &languages);

// Removes the first entry with exactly this tag; false if there is none.
bool z_langstr_remove_lang(z_langstr_ptr &langstr, const char *tag);

// Same entries in the same order.
[[nodiscard]] bool z_langstr_is_identical(const z_langstr *a, const z_langstr *b);

// Whether b has every text of a, under the same tag; an untagged text of a may have any tag in b.
[[nodiscard]] bool z_langstr_is_subset(const z_langstr *a, const z_langstr *b);

// Whether a and b have a text in common, and no tag under which they differ.
[[nodiscard]] bool z_langstr_is_mergeable(const z_langstr *a, const z_langstr *b);

// Adds b's texts to a mergeable a. Returns whether a changed; b may be a itself.
bool z_langstr_merge(z_langstr_ptr &a, const z_langstr *b);
