#pragma once

// Templates: what the manager edits. A template names itself, its author and version, the remark codesets
// that its reports use, the basic data that every report carries, and its report types, each a multilingual
// name and a form.
//
//     template -> codesets
//              -> details: one segment without header
//              -> report types -> segments (see text_sheet.h)

#include "common/base/list.h"
#include "common/model/langstr.h"
#include "common/model/text_sheet.h"

struct z_template;
struct z_template_codeset;
struct z_template_report_type;

void z_template_destroy(z_template *tmpl);
void z_template_codeset_destroy(z_template_codeset *codeset);
void z_template_report_type_destroy(z_template_report_type *report_type);

using z_template_ptr = z_ptr<z_template, z_template_destroy>;
using z_template_codeset_ptr = z_ptr<z_template_codeset, z_template_codeset_destroy>;
using z_template_report_type_ptr = z_ptr<z_template_report_type, z_template_report_type_destroy>;

struct z_template_codeset : z_link {
    z_latin1_ptr file_name; // Without a folder.
};

struct z_template_report_type : z_link {
    z_langstr_ptr name;
    z_list<z_text_sheet_segment> segments;
};

struct z_template {
    z_langstr_ptr name;
    z_langstr_ptr author;
    z_latin1_ptr version; // Null when there is none.
    z_list<z_template_codeset> codesets;
    z_text_sheet_segment details;
    z_list<z_template_report_type> report_types;
};

[[nodiscard]] z_template_ptr z_template_new();
void z_template_add_codeset(z_template *tmpl, z_template_codeset_ptr codeset);
void z_template_add_report_type(z_template *tmpl, z_template_report_type_ptr report_type);

[[nodiscard]] z_template_codeset_ptr z_template_codeset_new(const char *file_name_latin1);
[[nodiscard]] z_template_codeset_ptr z_template_codeset_remove(z_template_codeset *codeset);

// The name is cloned; null gives an empty one.
[[nodiscard]] z_template_report_type_ptr z_template_report_type_new(const z_langstr *name);
[[nodiscard]] z_template_report_type_ptr
z_template_report_type_clone(const z_template_report_type *report_type);
[[nodiscard]] z_template_report_type_ptr z_template_report_type_remove(z_template_report_type *report_type);
void z_template_report_type_add_segment(z_template_report_type *report_type,
                                        z_text_sheet_segment_ptr segment);

// The name of the one report type that files of the oldest format have.
void z_util_fill_in_legacy_report_type_name(z_langstr_ptr &name);
