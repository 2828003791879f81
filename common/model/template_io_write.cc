// The writer of template files.

#include <string_view>

#include "common/base/error.h"
#include "common/base/output_stream.h"
#include "common/base/xml.h"
#include "common/base/xml_write.h"
#include "common/model/model_file.h"
#include "common/model/template_io.h"
#include "common/model/xml_langstr.h"

enum class z_value_writing { written, left_out };

// A line by itself, with its tabs.
static bool write_line(z_output_stream *stream, int depth, std::string_view text)
{
    return z_xml_write_tabs(stream, depth) && z_xml_write_markup(stream, text);
}

static bool write_text_field(z_output_stream *stream, const z_text_sheet_field *field, int depth,
                             z_value_writing values)
{
    if (values == z_value_writing::left_out || field->text == nullptr)
        return write_line(stream, depth, "<textfield/>\n");
    return write_line(stream, depth, "<textfield>\n") &&
           z_xml_write_langstr(stream, field->text.get(), "contents", depth + 1) &&
           write_line(stream, depth, "</textfield>\n");
}

static bool write_checkbox(z_output_stream *stream, const z_text_sheet_field *field, int depth,
                           z_value_writing values)
{
    const bool is_selected = values == z_value_writing::written && field->selected;
    return write_line(stream, depth, is_selected ? "<checkbox selected=\"true\">\n" : "<checkbox>\n") &&
           z_xml_write_langstr(stream, field->text.get(), "label", depth + 1) &&
           write_line(stream, depth, "</checkbox>\n");
}

static bool write_field(z_output_stream *stream, const z_text_sheet_field *field, int depth,
                        z_value_writing values)
{
    switch (field->kind) {
    case Z_TEXT_SHEET_TEXT_FIELD:
        return write_text_field(stream, field, depth, values);
    case Z_TEXT_SHEET_CHECKBOX:
        return write_checkbox(stream, field, depth, values);
    default:
        z_error_set_unknown();
        return false;
    }
}

static bool write_row(z_output_stream *stream, const z_text_sheet_row *row, int depth, z_value_writing values)
{
    if (!write_line(stream, depth, "<row>\n") ||
        !z_xml_write_langstr(stream, row->header.get(), "header", depth + 1))
        return false;
    for (const z_text_sheet_field *field : row->fields)
        if (!write_field(stream, field, depth + 1, values))
            return false;
    return write_line(stream, depth, "</row>\n");
}

static bool write_blocks(z_output_stream *stream, const z_text_sheet_segment *segment, int depth,
                         z_value_writing values)
{
    for (const z_text_sheet_block *block : segment->blocks) {
        if (!write_line(stream, depth, "<block>\n") ||
            !z_xml_write_langstr(stream, block->header.get(), "header", depth + 1))
            return false;
        for (const z_text_sheet_row *row : block->rows)
            if (!write_row(stream, row, depth + 1, values))
                return false;
        if (!write_line(stream, depth, "</block>\n"))
            return false;
    }
    return true;
}

static bool write_codesets(z_output_stream *stream, const z_template *tmpl)
{
    if (tmpl->codesets.is_empty())
        return true;
    if (!z_xml_write_markup(stream, "\n\t<codesets>\n"))
        return false;
    for (const z_template_codeset *codeset : tmpl->codesets)
        if (!z_xml_write_markup(stream, "\t\t<codeset filename=\"") ||
            !z_xml_write_string(stream, codeset->file_name.get()) || !z_xml_write_markup(stream, "\"/>\n"))
            return false;
    return z_xml_write_markup(stream, "\t</codesets>\n");
}

static bool write_details(z_output_stream *stream, const z_text_sheet_segment *details)
{
    if (details->header == nullptr && !z_text_sheet_segment_has_contents(details))
        return true;
    return z_xml_write_markup(stream, "\n\t<details>\n") &&
           write_blocks(stream, details, 2, z_value_writing::written) &&
           z_xml_write_markup(stream, "\t</details>\n");
}

static bool write_report_type(z_output_stream *stream, const z_template_report_type *report_type)
{
    if (!z_xml_write_markup(stream, "\n\t<report-type>\n") ||
        !z_xml_write_langstr(stream, report_type->name.get(), "name", 2))
        return false;
    for (const z_text_sheet_segment *segment : report_type->segments)
        if (!z_xml_write_markup(stream, "\t\t<segment>\n") ||
            !z_xml_write_langstr(stream, segment->header.get(), "header", 3) ||
            !write_blocks(stream, segment, 3, z_value_writing::left_out) ||
            !z_xml_write_markup(stream, "\t\t</segment>\n"))
            return false;
    return z_xml_write_markup(stream, "\t</report-type>\n");
}

static bool write_template(z_output_stream *stream, const z_template *tmpl)
{
    if (!z_xml_write_markup(stream, "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\n\n<template>\n\n") ||
        !z_xml_write_langstr(stream, tmpl->name.get(), "name", 1) ||
        !z_xml_write_langstr(stream, tmpl->author.get(), "author", 1) ||
        !z_model_file_write_version(stream, tmpl->version.get()) || !write_codesets(stream, tmpl) ||
        !write_details(stream, &tmpl->details))
        return false;
    for (const z_template_report_type *report_type : tmpl->report_types)
        if (!write_report_type(stream, report_type))
            return false;
    return z_xml_write_markup(stream, "\n</template>\n");
}

static z_model_file_printer get_printer(const z_template *tmpl)
{
    return [tmpl](z_output_stream *stream) { return write_template(stream, tmpl); };
}

bool z_template_io_write_to_file(const z_template *tmpl, const char *path)
{
    return z_model_file_print_to_path(get_printer(tmpl), path);
}

bool z_template_io_put_file(const z_template *tmpl, const char *path)
{
    return z_model_file_put_at_path(get_printer(tmpl), path);
}

bool z_template_io_write_to_stream(const z_template *tmpl, z_output_stream *stream)
{
    return write_template(stream, tmpl);
}

bool z_template_io_check_readable(const z_template *tmpl)
{
    size_t size;
    const z_bytes_ptr data = z_model_file_print_to_memory(get_printer(tmpl), size);
    return data != nullptr && z_template_io_read_from_document(
                                  z_xml_parse_memory(data.get(), size, z_xml_tree::for_reading)) != nullptr;
}
