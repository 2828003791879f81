#include "tools/zanvel_template/main.h"

#include <clocale>
#include <cstdio>
#include <cstring>

#include "tools/zanvel_template/commands.h"

struct command_row {
    const char *name;
    const char *operands;
    const char *summary;
    int (*run)(z_arguments arguments);
};

static constexpr command_row commands[] = {
    {"check", "FILE...", "Tell whether each file can be read, or why not.", z_command_check},
    {"convert", "IN OUT", "Read a file in any accepted format and write the current one.", z_command_convert},
    {"list", "FOLDER", "Print the name, author and version of each template in a folder.", z_command_list},
    {"render",
     "FILE -o OUT.png|.pdf|.svg [--report-type N | --basic-data]\n"
     "                  [--width PX] [--language TAG] [--editing]",
     "Draw a form of a template, by default its first report type.", z_command_render},
};

static void print_usage(FILE *output)
{
    std::fputs("Usage:\n", output);
    for (const command_row &command : commands)
        std::fprintf(output, "  zanvel-template %s %s\n      %s\n", command.name, command.operands,
                     command.summary);
    std::fputs("  zanvel-template --help\n      Show this help.\n\n"
               "A file whose name ends with \".codeset\" is a remark codeset, every other file a template.\n"
               "The exit status is 0 when all is well, 1 when a file is refused or cannot be written, and 2\n"
               "for wrong usage.\n",
               output);
}

// Asked for anywhere among the options.
static bool asks_for_help(z_arguments arguments)
{
    for (const char *argument : arguments) {
        if (std::strcmp(argument, "--") == 0)
            return false;
        if (std::strcmp(argument, "--help") == 0 || std::strcmp(argument, "-h") == 0)
            return true;
    }
    return false;
}

static int run(z_arguments arguments)
{
    if (asks_for_help(arguments)) {
        print_usage(stdout);
        return Z_EXIT_DONE;
    }
    if (!arguments.empty())
        for (const command_row &command : commands)
            if (std::strcmp(command.name, arguments.front()) == 0)
                return command.run(arguments.subspan(1));
    return Z_EXIT_WRONG_USAGE;
}

// What was printed may get lost as late as here.
static int finish(int status)
{
    const bool was_printed = std::ferror(stdout) == 0;
    if (std::fclose(stdout) == 0 && was_printed)
        return status;
    std::fputs("zanvel-template: Cannot write to standard output.\n", stderr);
    return Z_EXIT_REFUSED;
}

int z_tool_main(int argc, char **argv)
{
    std::setlocale(LC_ALL, "");
    for (int index = 1; index < argc; ++index) {
        if (!g_utf8_validate(argv[index], -1, nullptr)) {
            std::fprintf(stderr, "Cannot parse command line argument %d.\n", index);
            return Z_EXIT_WRONG_USAGE;
        }
    }
    const int status = run({argv + (argc > 0 ? 1 : 0), argv + argc});
    if (status == Z_EXIT_WRONG_USAGE)
        print_usage(stderr);
    return finish(status);
}
