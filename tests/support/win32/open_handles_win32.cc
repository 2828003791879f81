#include "tests/support/open_handles.h"

#include <windows.h>

size_t count_open_handles()
{
    DWORD count = 0;
    EXPECT_TRUE(GetProcessHandleCount(GetCurrentProcess(), &count));
    return count;
}
