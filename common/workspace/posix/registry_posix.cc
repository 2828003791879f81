// The user's strings of the whole family, in one key file in the user's configuration folder, with the key
// path as the group. The messages speak of the registry, as on the system where that is the place.

#include "common/workspace/posix/registry_posix.h"

#include "common/base/error.h"
#include "common/base/stream.h"
#include "common/workspace/folder_lock.h"
#include "common/workspace/platform.h"
#include "common/workspace/registry_messages.h"

using key_file_ptr = z_ptr<GKeyFile, g_key_file_free>;

struct registry {
    z_utf8_ptr folder_path;
    z_utf8_ptr file_path;
    key_file_ptr keys; // None until it is loaded.
};

static char *get_configuration_folder_path()
{
    const char *path = g_get_user_config_dir();
    return g_utf8_validate(path, -1, nullptr) ? g_strdup(path) : nullptr;
}

char *(*z_posix_get_configuration_folder_path)() = get_configuration_folder_path;

// These return false, for the caller to return.
static bool append_failure(const char *sentence)
{
    z_error_append(sentence);
    return false;
}

static bool set_failure(z_gerror_ptr error, const char *sentence)
{
    z_error_set_from_gerror_and_free(std::move(error));
    return append_failure(sentence);
}

static bool locate(registry &registry, const char *sentence)
{
    const z_utf8_ptr configuration(z_posix_get_configuration_folder_path());
    if (configuration == nullptr) {
        z_error_set(sentence);
        return false;
    }
    registry.folder_path = z_fs_utils_create_path_in_folder(configuration.get(), "Zanvel");
    registry.file_path = z_fs_utils_create_path_in_folder(registry.folder_path.get(), "registry.ini");
    return true;
}

// A file that does not exist has no keys.
static bool load(registry &registry)
{
    registry.keys.reset(g_key_file_new());
    z_fs_info info;
    if (!z_fs_utils_get_info(registry.file_path.get(), info))
        return append_failure(z_registry_opening_text);
    if (!info.exists)
        return true;
    z_bytes_ptr data;
    size_t length = 0;
    if (!z_stream_copy_from_file_path_to_memory(registry.file_path.get(), data, length))
        return append_failure(z_registry_opening_text);
    z_gerror_ptr error;
    if (length == 0 ||
        g_key_file_load_from_data(registry.keys.get(), reinterpret_cast<const char *>(data.get()), length,
                                  G_KEY_FILE_KEEP_COMMENTS, z_out(error)))
        return true;
    return set_failure(std::move(error), z_registry_parsing_text);
}

static bool save(const registry &registry)
{
    size_t length = 0;
    const z_utf8_ptr text(g_key_file_to_data(registry.keys.get(), &length, nullptr));
    return z_fs_utils_put_file(registry.file_path.get(), text.get(), length, z_fs_existing::replace);
}

static bool make_folder(const registry &registry)
{
    z_fs_info info;
    return z_fs_utils_get_info(registry.folder_path.get(), info) &&
           (info.exists || z_fs_utils_create_folder_recursively(registry.folder_path.get()));
}

bool z_platform_read_string_from_registry(z_utf8_ptr &value, const char *key_path, const char *value_name)
{
    value.reset();
    registry registry;
    if (!locate(registry, z_registry_opening_text) || !load(registry))
        return false;
    z_gerror_ptr error;
    value.reset(g_key_file_get_string(registry.keys.get(), key_path, value_name, z_out(error)));
    if (error == nullptr ||
        g_error_matches(error.get(), G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_GROUP_NOT_FOUND) ||
        g_error_matches(error.get(), G_KEY_FILE_ERROR, G_KEY_FILE_ERROR_KEY_NOT_FOUND))
        return true;
    value.reset();
    return set_failure(std::move(error), z_registry_parsing_text);
}

bool z_platform_write_string_to_registry(const char *key_path, const char *value_name, const char *text)
{
    registry registry;
    z_folder_lock lock;
    if (!locate(registry, z_registry_creating_text))
        return false;
    if (!make_folder(registry) || !lock.acquire(registry.folder_path.get()))
        return append_failure(z_registry_creating_text);
    if (!load(registry))
        return false;
    g_key_file_set_string(registry.keys.get(), key_path, value_name, text);
    return save(registry) || append_failure(z_registry_storing_text);
}

bool z_platform_delete_value_in_registry(const char *key_path, const char *value_name)
{
    registry registry;
    z_folder_lock lock;
    if (!locate(registry, z_registry_opening_text))
        return false;
    if (!lock.acquire(registry.folder_path.get()))
        return append_failure(z_registry_opening_text);
    if (!load(registry))
        return false;
    if (!g_key_file_remove_key(registry.keys.get(), key_path, value_name, nullptr))
        return true;
    return save(registry) || append_failure(z_registry_deleting_text);
}
