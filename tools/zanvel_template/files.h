#pragma once

// The files that the commands take: templates, and codesets, which are told by their extension.

#include "common/model/codeset.h"
#include "common/model/file_type.h"
#include "common/model/template.h"

// One of the two, read from a file.
struct z_tool_file {
    z_file_type type;
    z_template_ptr tmpl;
    z_codeset_ptr codeset;
};

// A codeset if the path ends with ".codeset" in any letter case, else a template.
[[nodiscard]] z_file_type z_tool_get_file_type(const char *path);

// False with the reader's error.
[[nodiscard]] bool z_tool_read_file(z_tool_file &file, const char *path);

// Puts the file in place as a whole; whatever fails leaves what was there. Refuses what could not be read
// back.
[[nodiscard]] bool z_tool_write_file(const z_tool_file &file, const char *path);
