#include "bench/sample.h"

// A text in four languages, such as inspectors write.
static z_langstr_ptr make_text(const char *english, const char *swedish, const char *german,
                               const char *french, int number)
{
    z_langstr_ptr langstr;
    const struct {
        const char *tag;
        const char *text;
    } translations[] = {{"en-uk", english}, {"sv", swedish}, {"de-de", german}, {"fr-fr", french}};
    for (const auto &translation : translations) {
        const z_latin1_ptr text(g_strdup_printf("%s %d", translation.text, number));
        z_langstr_set_translation(langstr, translation.tag, text.get());
    }
    return langstr;
}

static z_text_sheet_row_ptr make_row(int number)
{
    const z_langstr_ptr header = make_text("Condition of the surface & edges", "Ytans och kanternas skick",
                                           "Zustand der Oberfl\xe4"
                                           "che",
                                           "\xc9tat de la surface", number);
    z_text_sheet_row_ptr row = z_text_sheet_row_new(header.get());
    for (int i = 0; i < 2; ++i) {
        z_text_sheet_field_ptr box = z_text_sheet_field_new(Z_TEXT_SHEET_CHECKBOX);
        z_text_sheet_field_set_text(box.get(), make_text("Good, no damage", "Bra, inga skador",
                                                         "Gut, kein Schaden", "Bon, intact", number + i));
        z_text_sheet_row_add_field(row.get(), std::move(box));
    }
    z_text_sheet_row_add_field(row.get(), z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
    return row;
}

// Six rows to a block, four blocks to a segment, ten segments to a report type.
z_template_ptr bench_make_template(int row_count)
{
    z_template_ptr tmpl = z_template_new();
    tmpl->name = make_text("Condition report", "Tillst\xe5ndsrapport", "Zustandsbericht", "Constat", 1);
    tmpl->version.reset(g_strdup("1.0"));
    for (int number = 0; number < row_count; ++number) {
        if (number % 240 == 0) {
            const z_langstr_ptr name = make_text("Survey", "Besiktning", "Begutachtung", "Examen", number);
            z_template_add_report_type(tmpl.get(), z_template_report_type_new(name.get()));
        }
        z_template_report_type *report_type = tmpl->report_types.get_last();
        if (number % 24 == 0) {
            const z_langstr_ptr header = make_text("Front", "Framsida", "Vorderseite", "Recto", number);
            z_template_report_type_add_segment(report_type, z_text_sheet_segment_new(header.get()));
        }
        z_text_sheet_segment *segment = report_type->segments.get_last();
        if (number % 6 == 0) {
            const z_langstr_ptr header = make_text("Frame", "Ram", "Rahmen", "Cadre", number);
            z_text_sheet_segment_add_block(segment, z_text_sheet_block_new(header.get()));
        }
        z_text_sheet_block_add_row(segment->blocks.get_last(), make_row(number));
    }
    return tmpl;
}
