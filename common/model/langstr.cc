#include "common/model/langstr.h"

#include <cstring>

static bool equal(const char *a, const char *b)
{
    return std::strcmp(a, b) == 0;
}

static bool is_untagged(const z_langstr *entry)
{
    return entry->tag.get()[0] == '\0';
}

template <typename Entry>
static Entry *find_tag(Entry *langstr, const char *tag)
{
    while (langstr != nullptr && !equal(langstr->tag.get(), tag))
        langstr = langstr->next.get();
    return langstr;
}

static const z_langstr *find_text(const z_langstr *langstr, const char *text)
{
    while (langstr != nullptr && !equal(langstr->text.get(), text))
        langstr = langstr->next.get();
    return langstr;
}

// The first dialect of the base language `tag`, which has more than one character.
static const z_langstr *find_dialect(const z_langstr *langstr, const char *tag)
{
    const size_t length = std::strlen(tag);
    if (length <= 1)
        return nullptr;
    for (; langstr != nullptr; langstr = langstr->next.get())
        if (std::strncmp(langstr->tag.get(), tag, length) == 0 && langstr->tag.get()[length] == '-')
            return langstr;
    return nullptr;
}

static z_langstr_ptr new_entry(const char *tag, const char *text)
{
    return z_langstr_ptr(new z_langstr{z_latin1_ptr(g_strdup(tag)), z_latin1_ptr(g_strdup(text)), nullptr});
}

// The handle that ends the langstr, where the next entry goes.
static z_langstr_ptr &find_end(z_langstr_ptr &langstr)
{
    z_langstr_ptr *end = &langstr;
    while (*end != nullptr)
        end = &(*end)->next;
    return *end;
}

// One entry after the other: left to the handles, a langstr of many entries would be freed by a recursion as
// deep as it is long.
void z_langstr_free(z_langstr *langstr)
{
    while (langstr != nullptr) {
        z_langstr *next = langstr->next.release();
        delete langstr;
        langstr = next;
    }
}

z_langstr_ptr z_langstr_clone(const z_langstr *langstr)
{
    z_langstr_ptr clone;
    for (z_langstr_ptr *end = &clone; langstr != nullptr; langstr = langstr->next.get()) {
        *end = new_entry(langstr->tag.get(), langstr->text.get());
        end = &(*end)->next;
    }
    return clone;
}

static bool add_untagged(z_langstr_ptr &langstr, const char *text)
{
    if (find_text(langstr.get(), text) != nullptr)
        return false;
    find_end(langstr) = new_entry("", text);
    return true;
}

bool z_langstr_set_translation(z_langstr_ptr &langstr, const char *tag, const char *text_latin1)
{
    if (tag[0] == '\0')
        return add_untagged(langstr, text_latin1);

    if (z_langstr *entry = find_tag(langstr.get(), tag)) {
        if (equal(entry->text.get(), text_latin1))
            return false;
        entry->text.reset(
            g_strdup(text_latin1)); // Copied before the old text, which it may be part of, is freed.
        return true;
    }
    for (z_langstr *entry = langstr.get(); entry != nullptr; entry = entry->next.get()) {
        if (is_untagged(entry) && equal(entry->text.get(), text_latin1)) {
            entry->tag.reset(g_strdup(tag));
            return true;
        }
    }
    find_end(langstr) = new_entry(tag, text_latin1);
    return true;
}

const char *z_langstr_get_string(const z_langstr *langstr, const char *tag, z_dialect_fallback fallback)
{
    const z_langstr *entry = find_tag(langstr, tag);
    if (entry == nullptr && fallback == z_dialect_fallback::allowed)
        entry = find_dialect(langstr, tag);
    return entry != nullptr ? entry->text.get() : nullptr;
}

const char *z_langstr_get_preferred_string(const z_langstr *langstr,
                                           const z_list<z_preferred_language> &languages)
{
    for (const z_preferred_language *language : languages)
        if (const char *text =
                z_langstr_get_string(langstr, language->tag.get(), z_dialect_fallback::allowed))
            return text;
    return langstr != nullptr ? langstr->text.get() : nullptr;
}

bool z_langstr_remove_lang(z_langstr_ptr &langstr, const char *tag)
{
    z_langstr_ptr *place = &langstr;
    while (*place != nullptr && !equal((*place)->tag.get(), tag))
        place = &(*place)->next;
    if (*place == nullptr)
        return false;
    z_langstr_ptr rest = std::move((*place)->next);
    *place = std::move(rest);
    return true;
}

bool z_langstr_is_identical(const z_langstr *a, const z_langstr *b)
{
    while (a != nullptr && b != nullptr && equal(a->tag.get(), b->tag.get()) &&
           equal(a->text.get(), b->text.get())) {
        a = a->next.get();
        b = b->next.get();
    }
    return a == nullptr && b == nullptr;
}

bool z_langstr_is_subset(const z_langstr *a, const z_langstr *b)
{
    for (; a != nullptr; a = a->next.get()) {
        if (is_untagged(a)) {
            if (find_text(b, a->text.get()) == nullptr)
                return false;
            continue;
        }
        const char *text = z_langstr_get_string(b, a->tag.get(), z_dialect_fallback::refused);
        if (text == nullptr || !equal(text, a->text.get()))
            return false;
    }
    return true;
}

bool z_langstr_is_mergeable(const z_langstr *a, const z_langstr *b)
{
    bool has_common_text = false;
    for (const z_langstr *x = a; x != nullptr; x = x->next.get()) {
        for (const z_langstr *y = b; y != nullptr; y = y->next.get()) {
            const bool same_tag = equal(x->tag.get(), y->tag.get());
            const bool same_text = equal(x->text.get(), y->text.get());
            if (same_tag && !is_untagged(x) && !same_text)
                return false;
            if (same_text && (same_tag || is_untagged(x) || is_untagged(y)))
                has_common_text = true;
        }
    }
    return has_common_text;
}

bool z_langstr_merge(z_langstr_ptr &a, const z_langstr *b)
{
    if (!z_langstr_is_mergeable(a.get(), b))
        return false;
    bool changed = false;
    for (; b != nullptr; b = b->next.get())
        if (z_langstr_set_translation(a, b->tag.get(), b->text.get()))
            changed = true;
    return changed;
}
