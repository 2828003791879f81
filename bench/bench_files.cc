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
#include "bench/sample.h"
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
    require(
        z_template_io_write_to_file(bench_make_template(size / bench_bytes_per_row).get(), file.path.get()));
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
    const z_template_ptr tmpl = bench_make_template(size / bench_bytes_per_row);
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
        return z_template_io_write_to_file(bench_make_template(size / bench_bytes_per_row).get(),
                                           file.path.get());
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
