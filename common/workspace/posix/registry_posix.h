#pragma once

// Where the user's strings lie. A test replaces it to have its own.

// In memory of GLib's allocator. Null if no path leads there.
extern char *(*z_posix_get_configuration_folder_path)();
