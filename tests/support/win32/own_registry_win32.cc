#include "tests/support/user_sandbox.h"

#include <windows.h>

static std::wstring key_path;
static HKEY own_key;

// The system itself lets a process see another key in the current user's place.
void own_registry_begin(const std::string &)
{
    key_path = L"Software\\Zanvel test " + std::to_wstring(GetCurrentProcessId());
    RegDeleteTreeW(HKEY_CURRENT_USER, key_path.c_str());
    RegCreateKeyExW(HKEY_CURRENT_USER, key_path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                    nullptr, &own_key, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, own_key);
}

void own_registry_end()
{
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(own_key);
    RegDeleteTreeW(HKEY_CURRENT_USER, key_path.c_str());
}

void own_registry_break()
{
    const DWORD number = 1;
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Zanvel", L"WorkspaceFolderPath", REG_DWORD, &number,
                    sizeof number);
}
