#include "common/base/win32/wide_arguments.h"

#include <string>
#include <vector>

#include "common/base/win32/path_win32.h"

int z_win32_run_with_wide_arguments(int argc, const wchar_t *const *argv,
                                    int (*program)(int argc, char **argv))
{
    std::vector<std::string> texts;
    for (int i = 0; i < argc; ++i)
        texts.push_back(z_win32_name_to_bytes(argv[i]));
    std::vector<char *> arguments;
    for (std::string &text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    return program(argc, arguments.data());
}
