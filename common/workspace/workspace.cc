#include "common/workspace/workspace.h"

#include <vector>

#include "common/base/error.h"
#include "common/base/stream.h"
#include "common/workspace/platform.h"

static const char folder_name[] = "Zanvel Workspace";
static const char key_path[] = "Software\\Zanvel";
static const char value_name[] = "WorkspaceFolderPath";

bool z_workspace_get_saved_folder_path(z_utf8_ptr &path)
{
    if (!z_platform_read_string_from_registry(path, key_path, value_name))
        return false;
    if (path != nullptr && !g_path_is_absolute(path.get()))
        path.reset();
    if (path != nullptr)
        z_fs_utils_strip_ending_path_delimiters(path.get());
    return true;
}

bool z_workspace_save_folder_path(const char *path)
{
    if (path == nullptr)
        return z_platform_delete_value_in_registry(key_path, value_name);
    return z_platform_write_string_to_registry(key_path, value_name, path);
}

z_utf8_ptr z_workspace_get_default_folder_path()
{
    const z_utf8_ptr documents_folder_path = z_platform_get_documents_folder_path();
    if (documents_folder_path == nullptr)
        return nullptr;
    return z_fs_utils_create_path_in_folder(documents_folder_path.get(), folder_name);
}

// Opening says what is wrong with a path that is no folder.
static bool check_folder(const char *path)
{
    return z_fs_utils_open_folder(path) != nullptr;
}

static z_utf8_ptr open_sub_folder(const z_workspace *workspace, const char *name)
{
    z_utf8_ptr path = z_fs_utils_create_path_in_folder(workspace->folder_path.get(), name);
    z_fs_info info;
    if (!z_fs_utils_get_info(path.get(), info))
        return nullptr;
    const bool is_there = info.exists ? check_folder(path.get()) : z_fs_utils_create_folder(path.get());
    return is_there ? std::move(path) : nullptr;
}

static z_workspace_ptr open_at(z_utf8_ptr path)
{
    z_fs_info info;
    if (!z_fs_utils_get_info(path.get(), info) || !info.exists || !check_folder(path.get()))
        return nullptr;

    z_workspace_ptr workspace(new z_workspace);
    workspace->folder_path = std::move(path);
    workspace->settings = z_settings_new(workspace->folder_path.get());
    workspace->fonts_folder_path = z_fs_utils_create_path_in_folder(workspace->folder_path.get(), "fonts");
    const struct {
        z_utf8_ptr z_workspace::*path;
        const char *name;
    } sub_folders[] = {
        {&z_workspace::codesets_folder_path, "codesets"},
        {&z_workspace::layouts_folder_path, "layouts"},
        {&z_workspace::documents_folder_path, "documents"},
        {&z_workspace::templates_folder_path, "templates"},
    };
    for (const auto &each : sub_folders) {
        workspace.get()->*each.path = open_sub_folder(workspace.get(), each.name);
        if (workspace.get()->*each.path == nullptr)
            return nullptr;
    }
    return workspace;
}

z_workspace_ptr z_workspace_open()
{
    z_error_clear();
    z_utf8_ptr path;
    if (!z_workspace_get_saved_folder_path(path))
        return nullptr;
    if (path == nullptr)
        path = z_workspace_get_default_folder_path();
    return path != nullptr ? open_at(std::move(path)) : nullptr;
}

void z_workspace_close(z_workspace *workspace)
{
    delete workspace;
}

struct made_entry {
    z_utf8_ptr path;
    bool is_folder;
};

// The files and folders that a creation has made so far, which go again unless it succeeds. What somebody
// else has put among them stays.
class made_entries {
public:
    made_entries() = default;
    made_entries(const made_entries &) = delete;
    made_entries &operator=(const made_entries &) = delete;
    ~made_entries()
    {
        if (entries.empty())
            return;
        const z_utf8_ptr reason(g_strdup(z_error_get()));
        for (auto each = entries.rbegin(); each != entries.rend(); ++each)
            (void)(each->is_folder ? z_fs_utils_delete_folder_if_exists(each->path.get())
                                   : z_fs_utils_delete_file_if_exists(each->path.get()));
        z_error_set(reason.get());
    }

