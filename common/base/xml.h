#pragma once

// XML documents: parsing, with libxml2's diagnostics in z_error.
//
// Documents and nodes are libxml2's own; xml_read.h reads them, xml_build.h makes and saves them, and
// xml_write.h prints files without a tree.
//
// A document comes from somebody else. While one is parsed
//   - entities are substituted, and one that stays unresolved fails the document, because saving the document
//     later would lose what it stood for;
//   - nothing is opened but an external DTD, and that only from a local, regular "*.dtd" file of sane size;
//   any
//     other load is refused and fails the document. A missing DTD whose entities nobody uses is harmless;
//   - entities that expand to far more than the file holds fail it;
//   - a tree that lacks something because memory ran out fails too.
//
// libxml2's settings are process-wide, so one document is parsed at a time, on the user-interface thread.
// They are restored afterwards.

#include <cstddef>

#include "common/base/xml_handles.h"

struct zip;

// A tree that is only read, or taken apart, need not be whole: of the white space between elements only the
// first piece is there, and the text nodes' own texts must not be changed. It takes a third less memory.
enum class z_xml_tree { whole, for_reading };

// Null on failure: the file does not open, or "Could not parse XML data." over at most 15 lines of
// diagnostics.
[[nodiscard]] z_xml_doc_ptr z_xml_parse_file(const char *path, z_xml_tree tree = z_xml_tree::whole);

// A missing file is success with no document.
[[nodiscard]] bool z_xml_parse_file_if_exists(z_xml_doc_ptr &doc, const char *path);

[[nodiscard]] z_xml_doc_ptr z_xml_parse_memory(const void *data, size_t size,
                                               z_xml_tree tree = z_xml_tree::whole);

// A member of an open archive. Says "Could not parse compressed XML data." instead.
[[nodiscard]] z_xml_doc_ptr z_xml_parse_zip_file(zip *archive, const char *member_name);

[[nodiscard]] z_xml_doc_ptr z_xml_new_doc();

// Null is accepted. A handle does the same by itself.
void z_xml_free_doc(xmlDoc *doc);
