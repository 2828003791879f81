#pragma once

// Conversions between the three text encodings, and the two spellings of an object identifier as a file name.
//
// UTF-8 is the working encoding, Latin-1 (ISO 8859-1) that of the model's texts, UTF-16 belongs to system
// calls only. A Latin-1 text is never longer in bytes than the same text in UTF-8. Failures leave their
// reason in z_error except where said. Null is not an accepted text, except for object identifiers.

#include <cstddef>

#include "common/base/handles.h"

// Null when the text holds a character that Latin-1 lacks, or is not UTF-8.
[[nodiscard]] z_latin1_ptr z_convert_utf8_to_latin1(const char *utf8);
// The same without an allocation: the handle's own memory is rewritten and handed on. Freed on failure.
[[nodiscard]] z_latin1_ptr z_convert_utf8_to_latin1_and_free(z_utf8_ptr utf8);
// The same into a buffer of strlen(utf8) + 1 bytes, which may be the text itself. On failure the buffer's
// contents are undefined.
[[nodiscard]] bool z_convert_utf8_to_latin1_buf(const char *utf8, char *buffer);

// Whether Latin-1 has the character at `utf8`. Sets no message.
[[nodiscard]] bool z_convert_test_utf8_char_for_latin1(const char *utf8);

// Cannot fail. The buffer must hold 2 * strlen(latin1) + 1 bytes, and is returned.
[[nodiscard]] z_utf8_ptr z_convert_latin1_to_utf8(const char *latin1);
char *z_convert_latin1_to_utf8_buf(const char *latin1, char *buffer);

[[nodiscard]] z_utf8_ptr z_convert_utf16_to_utf8(const gunichar2 *utf16);
[[nodiscard]] z_utf16_ptr z_convert_utf8_to_utf16(const char *utf8);

// Object identifiers (Latin-1) in file names. Null in, null out.
//
// FAT-safe is reversible and ASCII: every other byte than the safe ones stands as a backquote and two
// lower-case hexadecimal digits. NTFS-safe is for reading only: what the file system forbids becomes a
// hyphen, and no such hyphen follows a hyphen.

// Digits, ASCII letters and " $%'-_@~!{}()#&+,;=[]." (without the quotes).
[[nodiscard]] bool is_latin1_char_fat_safe(char c);
[[nodiscard]] z_utf8_ptr z_convert_object_id_to_fat_safe_file_name_format(const char *id_latin1);
// Reads at most `max_length` bytes. Null, without a message, for what the function above never writes.
[[nodiscard]] z_latin1_ptr z_convert_fat_safe_file_name_format_to_object_id(const char *text,
                                                                            size_t max_length);
[[nodiscard]] z_utf8_ptr z_convert_object_id_to_ntfs_safe_file_name_format(const char *id_latin1);
