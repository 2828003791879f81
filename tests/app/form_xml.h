#pragma once

// A form's elements as XML, their headers in Swedish.

#include <string>

inline std::string print_element(const std::string &kind, const std::string &header,
                                 const std::string &contents = "")
{
    const std::string header_element = header.empty() ? "" : "<header lang=\"sv\">" + header + "</header>";
    return "<" + kind + ">" + header_element + contents + "</" + kind + ">";
}

inline std::string print_row(const std::string &header)
{
    return print_element("row", header, "<textfield/>");
}
