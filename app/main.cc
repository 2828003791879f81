#include "app/main.h"

#include <cstdio>

#include <gtk/gtk.h>
#include <libxml/parser.h>
#include <libxslt/xslt.h>

#include "app/application.h"
#include "app/desktop_system.h"
#include "app/main_window.h"
#include "app/running_marker.h"
#include "app/screen_scale.h"
#include "app/single_instance.h"
#include "app/user_session.h"
#include "common/base/error.h"
#include "common/gui/file_dialog.h"
#include "common/gui/gfx_text.h"
#include "common/gui/gui_style.h"
#include "common/gui/message.h"
#include "common/gui/resources.h"
#include "common/gui/view_font.h"
#include "common/gui/window_stack.h"
#include "common/workspace/platform.h"

static int argument_count;
static char **argument_vector;
static bool start_up_succeeded = false;
static bool run_started = false;

// The application's body: everything between the first window and the last. The arguments have no meaning
// yet.
static void run(int, char **)
{
    const z_window_stack_ptr window_stack = z_window_stack_new();
    z_workspace_ptr workspace = z_user_session_start(window_stack.get());
    if (workspace == nullptr)
        return;
    z_application_context context = {window_stack.get(), workspace.get(), workspace->settings.get()};
    run_main_window(&context);
    z_user_session_end(std::move(workspace));
}

void z_init_application_configuration(z_application_configuration *configuration)
{
    configuration->identifier = "com.zanvel.TemplatesManager";
    configuration->run = run;
    configuration->present = nullptr;
}

// "temp", eight characters, a period, "o", one character, "t": what printing leaves behind.
static bool is_temp_file_name(const char *name)
{
    static const char pattern[] = "temp????????.o?t";
    const z_utf8_ptr folded(g_ascii_strdown(name, -1));
    return g_pattern_match_simple(pattern, folded.get());
}

bool z_main_remove_old_temp_files()
{
    return z_platform_delete_temp_files(is_temp_file_name);
}

// The first program of the family that runs cleans up after those that ran before it.
static bool clean_up_temp_files()
{
    const z_utf8_ptr folder_path = z_platform_get_temp_files_folder_path();
    switch (z_running_marker_hold(folder_path.get())) {
    case z_running_marker::failed:
        z_error_set("Couldn't create mutex.");
        return false;
    case z_running_marker::others: // Then it does not matter whether there is a folder.
        z_error_clear();
        return true;
    case z_running_marker::first:
        break;
    }
    const bool is_cleaned_up = z_main_remove_old_temp_files();
    z_running_marker_share();
    return is_cleaned_up;
}

bool z_main_start_up()
{
    z_error_clear();
    if (!clean_up_temp_files()) {
        z_error_append("Couldn't clean up temp files.");
        return false;
    }
    if (!z_resources_open()) {
        z_error_append("Couldn't load resources.");
        return false;
    }
    if (!z_resources_load_shared_images())
        return false;
    const z_utf8_ptr install_folder = z_platform_get_install_folder_path();
    return z_resources_load_view_font(install_folder != nullptr ? install_folder.get() : "");
}

void z_main_shut_down()
{
    z_resources_clean_up_view_font();
    z_file_dialog_clean_up();
    z_gfx_text_sheet_clean_up();
    z_gui_style_clean_up();
    z_resources_clean_up();
    z_single_instance_stop();
    xsltCleanupGlobals();
    xmlCleanupParser();
}

static void app_startup_callback(GApplication *, gpointer data)
{
    const auto *configuration = static_cast<const z_application_configuration *>(data);
    if (configuration->present != nullptr)
        z_single_instance_start(configuration);
    start_up_succeeded = z_main_start_up();
}

static void app_activate_callback(GApplication *application, gpointer data)
{
    const auto *configuration = static_cast<const z_application_configuration *>(data);
    if (!start_up_succeeded) {
        z_error_append("Startup failed.");
        z_message_show_error(nullptr, z_error_get());
    } else if (!run_started) {
        run_started = true;
        configuration->run(argument_count, argument_vector);
    } else if (configuration->present != nullptr) {
        configuration->present(application, configuration);
    }
}

static int app_command_line_callback(GApplication *application, GApplicationCommandLine *, gpointer)
{
    g_application_activate(application);
    return start_up_succeeded ? 0 : 1;
}

static void app_shutdown_callback(GApplication *, gpointer)
{
    z_main_shut_down();
}

int z_main_with_configuration(const z_application_configuration *configuration, int argc, char **argv)
{
    argument_count = argc;
    argument_vector = argv;
    start_up_succeeded = false;
    run_started = false;
    z_platform_set_own_environment_value("GTK_THEME", "Adwaita");
    if (configuration->present != nullptr && send_pipe_command(configuration, 'p'))
        return 0;
    z_desktop.set_identity(configuration->identifier);
    z_screen_scale_set();

    const auto flags =
        static_cast<GApplicationFlags>(G_APPLICATION_HANDLES_COMMAND_LINE | G_APPLICATION_NON_UNIQUE);
    const z_ref<GtkApplication> application = z_take(gtk_application_new(configuration->identifier, flags));
    GtkApplication *app = application.get();
    auto *data = const_cast<z_application_configuration *>(configuration);
    g_signal_connect(app, "activate", G_CALLBACK(app_activate_callback), data);
    g_signal_connect(app, "command-line", G_CALLBACK(app_command_line_callback), data);
    g_signal_connect(app, "shutdown", G_CALLBACK(app_shutdown_callback), data);
    g_signal_connect(app, "startup", G_CALLBACK(app_startup_callback), data);
    return g_application_run(G_APPLICATION(app), 0, nullptr);
}

int z_main(int argc, char **argv)
{
    z_application_configuration configuration;
    z_init_application_configuration(&configuration);
    return z_main_with_configuration(&configuration, argc, argv);
}

int z_main_with_unchecked_arguments(int argc, char **argv)
{
    for (int i = 0; i < argc; ++i) {
        if (g_utf8_validate(argv[i], -1, nullptr))
            continue;
        std::fprintf(stderr, "Cannot parse command line argument %d.", i);
        return 1;
    }
    return argc < 0 ? 1 : z_main(argc, argv);
}
