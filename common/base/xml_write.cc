#include "common/base/xml_write.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "common/base/output_stream.h"

// What stands for each byte; empty for one that stands for itself.
static constexpr auto escapes = [] {
    std::array<std::string_view, 256> table;
    table['\t'] = "&#x9;";
    table['\n'] = "&#xA;";
    table['\r'] = "&#xD;";
    table['"'] = "&quot;";
    table['&'] = "&amp;";
    table['\''] = "&apos;";
    table['<'] = "&lt;";
    table['>'] = "&gt;";
    return table;
}();

bool z_xml_write_markup(z_output_stream *stream, std::string_view markup)
{
    return z_output_stream_write(stream, markup.data(), markup.size());
}

bool z_xml_write_tabs(z_output_stream *stream, int count)
{
    static constexpr std::string_view tabs = "\t\t\t\t\t\t\t\t";
    for (; count > 0; count -= static_cast<int>(tabs.size())) {
        const size_t size = count < static_cast<int>(tabs.size()) ? static_cast<size_t>(count) : tabs.size();
        if (!z_output_stream_write(stream, tabs.data(), size))
            return false;
    }
    return true;
}

bool z_xml_write_string(z_output_stream *stream, const char *latin1)
{
    const z_latin1_ptr escaped = z_xml_latin1_to_xml(latin1);
    return z_output_stream_write(stream, escaped.get(), strlen(escaped.get()));
}

z_latin1_ptr z_xml_latin1_to_xml(const char *latin1)
{
    if (latin1 == nullptr)
        return nullptr;
    z_latin1_ptr escaped(static_cast<char *>(g_malloc(strlen(latin1) * z_xml_max_escape_size + 1)));
    *z_xml_escape_latin1(escaped.get(), latin1) = '\0';
    return escaped;
}

char *z_xml_escape_latin1(char *buffer, const char *latin1)
{
    for (; *latin1 != '\0'; ++latin1) {
        const std::string_view escape = escapes[static_cast<uint8_t>(*latin1)];
        if (escape.empty())
            *buffer++ = *latin1;
        else
            buffer += escape.copy(buffer, escape.size());
    }
    return buffer;
}
