#pragma once

// The error accumulator: the one place where a failing operation leaves its explanation for the user.
//
// A function that fails says so by its result and sets the root cause here, once; every caller that knows
// more appends one sentence, which goes to the front: newest context first, root cause last, an empty line
// between. Success leaves the text alone, so an older one may still stand. All texts are UTF-8 and valid as
// such: bytes that are not, as other libraries' messages may hold, are replaced by U+FFFD on the way in.
//
// One text for the whole process and no lock: used from the user-interface thread only.

#include "common/base/handles.h"

struct zip_error;

// Replaces whatever is there, and clears the out-of-memory flag. `text` may be what z_error_get has returned.
void z_error_set(const char *text);
void z_error_set_utf8_printf(const char *format, ...) G_GNUC_PRINTF(1, 2);

// Puts a new outer level of context in front. The out-of-memory flag stays as it is.
void z_error_append(const char *text);
void z_error_append_utf8_printf(const char *format, ...) G_GNUC_PRINTF(1, 2);
void z_error_append_utf8_vprintf(const char *format, va_list arguments) G_GNUC_PRINTF(1, 0);

void z_error_clear();

// The accumulated text, "" when there is none. Borrowed, and valid until the next call of this module.
[[nodiscard]] const char *z_error_get();

// Ready-made causes; each replaces what is there.
void z_error_set_file_io_reading();
void z_error_set_file_io_reading_broken_file();
void z_error_set_file_io_writing();
void z_error_set_not_enough_diskspace();
void z_error_set_unknown();

// Causes that other libraries report. `cairo_status` is a cairo_status_t; errno is read as it stands.
void z_error_set_from_cairo_status(int cairo_status);
void z_error_set_from_errno();
void z_error_set_from_gerror_and_free(z_gerror_ptr error);
void z_error_set_from_zip_error(zip_error *error);
void z_error_set_from_zip_error_code(int code);

// Running out of memory also sets a flag, so that whoever shows the text can choose the long, advisory form.
void z_error_set_out_of_memory();
void z_error_set_informative_out_of_memory();
[[nodiscard]] bool z_error_did_run_out_of_memory();
// Replaces the text by the long form if the flag is set, and returns the flag.
bool z_error_make_more_informative_if_out_of_memory();

// Cuts a text of `max_lines` lines or more after that many, and says so at its end, so that a parser's report
// cannot flood a dialog. A text that merely ends with its last permitted line break counts as too long.
void z_error_limit_line_count(int max_lines);
