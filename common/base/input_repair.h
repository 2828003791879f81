#pragma once

// What the text inputs let in, so that they can only ever hold what the document model accepts: characters of
// ISO 8859-1 that an XML file can carry, with the plain space as the only whitespace. An input that holds
// several lines also keeps line feeds.
//
//     whitespace other than the plain space   becomes one plain space
//     outside ISO 8859-1                      dropped
//     control characters below U+0020         dropped, no file can hold them
//     U+007F to U+009F                        kept: files from other programs hold them, and opening
//                                             and saving such a text must not lose them
//
// Runs of spaces and spaces at the ends stay, since a text passes through such states while it is typed.

#include "common/base/handles.h"

enum class z_input_lines { single, several };

// Whether the text would be changed. True for bytes that are not valid UTF-8, a NUL among them included.
[[nodiscard]] bool z_input_needs_repair(const char *utf8, size_t byte_count, z_input_lines lines);

// The text as an input may hold it. Null, without a message, for bytes that are not valid UTF-8.
[[nodiscard]] z_utf8_ptr z_input_repair(const char *utf8, size_t byte_count, z_input_lines lines);

// The repaired text in the model's encoding. Null for bytes that are not valid UTF-8, with the reason in
// z_error.
[[nodiscard]] z_latin1_ptr z_input_repair_to_latin1(const char *utf8, z_input_lines lines);
