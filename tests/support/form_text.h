#pragma once

// Forms as texts, without what has no text: "en=Segment{en=Block(en=Row _en=text oen=checkbox
// xen=selected)}". Of a template: its name, its basic data, then "/" and each report type, then ":" and each
// of its segments.

#include "common/model/template.h"
#include "tests/support/langstr_text.h"

inline std::string text_from_row(const z_text_sheet_row *row)
{
    std::string text = "(" + text_from_langstr(row->header.get());
    for (const z_text_sheet_field *field : row->fields) {
        const bool is_text = field->kind == Z_TEXT_SHEET_TEXT_FIELD;
        text += is_text ? " _" : field->selected ? " x" : " o";
        text += text_from_langstr(field->text.get());
    }
    return text + ")";
}

inline std::string text_from_segment(const z_text_sheet_segment *segment)
{
    std::string text = text_from_langstr(segment->header.get());
    for (const z_text_sheet_block *block : segment->blocks) {
        text += "{" + text_from_langstr(block->header.get());
        for (const z_text_sheet_row *row : block->rows)
            text += text_from_row(row);
        text += "}";
    }
    return text;
}

inline std::string text_from_template(const z_template *tmpl)
{
    std::string text = text_from_langstr(tmpl->name.get()) + text_from_segment(&tmpl->details);
    for (const z_template_report_type *report_type : tmpl->report_types) {
        text += "/" + text_from_langstr(report_type->name.get());
        for (const z_text_sheet_segment *segment : report_type->segments)
            text += ":" + text_from_segment(segment);
    }
    return text;
}
