#include "app/win32/wide_arguments.h"

#include <cstdio>
#include <vector>

#include "common/base/convert.h"

int z_wide_arguments_run(int argc, const wchar_t *const *argv, int (*program)(int argc, char **argv))
{
    if (argc < 0)
        return 1;
    std::vector<z_utf8_ptr> texts;
    std::vector<char *> arguments;
    for (int i = 0; i < argc; ++i) {
        texts.push_back(z_convert_utf16_to_utf8(reinterpret_cast<const gunichar2 *>(argv[i])));
        if (texts.back() == nullptr) {
            std::fprintf(stderr, "Cannot parse command line argument %d.", i);
            return 1;
        }
        arguments.push_back(texts.back().get());
    }
    arguments.push_back(nullptr);
    return program(argc, arguments.data());
}
