#pragma once

// Forms drawn the plain way: every text is laid out every time that its size is asked for, and everything is
// shown, seen or not. Nothing is kept. What the renderer draws must look the same and hit the same; and the
// benchmarks measure by this what the renderer saves.

#include "common/gui/gfx_form.h"

// As z_gfx_form_draw; uses only the caller's part of the context.
int32_t bench_draw_plain_form(z_gfx_text_sheet_context *ctx, z_gfx_form *form, int32_t scroll);
