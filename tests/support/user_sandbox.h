#pragma once

// A computer of its own for one test: the user's folders and the installation lie in the sandbox, and the
// user speaks Swedish. The folder's name has every character of ASCII that a name can have, and some beyond.
//
//     <root>/install                      the program's folder
//     <root>/home/.cache, Documents       made when needed

#include <string>

#include "common/base/fs_path.h"
#include "common/workspace/platform.h"
#include "common/workspace/platform_system.h"
#include "common/workspace/workspace.h"
#include "tests/support/sandbox.h"

// The user's strings of a test: an empty place of its own, so that none of the real user's is seen or changed.
// Defined for each system. Breaking makes the value "WorkspaceFolderPath" one that cannot be read.
void own_registry_begin(const std::string &user_folder_path);
void own_registry_end();
void own_registry_break();

struct UserSandboxTest : SandboxTest {
    explicit UserSandboxTest(const std::string &name = make_name()) : SandboxTest(name), system(z_platform)
    {
        root_path = path();
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

    // Of the workspace.
    static std::string saved_path()
    {
        z_utf8_ptr path;
        EXPECT_TRUE(z_workspace_get_saved_folder_path(path));
        return path != nullptr ? path.get() : "none";
    }

    const z_platform_calls system;

private:
    static std::string make_name()
    {
        std::string name = "e\u0301 \u05d0 \U0001f600 #%&';";
        for (char c = 1; c < 127 && z_fs_path_delimiter == '/'; ++c) // Windows refuses many, and long paths.
            if (c != '/')
                name += c;
        return name;
    }
    static char *in_root(const char *name)
    {
        return g_canonicalize_filename(name, root_path.c_str());
    }
    static inline std::string root_path;
};

// Reads and writes the strings of one key in the sandbox's own registry.
struct RegistrySandboxTest : UserSandboxTest {
    static std::string read(const char *name)
    {
        z_utf8_ptr value;
        if (!z_platform_read_string_from_registry(value, "Software\\Zanvel", name))
            return std::string("failed: ") + z_error_get();
        return value != nullptr ? value.get() : "none";
    }
    static bool write(const char *name, const char *text)
    {
        return z_platform_write_string_to_registry("Software\\Zanvel", name, text);
    }
    static bool remove(const char *name)
    {
        return z_platform_delete_value_in_registry("Software\\Zanvel", name);
    }
};
