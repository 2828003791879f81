#pragma once

// A computer of its own for one test: the user's folders and the installation lie in the sandbox, and the
// user speaks Swedish.
//
//     <root>/install                      the program's folder
//     <root>/home/.config, .cache, Documents   made when needed

#include <string>

#include "common/workspace/platform_system.h"
#include "tests/support/sandbox.h"

struct UserSandboxTest : SandboxTest {
    UserSandboxTest() : system(z_platform)
    {
        root_path = root.string();
        std::filesystem::create_directories(root / "home");
        std::filesystem::create_directories(root / "install");
        z_platform.get_locale_names = +[]() -> const char *const * {
            static const char *const names[] = {"sv_SE.UTF-8", nullptr};
            return names;
        };
        z_platform.get_executable_path = +[] { return in_root("install/zanvel"); };
        z_platform.get_documents_folder_path = +[] { return in_root("home/Documents"); };
        z_platform.get_cache_folder_path = +[] { return in_root("home/.cache"); };
        z_platform.get_configuration_folder_path = +[] { return in_root("home/.config"); };
    }
    ~UserSandboxTest() override
    {
        z_platform = system;
    }

    const z_platform_calls system;

private:
    static char *in_root(const char *name)
    {
        return g_build_filename(root_path.c_str(), name, nullptr);
    }
    static inline std::string root_path;
};
