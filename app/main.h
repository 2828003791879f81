#pragma once

// The program's entry. The system's own entry (posix/, win32/) hands the arguments on, and z_main, which
// wants them in UTF-8, runs the toolkit application; that calls `run` once, on its first activation.

#include <gio/gio.h>

struct z_application_configuration {
    const char *identifier; // A reverse-domain name; also names the program to the desktop.
    void (*run)(int argc, char **argv);
    // Brings the running instance to the front instead of starting another. Null: instances run side by side.
    void (*present)(GApplication *application, const z_application_configuration *configuration);
};

void z_init_application_configuration(z_application_configuration *configuration);

// Returns the process's exit code: 1 after a failed start-up, otherwise 0.
[[nodiscard]] int z_main(int argc, char **argv);
// The same with another configuration.
[[nodiscard]] int z_main_with_configuration(const z_application_configuration *configuration, int argc,
                                            char **argv);
// The same, but 1 without a run for an argument that is no text, which is told on the standard error stream,
// and for a count that is negative.
[[nodiscard]] int z_main_with_unchecked_arguments(int argc, char **argv);

// What a failed start-up tells the user stands in z_error. Exposed for tests.
[[nodiscard]] bool z_main_start_up();
void z_main_shut_down();

// Deletes the temporary files that earlier runs have left in the folder; failing to delete one is no failure.
// False only if there is no folder to look into.
[[nodiscard]] bool z_main_remove_old_temp_files();
