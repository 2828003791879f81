#pragma once

// Normalising the white space of a text, for every entry of the user interface and for texts of files.
//
// White space at both ends goes, line feeds included. White space inside, per character, becomes:
//
//     detabify             a space, but a line feed stays
//     spacify              a space, line feeds too; runs keep their length
//     spacify_compactly    one space per run
//
// Latin-1 and ASCII know the six characters of the classic locale. UTF-8 knows those of Unicode (U+00A0 among
// them) but not the vertical tab; its text must be valid. Other characters never change, so a result is never
// longer than the text.
//
// `within_original` rewrites the text and returns its first remaining character, a pointer into the argument,
// which still belongs to the caller. `in_new` leaves the text alone.

#include "common/base/handles.h"

char *z_strip_surrounding_and_detabify_within_original_for_latin1(char *latin1);
char *z_strip_surrounding_and_spacify_within_original_for_latin1(char *latin1);
char *z_strip_surrounding_and_spacify_compactly_within_original_for_latin1(char *latin1);
char *z_strip_surrounding_and_spacify_compactly_within_original_for_ascii(char *ascii);
char *z_strip_surrounding_and_detabify_within_original_for_utf8(char *utf8);
char *z_strip_surrounding_and_spacify_within_original_for_utf8(char *utf8);
char *z_strip_surrounding_and_spacify_compactly_within_original_for_utf8(char *utf8);

[[nodiscard]] z_latin1_ptr z_strip_surrounding_and_detabify_in_new_for_latin1(const char *latin1);
[[nodiscard]] z_latin1_ptr z_strip_surrounding_and_spacify_in_new_for_latin1(const char *latin1);
[[nodiscard]] z_latin1_ptr z_strip_surrounding_and_spacify_compactly_in_new_for_latin1(const char *latin1);
[[nodiscard]] z_utf8_ptr z_strip_surrounding_and_detabify_in_new_for_utf8(const char *utf8);
[[nodiscard]] z_utf8_ptr z_strip_surrounding_and_spacify_in_new_for_utf8(const char *utf8);
[[nodiscard]] z_utf8_ptr z_strip_surrounding_and_spacify_compactly_in_new_for_utf8(const char *utf8);
