#include <cstdio>

#include "tools/zanvel_template/commands.h"
#include "tools/zanvel_template/files.h"

int z_command_convert(z_arguments arguments)
{
    if (!z_take_operands(arguments, 2))
        return Z_EXIT_WRONG_USAGE;
    const char *input_path = arguments[0];
    const char *output_path = arguments[1];
    if (z_tool_get_file_type(input_path) != z_tool_get_file_type(output_path)) {
        std::fprintf(stderr, "%s: A template and a remark codeset cannot be converted into each other.\n",
                     output_path);
        return Z_EXIT_WRONG_USAGE;
    }
    z_tool_file file;
    if (!z_tool_read_file(file, input_path)) {
        z_print_error(input_path);
        return Z_EXIT_REFUSED;
    }
    if (!z_tool_write_file(file, output_path)) {
        z_print_error(output_path);
        return Z_EXIT_REFUSED;
    }
    return Z_EXIT_DONE;
}
