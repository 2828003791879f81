#pragma once

// What a dialog for files of certain types offers to filter by, and what it makes of the names typed in it.

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/model/file_type.h"

struct z_file_filter {
    std::string label;
    std::vector<std::string> patterns;
};

// All types together if there are two or more, called by the name or "Matching files"; each type; all files.
[[nodiscard]] std::vector<z_file_filter> z_file_filter_create_list(const char *combined_name,
                                                                   std::span<const z_file_type> types);

// What dialogs for these types, in this order, have in common: "JPEG#PNG".
[[nodiscard]] std::string z_file_filter_create_key(std::span<const z_file_type> types);

// For choosers that tell upper from lower case and take "*.*" at its word: "*.[jJ][pP][gG]", and "*".
[[nodiscard]] std::string z_file_filter_create_caseless_pattern(std::string_view pattern);

// Appends the type's extension to a path that was typed without one. Where all files are shown, any extension
// will do.
enum class z_shown_files { of_type, all };
[[nodiscard]] z_utf8_ptr z_file_filter_complete_path(const char *path, z_file_type type, z_shown_files shown);
