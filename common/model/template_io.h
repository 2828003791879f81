#pragma once

// Template files (*.template).
//
//     <?xml version="1.0" encoding="iso-8859-1"?>
//
//     <template>
//
//         <name lang="en-uk">Damage report</name>              one per language, at least one
//         <author lang="en-uk">The museum</author>             any number
//         <version>1.0</version>                               at most one
//
//         <codesets>
//             <codeset filename="paper.codeset"/>
//         </codesets>
//
//         <details>                                            blocks of basic data
//             <block>
//                 <header lang="en-uk">Object</header>         any number
//                 <row>
//                     <header lang="en-uk">Owner</header>      at least one
//                     <textfield>
//                         <contents lang="en-uk">...</contents>
//                     </textfield>
//                     <checkbox selected="true">
//                         <label lang="en-uk">Loan</label>     at least one
//                     </checkbox>
//                 </row>
//             </block>
//         </details>
//
//         <report-type>                                        at least one
//             <name lang="en-uk">Condition report</name>       at least one
//             <segment>
//                 <header lang="en-uk">Front</header>          any number
//                 <block>...</block>                           as above, but without contents and selected
//             </segment>
//         </report-type>
//
//     </template>
//
// The reader takes top-level elements in any order and ignores what it does not know. It also reads two older
// spellings: report types named "condition", and blocks and rows named "group" and "item" with prefixes; see
// template_io_read.cc. The writer writes the format above only, byte for byte the same for the same template.
//
// The writer prints what it is given, even what the reader refuses: a row without a header, a template
// without a report type. Whoever is about to replace a file checks first.

#include "common/base/xml_handles.h"
#include "common/model/template.h"

struct z_output_stream;

// Null on failure, with the reason in z_error.
[[nodiscard]] z_template_ptr z_template_io_read_from_file(const char *path);
// What a parse function has returned: null stands for a file that could not be parsed. The document is used
// up while it is read, so that it and the template do not both take their full memory.
[[nodiscard]] z_template_ptr z_template_io_read_from_document(z_xml_doc_ptr doc);

// Deletes the file first, and deletes it again if it cannot be written whole.
[[nodiscard]] bool z_template_io_write_to_file(const z_template *tmpl, const char *path);
// The same without a moment in which there is no whole file: a failure leaves the old one.
[[nodiscard]] bool z_template_io_put_file(const z_template *tmpl, const char *path);
// In one write.
[[nodiscard]] bool z_template_io_write_to_stream(const z_template *tmpl, z_output_stream *stream);

// Whether what the writer would write can be read. False with the reader's text.
[[nodiscard]] bool z_template_io_check_readable(const z_template *tmpl);
