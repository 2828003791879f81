#include <cstdio>
#include <initializer_list>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "common/base/win32/wide_arguments.h"
#include "tools/zanvel_template/main.h"

// What is printed goes out as it is, into files and into the console, which others use afterwards.
extern "C" int wmain(int argc, wchar_t **argv)
{
    const UINT old_code_page = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    for (FILE *stream : {stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);
    const int status = z_win32_run_with_wide_arguments(argc, argv, z_tool_main);
    SetConsoleOutputCP(old_code_page);
    return status;
}
