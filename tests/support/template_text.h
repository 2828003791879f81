#pragma once

// Templates as texts: names and forms, a line for each element but the fields, which end the lines of their
// rows.
//
//     sv=Name
//     SEGMENT                          the basic data
//      BLOCK sv=Block
//       ROW sv=Row __ [] en=Yes        a text field and a checkbox
//     REPORT TYPE sv=Report type
//     SEGMENT sv=Segment

#include <string>

#include "common/model/template.h"
#include "tests/support/langstr_text.h"

// Calls visit(kind, header, rect) for the segment and each element in it, in order.
template <typename Visit>
void visit_segment(const z_text_sheet_segment *segment, Visit visit)
{
    visit("\nSEGMENT ", segment->header, segment->rect);
    for (const z_text_sheet_block *block : segment->blocks) {
        visit("\n BLOCK ", block->header, block->rect);
        for (const z_text_sheet_row *row : block->rows) {
            visit("\n  ROW ", row->header, row->rect);
            for (const z_text_sheet_field *field : row->fields)
                visit(field->kind == Z_TEXT_SHEET_CHECKBOX ? " [] " : " __", field->text, field->rect);
        }
    }
}

inline std::string text_from_template(const z_template *tmpl)
{
    std::string text = text_from_langstr(tmpl->name.get());
    const auto add = [&text](const char *kind, const z_langstr_ptr &langstr, const z_rectangle &) {
        text.append(kind).append(text_from_langstr(langstr.get()));
    };
    visit_segment(&tmpl->details, add);
    for (const z_template_report_type *report_type : tmpl->report_types) {
        add("\nREPORT TYPE ", report_type->name, {});
        for (const z_text_sheet_segment *segment : report_type->segments)
            visit_segment(segment, add);
    }
    return text;
}
