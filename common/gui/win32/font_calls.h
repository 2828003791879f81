#pragma once

// How the system is told of fonts, as a table of calls, so that a test can count them.

#include <windows.h>

#include <cairo-win32.h>

struct z_font_calls {
    int(WINAPI *add_resource)(const wchar_t *path, DWORD flags, void *reserved);
    BOOL(WINAPI *remove_resource)(const wchar_t *path, DWORD flags, void *reserved);
    cairo_font_face_t *(*create_face)(LOGFONTW *font);
};

extern z_font_calls z_font;
