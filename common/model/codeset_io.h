#pragma once

// Codeset files (*.codeset).
//
//     <?xml version="1.0" encoding="iso-8859-1"?>
//
//     <codeset>
//
//         <name lang="en-uk">Paper</name>                      one per language, at least one
//         <author lang="en-uk">The museum</author>             any number
//         <version>1.0</version>                               at most one
//
//         <remark>                                             at least one, codes differ
//             <code>A1</code>
//             <description lang="en-uk">Tear</description>     at least one
//         </remark>
//
//     </codeset>
//
// The reader takes the elements in any order, ignores what it does not know and sorts the remarks by code.
// The writer prints codes as they are: one that holds "&" or "<" gives a file that cannot be read. Whoever is
// about to replace a file checks first.

#include "common/base/xml_handles.h"
#include "common/model/codeset.h"

struct z_output_stream;

// Null on failure, with the reason in z_error.
[[nodiscard]] z_codeset_ptr z_codeset_io_read_from_file(const char *path);
// What a parse function has returned: null stands for a file that could not be parsed.
[[nodiscard]] z_codeset_ptr z_codeset_io_read_from_document(z_xml_doc_ptr doc);
// By the name that a template gives, which must not lead out of the folder.
[[nodiscard]] z_codeset_ptr z_codeset_io_read_from_file_in_folder(const char *file_name_latin1,
                                                                  const char *folder);

// Deletes the file first, and deletes it again if it cannot be written whole.
[[nodiscard]] bool z_codeset_io_write_to_file(const z_codeset *codeset, const char *path);
// In one write.
[[nodiscard]] bool z_codeset_io_write_to_stream(const z_codeset *codeset, z_output_stream *stream);

// Whether what the writer would write can be read. False with the reader's text.
[[nodiscard]] bool z_codeset_io_check_readable(const z_codeset *codeset);
