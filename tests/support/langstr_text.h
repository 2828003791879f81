#pragma once

// Langstrs as texts, for tables of cases: "en=Door|sv=Dorr", with an untagged text as "=Door". Texts hold
// neither "=" nor "|".

#include <algorithm>
#include <string>
#include <string_view>

#include "common/model/langstr.h"

inline z_langstr_ptr langstr_from_text(std::string_view text)
{
    z_langstr_ptr langstr;
    z_langstr_ptr *end = &langstr;
    while (!text.empty()) {
        const std::string_view entry = text.substr(0, text.find('|'));
        text.remove_prefix(std::min(entry.size() + 1, text.size()));
        const size_t equals = entry.find('=');
        *end = z_langstr_ptr(
            new z_langstr{z_latin1_ptr(g_strdup(std::string(entry.substr(0, equals)).c_str())),
                          z_latin1_ptr(g_strdup(std::string(entry.substr(equals + 1)).c_str())), nullptr});
        end = &(*end)->next;
    }
    return langstr;
}

inline std::string text_from_langstr(const z_langstr *langstr)
{
    std::string text;
    for (; langstr != nullptr; langstr = langstr->next.get()) {
        text.append(text.empty() ? "" : "|").append(langstr->tag.get());
        text.append("=").append(langstr->text.get());
    }
    return text;
}
