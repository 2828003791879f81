#pragma once

// What an installation brings along for workspaces: folders named like those of a workspace, with files that
// are copied into it and never over one of the user's. A later installation may bring better layouts; they
// replace copies of older ones that nobody has changed, told by their digests.

#include <span>
#include <vector>

#include "common/base/handles.h"

// The files and folders that a creation has made so far. Unless they are kept they go again at the end of the
// scope; what somebody else has put among them stays.
class z_made_entries {
public:
    z_made_entries() = default;
    z_made_entries(const z_made_entries &) = delete;
    z_made_entries &operator=(const z_made_entries &) = delete;
    ~z_made_entries();

    // An existing folder is a failure.
    [[nodiscard]] bool make_folder(const char *path);
    // What another program has made meanwhile will do just as well, and is not ours to remove.
    [[nodiscard]] bool make_folder_unless_there(const char *path);
    [[nodiscard]] bool make_copy_unless_there(const char *source, const char *path);
    void keep()
    {
        entries.clear();
    }

private:
    struct entry {
        z_utf8_ptr path;
        bool is_folder;
    };
    std::vector<entry> entries;
};

// Copies what the installation has in the folder of this name ("layouts") and the workspace has not. An
// installation without such a folder has nothing to install.
[[nodiscard]] bool z_workspace_install_components(z_made_entries &made, const char *workspace_path,
                                                  const char *name);

enum class z_layout_upgrade_action {
    replace,             // by the installation's file of that name, if it has one
    replace_or_withdraw, // or delete it, if the installation has none, and install what is missing besides
};

struct z_layout_upgrade {
    const char *file_name;
    const char *old_digest;
    z_layout_upgrade_action action;
};

// In the order of their use. Tests put a table of their own here.
extern std::span<const z_layout_upgrade> z_layout_upgrades;

// Failures leave a layout as it is and no message.
void z_workspace_upgrade_layouts(const char *workspace_path);
