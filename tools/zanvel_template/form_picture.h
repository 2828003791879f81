#pragma once

// A whole form as the bytes of a picture file, drawn as the editor draws it.

#include "common/base/output_stream.h"
#include "common/gui/gfx_form.h"

enum class z_picture_format { png, pdf, svg };

// Found by the file name's extension, in any letter case. False, with a message, for any other.
[[nodiscard]] bool z_picture_format_for_path(z_picture_format &format, const char *path);

// Draws the form from its top to its bottom, so wide as the context says; its `cr` does not count. On failure
// the reason is in z_error.
[[nodiscard]] bool z_picture_draw_form(z_output_stream *stream, z_picture_format format,
                                       const z_gfx_text_sheet_context &settings, z_gfx_form *form);
