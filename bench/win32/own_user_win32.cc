#include "bench/own_user.h"

#include <initializer_list>

#include <glib.h>
#include <windows.h>

static const wchar_t key_path[] = L"Software\\Zanvel benchmark";

// The system itself lets a process see another key in the current user's place.
void bench_begin_own_user(const char *home)
{
    HKEY key;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, key_path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                        nullptr, &key, nullptr) == ERROR_SUCCESS) {
        RegOverridePredefKey(HKEY_CURRENT_USER, key);
        RegCloseKey(key);
    }
    for (const char *name : {"TMP", "TEMP"})
        g_setenv(name, home, TRUE);
}

void bench_end_own_user()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegDeleteTreeW(HKEY_CURRENT_USER, key_path);
}
