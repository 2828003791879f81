#include "common/workspace/workspace.h"

#include <vector>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/workspace/bundled_components.h"
#include "common/workspace/platform.h"

const char z_workspace_folder_name[] = "Zanvel Workspace";

static const char key_path[] = "Software\\Zanvel";
static const char value_name[] = "WorkspaceFolderPath";

bool z_workspace_get_saved_folder_path(z_utf8_ptr &path)
{
    if (!z_platform_read_string_from_registry(path, key_path, value_name))
        return false;
    if (path != nullptr && !z_fs_path_is_absolute(path.get()))
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
    return z_fs_utils_create_path_in_folder(documents_folder_path.get(), z_workspace_folder_name);
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
    if (!info.exists) {
        z_made_entries made;
        if (!made.make_folder_unless_there(path.get()))
            return nullptr;
        made.keep();
        return path;
    }
    return check_folder(path.get()) ? std::move(path) : nullptr;
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
    z_workspace_upgrade_layouts(workspace->folder_path.get());
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

// The folder must not exist; what is missing above it is made, too.
static bool make_folder_with_parents(z_made_entries &made, const char *path)
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
    for (size_t i = missing.size() - 1; i > 0; --i)
        if (!made.make_folder_unless_there(missing[i].get()))
            return false;
    return made.make_folder(missing[0].get());
}

bool z_workspace_create(const char *path)
{
    const z_utf8_ptr folder_path(g_strdup(path));
    z_fs_utils_strip_ending_path_delimiters(folder_path.get());
    if (!z_fs_path_is_absolute(folder_path.get())) {
        z_error_set("Cannot access the specified location.");
        return false;
    }
    z_made_entries made;
    if (!make_folder_with_parents(made, folder_path.get()))
        return false;
    for (const char *name : {"codesets", "layouts", "templates"})
        if (!z_workspace_install_components(made, folder_path.get(), name))
            return false;
    if (!z_workspace_save_folder_path(folder_path.get()))
        return false;
    made.keep();
    return true;
}
