// Listing a folder of 1,000 templates of 10 KB:
//
//     list-first    with nothing remembered     : parsing each file with libxml2 alone
//     list-again    with nothing changed        : reading each template

#include <cstdio>
#include <cstdlib>
#include <vector>

#include <glib/gstdio.h>
#include <libxml/parser.h>

#include "bench/measure.h"
#include "bench/sample.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/xml_handles.h"
#include "common/model/template_io.h"
#include "common/workspace/item_list.h"
#include "common/workspace/settings.h"
#include "common/workspace/template_list.h"

static const int template_count = 1000;
static const int template_size = 10'000;

static void require(bool success)
{
    if (success)
        return;
    std::fprintf(stderr, "%s\n", z_error_get());
    std::exit(2);
}

// The templates, for as long as the benchmark lasts.
struct bench_folder {
    z_utf8_ptr path;
    std::vector<z_utf8_ptr> files;

    bench_folder() : path(g_dir_make_tmp("zanvel-bench-XXXXXX", nullptr))
    {
        const z_template_ptr tmpl = bench_make_template(template_size / bench_bytes_per_row);
        for (int i = 0; i < template_count; ++i) {
            const z_utf8_ptr name(g_strdup_printf("inspection_%d.template", i));
            files.push_back(z_fs_utils_create_path_in_folder(path.get(), name.get()));
            require(z_template_io_write_to_file(tmpl.get(), files.back().get()));
        }
    }
    ~bench_folder()
    {
        for (const z_utf8_ptr &file : files)
            g_unlink(file.get());
        g_rmdir(path.get());
    }
    bench_folder(const bench_folder &) = delete;
    bench_folder &operator=(const bench_folder &) = delete;
};

int main()
{
    const bench_folder folder;
    const z_settings_ptr settings = z_settings_new(folder.path.get());
    const auto list = [&] {
        require(z_template_list_load_folder(folder.path.get(), settings.get()) != nullptr);
    };
    const auto list_anew = [&] {
        z_item_list_clean_up();
        list();
    };
    const auto parse = [&] {
        for (const z_utf8_ptr &file : folder.files)
            require(z_xml_doc_ptr(xmlReadFile(file.get(), nullptr, 0)) != nullptr);
    };
    const auto read = [&] {
        for (const z_utf8_ptr &file : folder.files)
            require(z_template_io_read_from_file(file.get()) != nullptr);
    };
    g_usleep(2'500'000); // Until the files have settled, so that their lines can be remembered.

    bool success = bench_print("list-first-1000", bench_compare_times(15, list_anew, parse), 1.3, "ms");
    success &= bench_print("list-again-1000", bench_compare_times(15, list, read), 0.03, "ms");
    return success ? EXIT_SUCCESS : EXIT_FAILURE;
}
