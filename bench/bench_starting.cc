// From the start of the process to the first drawn main window:
//
//     start-30      with 30 templates of 10 KB      : the toolkit alone with a list of 30 lines
//
// Both run in processes of their own; "program" as the argument makes this one the program.

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <glib/gstdio.h>

#include "app/main.h"
#include "bench/first_drawing.h"
#include "bench/measure.h"
#include "bench/own_user.h"
#include "bench/sample.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/model/template_io.h"
#include "common/workspace/platform_system.h"
#include "common/workspace/workspace.h"

static const int template_count = 30;
static const int template_size = 10'000;

static void require(bool success)
{
    if (success)
        return;
    std::fprintf(stderr, "bench-starting: %s\n", z_error_get());
    std::exit(2);
}

static const char home_variable[] = "ZANVEL_BENCH_HOME";

static z_utf8_ptr make_home()
{
    z_utf8_ptr home(g_dir_make_tmp("zanvel-bench-XXXXXX", nullptr));
    require(home != nullptr);
    g_setenv(home_variable, home.get(), TRUE);
    bench_begin_own_user(home.get());
    return home;
}

// This program has no bundled files beside it, so nothing is installed into the workspace: it holds no other
// templates.
static void make_workspace(const char *home)
{
    const z_utf8_ptr path = z_fs_utils_create_path_in_folder(home, "workspace");
    require(z_workspace_create(path.get()));
    const z_workspace_ptr workspace = z_workspace_open();
    require(workspace != nullptr);
    const z_template_ptr tmpl = bench_make_template(template_size / bench_bytes_per_row);
    for (int i = 0; i < template_count; ++i) {
        const z_utf8_ptr name(g_strdup_printf("inspection_%d.template", i));
        const z_utf8_ptr file =
            z_fs_utils_create_path_in_folder(workspace->templates_folder_path.get(), name.get());
        require(z_template_io_write_to_file(tmpl.get(), file.get()));
    }
}

static void remove_folder(const char *path)
{
    GDir *folder = g_dir_open(path, 0, nullptr);
    for (const char *name; folder != nullptr && (name = g_dir_read_name(folder)) != nullptr;) {
        const z_utf8_ptr entry(g_build_filename(path, name, nullptr));
        if (g_unlink(entry.get()) != 0)
            remove_folder(entry.get());
    }
    if (folder != nullptr)
        g_dir_close(folder);
    g_rmdir(path);
}

static void run(const char *program, const char *argument)
{
    const char *const arguments[] = {program, argument, nullptr};
    int status = 0;
    require(g_spawn_sync(nullptr, const_cast<char **>(arguments), nullptr, G_SPAWN_DEFAULT, nullptr, nullptr,
                         nullptr, nullptr, &status, nullptr) != FALSE &&
            status == 0);
}

// The installed program's fonts and bundled files lie beside it.
static char *get_staged_program_path()
{
    return g_strdup(g_getenv("ZANVEL_BENCH_PROGRAM"));
}

int main(int argc, char **argv)
{
    if (argc > 1 && std::strcmp(argv[1], "program") == 0) {
        bench_begin_own_user(g_getenv(home_variable));
        z_platform.get_executable_path = get_staged_program_path;
        bench_exit_when_drawn("Zanvel Templates Manager 3.2.3");
        require(z_main(1, argv) == 0);
        return EXIT_FAILURE; // Ended without its window.
    }
    const z_utf8_ptr own_path(g_canonicalize_filename(argv[0], nullptr));
    const z_utf8_ptr own_folder(g_path_get_dirname(own_path.get()));
    const z_utf8_ptr bare_list = z_fs_utils_create_path_in_folder(own_folder.get(), "zanvel-bare-list");
    const z_utf8_ptr staged(g_canonicalize_filename("../stage/zanvel-templates-manager", own_folder.get()));
    g_setenv("ZANVEL_BENCH_PROGRAM", staged.get(), TRUE);
    const z_utf8_ptr home = make_home();
    make_workspace(home.get());
    const bench_ratio ratio = bench_compare_times(
        21, [&] { run(argv[0], "program"); }, [&] { run(bare_list.get(), nullptr); });
    remove_folder(home.get());
    bench_end_own_user();
    return bench_print("start-30", ratio, 1.3, "ms") ? EXIT_SUCCESS : EXIT_FAILURE;
}
