#pragma once

// How the system is told of fonts, as a table of calls, so that a test can count them.

#include <windows.h>

struct z_font_calls {
    int(WINAPI *add_resource)(const wchar_t *path, DWORD flags, void *reserved);
    BOOL(WINAPI *remove_resource)(const wchar_t *path, DWORD flags, void *reserved);
};

extern z_font_calls z_font;
