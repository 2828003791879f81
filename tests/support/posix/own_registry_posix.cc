#include "tests/support/user_sandbox.h"

#include "common/workspace/posix/registry_posix.h"

static const auto real_get_folder_path = z_posix_get_configuration_folder_path;
static std::string folder_path;

void own_registry_begin(const std::string &user_folder_path)
{
    folder_path = user_folder_path + "/.config";
    z_posix_get_configuration_folder_path = [] { return g_strdup(folder_path.c_str()); };
}

void own_registry_end()
{
    z_posix_get_configuration_folder_path = real_get_folder_path;
}

void own_registry_break()
{
    std::filesystem::create_directories(folder_path + "/Zanvel");
    std::ofstream(folder_path + "/Zanvel/registry.ini") << "broken";
}
