#pragma once

// A mark, seen by all programs of the family that this user runs, that at least one of them is running. It
// goes with the process, however that ends, and is not handed on to programs that it starts.

enum class z_running_marker {
    first,  // Nobody else held it: temporary files that are still there belong to nobody.
    others, // Another program holds it, or the system cannot tell.
    failed,
};

// Holds the marker of this folder until the process ends; without the folder nobody waits for anybody. The first one keeps the others waiting until it
// calls z_running_marker_share. Reports nothing.
[[nodiscard]] z_running_marker z_running_marker_hold(const char *folder_path);
void z_running_marker_share();
