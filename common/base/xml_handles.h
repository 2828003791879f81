#pragma once

// Owning handles for what libxml2 allocates.

#include <libxml/parser.h>
#include <libxml/tree.h>

#include "common/base/handles.h"

// xmlFree is a variable, and so no template argument.
inline void z_xml_free_string(xmlChar *text)
{
    xmlFree(text);
}

using z_xml_doc_ptr = z_ptr<xmlDoc, xmlFreeDoc>;
using z_xml_node_ptr = z_ptr<xmlNode, xmlFreeNode>;
using z_xml_parser_ptr = z_ptr<xmlParserCtxt, xmlFreeParserCtxt>;
using z_xml_string_ptr = z_ptr<xmlChar, z_xml_free_string>;

// libxml2's texts are UTF-8 in unsigned characters.
[[nodiscard]] inline const char *z_xml_to_utf8(const xmlChar *text)
{
    return reinterpret_cast<const char *>(text);
}

[[nodiscard]] inline const xmlChar *z_xml_from_utf8(const char *utf8)
{
    return reinterpret_cast<const xmlChar *>(utf8);
}
