#include "common/model/template.h"

// An element that is still in a list leaves it before it is freed.
template <typename T>
static void unlink_and_delete(T *item)
{
    if (item != nullptr)
        z_link_remove(item);
    delete item;
}

z_template_ptr z_template_new()
{
    return z_template_ptr(new z_template);
}

void z_template_destroy(z_template *tmpl)
{
    delete tmpl;
}

void z_template_add_codeset(z_template *tmpl, z_template_codeset_ptr codeset)
{
    tmpl->codesets.add_last(std::move(codeset));
}

void z_template_add_report_type(z_template *tmpl, z_template_report_type_ptr report_type)
{
    tmpl->report_types.add_last(std::move(report_type));
}

z_template_codeset_ptr z_template_codeset_new(const char *file_name_latin1)
{
    z_template_codeset_ptr codeset(new z_template_codeset);
    codeset->file_name.reset(g_strdup(file_name_latin1));
    return codeset;
}

z_template_codeset_ptr z_template_codeset_remove(z_template_codeset *codeset)
{
    z_link_remove(codeset);
    return z_template_codeset_ptr(codeset);
}

void z_template_codeset_destroy(z_template_codeset *codeset)
{
    unlink_and_delete(codeset);
}

z_template_report_type_ptr z_template_report_type_new(const z_langstr *name)
{
    z_template_report_type_ptr report_type(new z_template_report_type);
    report_type->name = z_langstr_clone(name);
    return report_type;
}

z_template_report_type_ptr z_template_report_type_clone(const z_template_report_type *report_type)
{
    z_template_report_type_ptr copy = z_template_report_type_new(report_type->name.get());
    for (const z_text_sheet_segment *segment : report_type->segments)
        copy->segments.add_last(z_text_sheet_segment_clone(segment));
    return copy;
}

z_template_report_type_ptr z_template_report_type_remove(z_template_report_type *report_type)
{
    z_link_remove(report_type);
    return z_template_report_type_ptr(report_type);
}

void z_template_report_type_destroy(z_template_report_type *report_type)
{
    unlink_and_delete(report_type);
}

void z_template_report_type_add_segment(z_template_report_type *report_type, z_text_sheet_segment_ptr segment)
{
    report_type->segments.add_last(std::move(segment));
}

void z_util_fill_in_legacy_report_type_name(z_langstr_ptr &name)
{
    z_langstr_set_translation(name, "en-uk", "Condition Report");
    z_langstr_set_translation(name, "sv", "Tillst\xE5ndsrapport");
}
