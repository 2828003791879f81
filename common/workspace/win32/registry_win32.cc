// The user's strings of the whole family, below the current user's key of the system's registry.

#include <string>

#include "common/base/error.h"
#include "common/base/utf16.h"
#include "common/base/win32/wide_text.h"
#include "common/workspace/platform.h"
#include "common/workspace/registry_messages.h"
#include "common/workspace/win32/registry_calls.h"

z_registry_calls z_registry = {
    .open_key = RegOpenKeyExW,
    .create_key = RegCreateKeyExW,
    .query_value = RegQueryValueExW,
    .set_value = RegSetValueExW,
    .delete_value = RegDeleteValueW,
    .close_key = RegCloseKey,
};

static void close_key(HKEY key)
{
    z_registry.close_key(key);
}

using key_ptr = z_ptr<HKEY__, close_key>;

struct registry_names {
    z_utf16_ptr key_path;
    z_utf16_ptr value_name;
};

// These return false, for the caller to return.
static bool set_failure(const char *sentence)
{
    z_error_set(sentence);
    return false;
}

static bool make_names(registry_names &names, const char *key_path, const char *value_name)
{
    names.key_path = z_convert_utf8_to_utf16(key_path);
    names.value_name = names.key_path != nullptr ? z_convert_utf8_to_utf16(value_name) : nullptr;
    return names.value_name != nullptr;
}

// Succeeds with none if the key does not exist.
static bool open_key(key_ptr &key, const registry_names &names, REGSAM access)
{
    const LSTATUS status =
        z_registry.open_key(HKEY_CURRENT_USER, z_win32_get_wide(names.key_path), 0, access, z_out(key));
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND || set_failure(z_registry_opening_text);
}

// Another program may change or delete the value between the question for its size and the reading.
static bool read_value(z_utf8_ptr &value, HKEY key, const wchar_t *name)
{
    DWORD type = 0;
    DWORD byte_count = 0;
    LSTATUS status = z_registry.query_value(key, name, nullptr, &type, nullptr, &byte_count);
    if (status == ERROR_FILE_NOT_FOUND)
        return true;
    if (status != ERROR_SUCCESS)
        return set_failure("Error querying value in the Windows registry.");
    if (type != REG_SZ || byte_count % sizeof(wchar_t) != 0)
        return set_failure(z_registry_parsing_text);

    std::wstring text(byte_count / sizeof(wchar_t), L'\0');
    DWORD type_read = 0;
    DWORD byte_count_read = byte_count;
    status = z_registry.query_value(key, name, nullptr, &type_read, reinterpret_cast<BYTE *>(text.data()),
                                    &byte_count_read);
    if (status == ERROR_FILE_NOT_FOUND)
        return true;
    if (status != ERROR_SUCCESS)
        return set_failure("Error reading value in the Windows registry.");
    if (type_read != type || byte_count_read != byte_count)
        return set_failure("Error parsing value read from the Windows registry.");
    value = z_win32_wide_to_utf8(text.c_str());
    if (value == nullptr)
        z_error_append("Error parsing UTF-16 value from the Windows registry.");
    return value != nullptr;
}

bool z_platform_read_string_from_registry(z_utf8_ptr &value, const char *key_path, const char *value_name)
{
    value.reset();
    registry_names names;
    key_ptr key;
    return make_names(names, key_path, value_name) && open_key(key, names, KEY_READ) &&
           (key == nullptr || read_value(value, key.get(), z_win32_get_wide(names.value_name)));
}

bool z_platform_write_string_to_registry(const char *key_path, const char *value_name, const char *text)
{
    registry_names names;
    if (!make_names(names, key_path, value_name))
        return false;
    const z_utf16_ptr wide_text = z_convert_utf8_to_utf16(text);
    if (wide_text == nullptr)
        return false;
    key_ptr key;
    if (z_registry.create_key(HKEY_CURRENT_USER, z_win32_get_wide(names.key_path), 0, nullptr,
                              REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, z_out(key),
                              nullptr) != ERROR_SUCCESS)
        return set_failure(z_registry_creating_text);
    const size_t byte_count = (z_utf16_strlen(wide_text.get()) + 1) * sizeof(wchar_t);
    return z_registry.set_value(key.get(), z_win32_get_wide(names.value_name), 0, REG_SZ,
                                reinterpret_cast<const BYTE *>(wide_text.get()),
                                static_cast<DWORD>(byte_count)) == ERROR_SUCCESS ||
           set_failure(z_registry_storing_text);
}

bool z_platform_delete_value_in_registry(const char *key_path, const char *value_name)
{
    registry_names names;
    key_ptr key;
    if (!make_names(names, key_path, value_name) || !open_key(key, names, KEY_SET_VALUE))
        return false;
    if (key == nullptr)
        return true;
    const LSTATUS status = z_registry.delete_value(key.get(), z_win32_get_wide(names.value_name));
    return status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND || set_failure(z_registry_deleting_text);
}
