#pragma once

// The files of one kind in a folder, each with the line that stands for it in a list.
//
// Reading a file only to learn its line is slow, so lines are remembered for as long as the program runs: a
// line holds while the file's identity and the caller's `context` (what else the line depends on, such as
// languages) are the same. That a file cannot be read is remembered, too. A file that had changed within two
// seconds before it was read may change again without showing it, so its line is not remembered.

#include <vector>

#include "common/base/handles.h"

// The line to show for a file; none, with the reason in z_error, for a file that is not of the kind.
using z_item_text_operation = z_utf8_ptr (*)(const char *path, void *user_data);

struct z_item_line {
    z_utf8_ptr text; // Null for a file that is not of the kind.
    // Of two keys, strcmp tells which comes first: files without text first, then by what is shown, the way a
    // reader of the user's language counts and spells, then by file name. A key is no text to show.
    z_ptr<char, g_free> sort_key;
};

// The line of one file, read now if it is not remembered. Borrowed until the next call for this file.
[[nodiscard]] const z_item_line *z_item_list_get_line(const char *path, const char *context,
                                                      z_item_text_operation get_text, void *user_data);

struct z_item {
    z_utf8_ptr file_name;
    const z_item_line *line;
};

// The regular files of the folder with this extension (with its period, letter case does not count), in their
// order. False if the folder cannot be listed.
[[nodiscard]] bool z_item_list_scan(std::vector<z_item> &items, const char *folder_path,
                                    const char *extension, const char *context,
                                    z_item_text_operation get_text, void *user_data);

// Forgets every line.
void z_item_list_clean_up();
