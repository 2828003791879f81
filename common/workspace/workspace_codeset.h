#pragma once

// The remark codesets of a workspace, by the file names that templates give.

#include "common/model/codeset.h"

struct z_workspace;

// Null, with the reason, if there is no such codeset. The name must not lead out of the folder.
[[nodiscard]] z_codeset_ptr z_codeset_io_read_from_file_in_workspace(const char *file_name_latin1,
                                                                     const z_workspace *workspace);
