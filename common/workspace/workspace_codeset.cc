#include "common/workspace/workspace_codeset.h"

#include "common/model/codeset_io.h"
#include "common/workspace/workspace.h"

z_codeset_ptr z_codeset_io_read_from_file_in_workspace(const char *file_name_latin1,
                                                       const z_workspace *workspace)
{
    return z_codeset_io_read_from_file_in_folder(file_name_latin1, workspace->codesets_folder_path.get());
}
