#pragma once

// The font in which drawings are labelled: "Liberation Sans Bold", which comes with the program, so that a
// drawing looks the same on every computer. Loaded once at start.

#include <cairo.h>

// Takes "fonts/LiberationSans-Bold.ttf" in the current folder, or else in `installation_folder`. A failure
// replaces what is in z_error and leaves no face.
[[nodiscard]] bool z_resources_load_view_font(const char *installation_folder);
void z_resources_clean_up_view_font();

// Borrowed; null until it is loaded.
[[nodiscard]] cairo_font_face_t *z_get_view_font_face();
