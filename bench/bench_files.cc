// Reading and writing template files, against what libxml2 alone takes for the same file:
//
//     read      the whole template, freed again  : xmlReadFd and xmlFreeDoc
//     write     the template to a file           : xmlSaveToFd of the parsed document to a file
//     open      peak memory of reading           : peak memory of the parsed tree
//
// Prints one line per ratio, and ends with status 1 if one is over its bound.

#include <cstdio>
#include <cstdlib>
#include <string>

#include <glib/gstdio.h>
#include <libxml/xmlsave.h>

#include "bench/measure.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/xml_handles.h"
#include "common/model/template_io.h"

static void require(bool success)
{
    if (success)
        return;
    std::fprintf(stderr, "%s\n", z_error_get());
    std::exit(2);
}

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
static z_template_ptr make_template(int row_count)
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

static constexpr int bytes_per_row = 860;

struct bench_file {
    z_utf8_ptr path;

    explicit bench_file(const char *name)
    {
        const z_utf8_ptr file_name(g_strdup_printf("zanvel-bench-%s-%u", name, g_random_int()));
        path.reset(g_build_filename(g_get_tmp_dir(), file_name.get(), nullptr));
    }
    ~bench_file()
    {
        g_unlink(path.get());
    }
    bench_file(const bench_file &) = delete;
    bench_file &operator=(const bench_file &) = delete;
};

static z_xml_doc_ptr read_bare(const char *path)
{
    const z_file_ptr file = z_fs_utils_open_file(path, "rb");
    require(file != nullptr);
    z_xml_doc_ptr doc(xmlReadFd(fileno(file.get()), nullptr, nullptr, 0));
    require(doc != nullptr);
    return doc;
}

static void save_bare(xmlDoc *doc, const char *path)
{
    const z_file_ptr file = z_fs_utils_open_file(path, "wb");
    require(file != nullptr);
    xmlSaveCtxt *save = xmlSaveToFd(fileno(file.get()), "iso-8859-1", 0);
    xmlSaveDoc(save, doc);
    require(xmlSaveClose(save) >= 0);
}

static bool compare_reading(const char *name, int size, int rounds)
{
    const bench_file file(name);
    require(z_template_io_write_to_file(make_template(size / bytes_per_row).get(), file.path.get()));
    return bench_print(name,
                       bench_compare_times(
                           rounds, [&] { require(z_template_io_read_from_file(file.path.get()) != nullptr); },
                           [&] { read_bare(file.path.get()); }),
                       1.3, "ms");
}

static bool compare_writing(const char *name, int size, int rounds)
{
    const bench_file ours(name);
    const bench_file yardstick(name);
    const z_template_ptr tmpl = make_template(size / bytes_per_row);
    require(z_template_io_write_to_file(tmpl.get(), ours.path.get()));
    require(z_template_io_write_to_file(tmpl.get(), yardstick.path.get()));
    const z_xml_doc_ptr doc = read_bare(yardstick.path.get());
    return bench_print(name,
                       bench_compare_times(
                           rounds, [&] { require(z_template_io_write_to_file(tmpl.get(), ours.path.get())); },
                           [&] { save_bare(doc.get(), yardstick.path.get()); }),
                       0.3, "ms");
}

static bool compare_memory(const char *name, int size)
{
    const bench_file file(name);
    bench_run_apart([&] {
        return z_template_io_write_to_file(make_template(size / bytes_per_row).get(), file.path.get());
    });
    double ours;
    double yardstick;
    bench_run_apart([&] { return z_template_io_read_from_file(file.path.get()) != nullptr; }, &ours);
    bench_run_apart([&] { return read_bare(file.path.get()) != nullptr; }, &yardstick);
    return bench_print(name, {ours / yardstick, ours, yardstick}, 1.25, "MB");
}

int main()
{
    bool success = compare_memory("open-20-mb-memory", 20'000'000);
    success &= bench_run_apart([] { return compare_reading("read-10-kb", 10'000, 2000); });
    success &= bench_run_apart([] { return compare_reading("read-1-mb", 1'000'000, 100); });
    success &= bench_run_apart([] { return compare_writing("write-1-mb", 1'000'000, 100); });
    return success ? EXIT_SUCCESS : EXIT_FAILURE;
}