    [[nodiscard]] bool make_folder(const char *path)
    {
        if (!z_fs_utils_create_folder(path))
            return false;
        entries.push_back({z_utf8_ptr(g_strdup(path)), true});
        return true;
    }
    [[nodiscard]] bool make_copy(const char *source, const char *path)
    {
        if (!z_stream_put_copy_of_file(source, path, z_fs_existing::refuse))
            return false;
        entries.push_back({z_utf8_ptr(g_strdup(path)), false});
        return true;
    }
    void keep()
    {
        entries.clear();
    }

private:
    std::vector<made_entry> entries;
};

// The folder must not exist; what is missing above it is made, too.
static bool make_folder_with_parents(made_entries &made, const char *path)
{
    std::vector<z_utf8_ptr> missing;
    missing.emplace_back(g_strdup(path));
    while (true) {
        z_utf8_ptr parent(g_strdup(missing.back().get()));
        z_fs_utils_strip_entry_name_from_path(parent.get());
        z_fs_info info;
        if (!z_fs_utils_get_info(parent.get(), info))
            return false;
        if (info.exists || parent.get()[0] == '\0')
            break;
        missing.push_back(std::move(parent));
    }
    for (auto each = missing.rbegin(); each != missing.rend(); ++each)
        if (!made.make_folder(each->get()))
            return false;
    return true;
}

static bool install_entry(made_entries &made, const char *source, const char *target)
{
    z_fs_info source_info, target_info;
    if (!z_fs_utils_get_info(source, source_info))
        return false;
    if (!source_info.is_file)
        return true;
    if (!z_fs_utils_get_info(target, target_info))
        return false;
    return target_info.exists || made.make_copy(source, target);
}

// Copies what the installation has in the folder of this name and the workspace has not.
static bool install_components(made_entries &made, const char *workspace_path, const char *name)
{
    const z_utf8_ptr install_path = z_platform_get_install_folder_path();
    if (install_path == nullptr)
        return false;
    const z_utf8_ptr source_path = z_fs_utils_create_path_in_folder(install_path.get(), name);
    const z_utf8_ptr target_path = z_fs_utils_create_path_in_folder(workspace_path, name);
    z_fs_info info;
    if (z_fs_utils_get_info(source_path.get(), info) && !info.exists)
        return true;
    const z_folder_ptr folder = z_fs_utils_open_folder(source_path.get());
    if (folder == nullptr || !z_fs_utils_get_info(target_path.get(), info))
        return false;
    if (!info.exists && !made.make_folder(target_path.get()))
        return false;

    z_utf8_ptr entry_name;
    while (z_fs_utils_next_folder_entry(folder.get(), entry_name)) {
        if (entry_name == nullptr)
            return true;
        const z_utf8_ptr source = z_fs_utils_create_path_in_folder(source_path.get(), entry_name.get());
        const z_utf8_ptr target = z_fs_utils_create_path_in_folder(target_path.get(), entry_name.get());
        if (!install_entry(made, source.get(), target.get()))
            return false;
    }
    return false;
}

bool z_workspace_create(const char *path)
{
    const z_utf8_ptr folder_path(g_strdup(path));
    z_fs_utils_strip_ending_path_delimiters(folder_path.get());
    if (!g_path_is_absolute(folder_path.get())) {
        z_error_set("Cannot access the specified location.");
        return false;
    }
    made_entries made;
    if (!make_folder_with_parents(made, folder_path.get()))
        return false;
    for (const char *name : {"codesets", "layouts", "templates"})
        if (!install_components(made, folder_path.get(), name))
            return false;
    if (!z_workspace_save_folder_path(folder_path.get()))
        return false;
    made.keep();
    return true;
}
