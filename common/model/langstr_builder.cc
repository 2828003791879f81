#include "common/model/langstr_builder.h"

#include <string>
#include <unordered_map>

static constexpr int longest_walk = 64;

struct z_langstr_builder::index {
    std::unordered_map<std::string, z_langstr *> by_tag; // Not the empty tag.
    std::unordered_map<std::string, z_langstr *> untagged_by_text;
    std::unordered_map<std::string, int> text_counts; // Under any tag.
    z_langstr_ptr *end;

    explicit index(z_langstr_ptr &langstr) : end(&langstr)
    {
        while (*end != nullptr)
            note_last();
    }
    void note_last()
    {
        z_langstr *entry = end->get();
        const char *tag = entry->tag.get();
        if (tag[0] != '\0')
            by_tag.emplace(tag, entry);
        else
            untagged_by_text.emplace(entry->text.get(), entry);
        ++text_counts[entry->text.get()];
        end = &entry->next;
    }
    void append(const char *tag, const char *text)
    {
        *end =
            z_langstr_ptr(new z_langstr{z_latin1_ptr(g_strdup(tag)), z_latin1_ptr(g_strdup(text)), nullptr});
        note_last();
    }
    void replace_text(z_langstr *entry, const char *text)
    {
        const auto old = text_counts.find(entry->text.get());
        if (--old->second == 0)
            text_counts.erase(old);
        ++text_counts[text];
        entry->text.reset(g_strdup(text));
    }
    void set_translation(const char *tag, const char *text)
    {
        if (tag[0] == '\0') {
            if (!text_counts.contains(text))
                append(tag, text);
            return;
        }
        if (const auto same_tag = by_tag.find(tag); same_tag != by_tag.end()) {
            replace_text(same_tag->second, text);
            return;
        }
        const auto same_text = untagged_by_text.find(text);
        if (same_text == untagged_by_text.end()) {
            append(tag, text);
            return;
        }
        same_text->second->tag.reset(g_strdup(tag));
        by_tag.emplace(tag, same_text->second);
        untagged_by_text.erase(same_text);
    }
};

z_langstr_builder::z_langstr_builder() = default;
z_langstr_builder::~z_langstr_builder() = default;

void z_langstr_builder::set_translation(const char *tag, const char *text_latin1)
{
    if (entries != nullptr) {
        entries->set_translation(tag, text_latin1);
        return;
    }
    z_langstr_set_translation(langstr, tag, text_latin1);
    if (++call_count == longest_walk)
        entries = std::make_unique<index>(langstr);
}

z_langstr_ptr z_langstr_builder::take()
{
    entries.reset();
    call_count = 0;
    return std::move(langstr);
}
