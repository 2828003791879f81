#include <cstdio>
#include <string>
#include <vector>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "common/base/win32/path_win32.h"
#include "tools/zanvel_template/main.h"

// What is printed goes out as it is, into files and into the console.
extern "C" int wmain(int argc, wchar_t **argv)
{
    SetConsoleOutputCP(CP_UTF8);
    for (FILE *stream : {stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    std::vector<std::string> texts;
    for (int index = 0; index < argc; ++index)
        texts.push_back(z_win32_name_to_bytes(argv[index]));
    std::vector<char *> arguments;
    for (std::string &text : texts)
        arguments.push_back(text.data());
    arguments.push_back(nullptr);
    return z_tool_main(argc, arguments.data());
}
