#pragma once

// Copying files into the workspace's folder and out of it. Every function tells the user what went wrong. A
// copy is put into place whole, so that a failure leaves what was there; a file that would be copied onto
// itself is left alone.

struct z_components_gui;

// Adds a copy of the file, after asking if one of its name is there.
void components_add_file(const z_components_gui *components, const char *source);

// To a path where nothing was yet.
void components_clone_file(const z_components_gui *components, const char *source, const char *target);

// To wherever the user chooses.
void components_save_copy_of_file(const z_components_gui *components, const char *source);
