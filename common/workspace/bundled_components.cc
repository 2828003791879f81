#include "common/workspace/bundled_components.h"

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/md5.h"
#include "common/base/stream.h"
#include "common/workspace/platform.h"

static constexpr z_layout_upgrade_action replace = z_layout_upgrade_action::replace;
static constexpr z_layout_upgrade upgrades[] = {
    {"standard.layout", "fbf64e8b689a7e27434603f2cbb84636", z_layout_upgrade_action::replace_or_withdraw},
    {"bundled_grey_blocks.layout", "aa4e1af1ed60d7e3e8c5efa44377f207", replace},
    {"bundled_modern.layout", "a2e28f8bd698b869d9e47f1c59f7092d", replace},
    {"bundled_simple.layout", "a03d1a613373bc8f9765210b128ccdcf", replace},
    {"bundled_white_blocks.layout", "6deb29cead8c3f577ca2f9eb4d7fe28d", replace},
    {"bundled_grey_blocks.layout", "654c93ccc429308d49345b7ce8e3b992", replace},
    {"bundled_modern.layout", "33afda9bcf867ddd84ad06d49f796460", replace},
    {"bundled_simple.layout", "5daeefabb08e012aa358fb50fbf7687c", replace},
    {"bundled_white_blocks.layout", "9f5172002cafc9e6a1ba3faff18f0234", replace},
};
std::span<const z_layout_upgrade> z_layout_upgrades = upgrades;

z_made_entries::~z_made_entries()
{
    if (entries.empty())
        return;
    const z_utf8_ptr reason(g_strdup(z_error_get()));
    for (auto each = entries.rbegin(); each != entries.rend(); ++each)
        (void)(each->is_folder ? z_fs_utils_delete_folder_if_exists(each->path.get())
                               : z_fs_utils_delete_file_if_exists(each->path.get()));
    z_error_set(reason.get());
}

bool z_made_entries::make_folder(const char *path)
{
    if (!z_fs_utils_create_folder(path))
        return false;
    entries.push_back({z_utf8_ptr(g_strdup(path)), true});
    return true;
}

bool z_made_entries::make_folder_unless_there(const char *path)
{
    if (make_folder(path))
        return true;
    z_fs_info info;
    if (!z_fs_utils_get_info(path, info) || !info.is_folder)
        return false;
    z_error_clear();
    return true;
}

bool z_made_entries::make_copy_unless_there(const char *source, const char *path)
{
    z_fs_info info;
    if (!z_fs_utils_get_info(path, info))
        return false;
    if (info.exists)
        return true;
    if (z_stream_put_copy_of_file(source, path, z_fs_existing::refuse)) {
        entries.push_back({z_utf8_ptr(g_strdup(path)), false});
        return true;
    }
    if (!z_fs_utils_get_info(path, info) || !info.exists)
        return false;
    z_error_clear();
    return true;
}

static z_utf8_ptr get_installed_folder_path(const char *name)
{
    const z_utf8_ptr install_path = z_platform_get_install_folder_path();
    if (install_path == nullptr)
        return nullptr;
    return z_fs_utils_create_path_in_folder(install_path.get(), name);
}

static bool install_entry(z_made_entries &made, const char *source_folder, const char *target_folder,
                          const char *name)
{
    const z_utf8_ptr source = z_fs_utils_create_path_in_folder(source_folder, name);
    const z_utf8_ptr target = z_fs_utils_create_path_in_folder(target_folder, name);
    z_fs_info info;
    if (!z_fs_utils_get_info(source.get(), info))
        return false;
    return !info.is_file || made.make_copy_unless_there(source.get(), target.get());
}

bool z_workspace_install_components(z_made_entries &made, const char *workspace_path, const char *name)
{
    const z_utf8_ptr source_path = get_installed_folder_path(name);
    if (source_path == nullptr)
        return false;
    const z_utf8_ptr target_path = z_fs_utils_create_path_in_folder(workspace_path, name);
    z_fs_info info;
    if (z_fs_utils_get_info(source_path.get(), info) && !info.exists)
        return true;
    const z_folder_ptr folder = z_fs_utils_open_folder(source_path.get());
    if (folder == nullptr || !z_fs_utils_get_info(target_path.get(), info))
        return false;
    if (!info.exists && !made.make_folder_unless_there(target_path.get()))
        return false;

    z_utf8_ptr entry_name;
    while (z_fs_utils_next_folder_entry(folder.get(), entry_name)) {
        if (entry_name == nullptr)
            return true;
        if (!install_entry(made, source_path.get(), target_path.get(), entry_name.get()))
            return false;
    }
    return false;
}

// The installation is asked first: without its part of a row, the copy in the workspace is all that there is.
static void upgrade(const z_layout_upgrade &row, const char *workspace_path, const char *source_folder)
{
    const z_utf8_ptr source = z_fs_utils_create_path_in_folder(source_folder, row.file_name);
    const z_utf8_ptr target = z_fs_utils_create_path_in_folder(workspace_path, "layouts", row.file_name);
    z_fs_info info;
    if (!z_fs_utils_get_info(source.get(), info))
        return;
    const bool withdraws = row.action == z_layout_upgrade_action::replace_or_withdraw;
    if (!info.is_file && !(withdraws && z_fs_utils_open_folder(source_folder) != nullptr))
        return;
    if (!z_util_verify_md5sum(target.get(), row.old_digest))
        return;

    const bool is_done = info.is_file
                             ? z_stream_put_copy_of_file(source.get(), target.get(), z_fs_existing::replace)
                             : z_fs_utils_delete_file_if_exists(target.get());
    if (!is_done || !withdraws)
        return;
    z_made_entries made;
    (void)z_workspace_install_components(made, workspace_path, "layouts");
    made.keep();
}

void z_workspace_upgrade_layouts(const char *workspace_path)
{
    const z_utf8_ptr reason(g_strdup(z_error_get()));
    if (const z_utf8_ptr source_folder = get_installed_folder_path("layouts")) {
        for (const z_layout_upgrade &row : z_layout_upgrades)
            upgrade(row, workspace_path, source_folder.get());
    }
    z_error_set(reason.get());
}
