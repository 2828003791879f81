#pragma once

// The system's part of the view font: from a font's file to a face.

#include "common/gui/cairo_handles.h"

// Null unless the file is a font of this full name, which is then known to nobody but this program. The file
// is named by an absolute path, as it is opened again when the face is first used.
[[nodiscard]] z_font_face_ptr z_view_font_create_face(const char *path, const char *full_name);
