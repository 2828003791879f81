#pragma once

// The system's dialogs and what they need, as one table of calls, so that a test can choose by itself.

#include <windows.h>

#include <commdlg.h>
#include <shlobj.h>

struct z_native_dialog_calls {
    BOOL(WINAPI *get_open_file_name)(OPENFILENAMEW *dialog);
    BOOL(WINAPI *get_save_file_name)(OPENFILENAMEW *dialog);
    DWORD(WINAPI *get_extended_error)();
    ITEMIDLIST *(WINAPI *browse_for_folder)(BROWSEINFOW *browser);
    BOOL(WINAPI *get_path_from_id_list)(const ITEMIDLIST *item, wchar_t *path);
    void(WINAPI *free_item)(void *item);
};

extern z_native_dialog_calls z_native_dialog;
