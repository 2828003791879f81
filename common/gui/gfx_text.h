#pragma once

// The texts of a form: the only place where text is laid out, measured and shown.
//
// Text is laid out at device resolution, so that it stays sharp on scaled displays, and measured in whole
// pixels of the form. Laying out is what costs; so each text keeps its sizes (z_text_sheet_measure), and a
// text that fits its wrap width is laid out once for every width that it fits. The kept sizes belong to one
// generation: one base font, resolution, device scale, set of rendering options and order of languages. When
// any of these changes, the shared layouts are made anew and a new generation makes all kept sizes void.

#include "common/gui/font.h"
#include "common/gui/gfx_text_sheet_context.h"
#include "common/model/text_sheet.h"

struct z_gfx_text_size {
    int32_t width = 0;
    int32_t height = 0;
};

enum class z_gfx_ink { black, grey };

// A text of the model, in the preferred language, or a fixed one; and where its sizes are kept.
struct z_gfx_text {
    z_font_style style;
    const z_langstr *langstr; // Null for a fixed text.
    const char *latin1;       // The fixed text; null for none.
    z_text_sheet_measure *measure;
    z_gfx_ink ink = z_gfx_ink::black;
};

// Begins a draw: brings the generation up to date with the context and fills the second part of it.
// Needs: `cr` and the fields before `width`.
void z_gfx_text_sheet_begin(z_gfx_text_sheet_context *ctx);

// All that follows needs a begun draw. A wrap width of zero or less does not wrap.

[[nodiscard]] z_gfx_text_size z_gfx_text_get_size(const z_gfx_text_sheet_context *ctx, const z_gfx_text &text,
                                                  int32_t wrap_width);
[[nodiscard]] z_gfx_text_size z_gfx_text_get_natural_size(const z_gfx_text_sheet_context *ctx,
                                                          const z_gfx_text &text);
// Returns the size; shows the text only where it meets the clip, and not at all in a measuring walk.
z_gfx_text_size z_gfx_text_draw(const z_gfx_text_sheet_context *ctx, const z_gfx_text &text, int32_t x,
                                int32_t y, int32_t wrap_width);

// Whether something that covers this rectangle, ink that leaves it by a little included, has to be drawn.
[[nodiscard]] bool z_gfx_text_sheet_is_visible(const z_gfx_text_sheet_context *ctx, int32_t x, int32_t y,
                                               int32_t width, int32_t height);

// One text by itself, with nothing kept: draws it unless asked only to measure, and reports the size as laid
// out, unrounded. The out-pointers may be null.
enum class z_gfx_text_action { draw, measure };
void z_gfx_text_sheet_draw_utf8_text_block(const z_gfx_text_sheet_context *ctx, z_font_style style,
                                           const char *utf8, double x, double y, double wrap_width,
                                           z_gfx_text_action action, double *out_width, double *out_height);
void z_gfx_text_sheet_draw_latin1_text_block(const z_gfx_text_sheet_context *ctx, z_font_style style,
                                             const char *latin1, double x, double y, double wrap_width,
                                             z_gfx_text_action action, double *out_width, double *out_height);

// The size of a "T" in the normal font.
[[nodiscard]] int32_t z_gfx_text_sheet_get_space_width(const z_gfx_text_sheet_context *ctx);
[[nodiscard]] int32_t z_gfx_text_sheet_get_space_height(const z_gfx_text_sheet_context *ctx);

// Frees the shared fonts and layouts. A later draw makes them anew.
void z_gfx_text_sheet_clean_up();
