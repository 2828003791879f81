#include <cstdio>

#include "common/base/error.h"
#include "tools/zanvel_template/commands.h"
#include "tools/zanvel_template/files.h"

int z_command_check(z_arguments arguments)
{
    if (!z_take_operands_or_more(arguments, 1))
        return Z_EXIT_WRONG_USAGE;
    int status = Z_EXIT_DONE;
    for (const char *path : arguments) {
        z_tool_file file;
        z_error_clear();
        if (z_tool_read_file(file, path)) {
            std::printf("%s: ok\n", path);
        } else {
            z_print_error(path);
            status = Z_EXIT_REFUSED;
        }
    }
    return status;
}
