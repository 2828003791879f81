#pragma once

// A computer of its own for one test: the user's folders and the installation lie in the sandbox, and the
// user speaks Swedish.
//
//     <root>/install                      the program's folder
//     <root>/home/.cache, Documents       made when needed

#include <string>

#include "common/workspace/platform.h"
#include "common/workspace/platform_system.h"
#include "tests/support/own_registry.h"
#include "tests/support/sandbox.h"

struct UserSandboxTest : SandboxTest {
    UserSandboxTest() : system(z_platform)
    {
        root_path = root.string();
        std::filesystem::create_directories(root / "home");
        std::filesystem::create_directories(root / "install");
        own_registry_begin(path("home"));
        z_platform.get_user_language_index = +[] {
            static const char *const names[] = {"sv_SE.UTF-8"};
            return z_platform_get_language_index_for_locales(names);
        };
        z_platform.get_executable_path = +[] { return in_root("install/zanvel"); };
        z_platform.get_documents_folder_path = +[] { return in_root("home/Documents"); };
        z_platform.get_user_temp_folder_path = +[] { return in_root("home/.cache"); };
    }
    ~UserSandboxTest() override
    {
        z_platform = system;
        own_registry_end();
    }

    const z_platform_calls system;

private:
    static char *in_root(const char *name)
    {
        return g_canonicalize_filename(name, root_path.c_str());
    }
    static inline std::string root_path;
};
