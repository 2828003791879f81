#pragma once

// Forms as texts: "en=Segment{en=Block(en=Row _en=text oen=checkbox xen=selected)}", without what has no text.

#include "common/model/text_sheet.h"
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
