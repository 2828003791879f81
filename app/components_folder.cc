// What the windows that show components know of folders and files.

#include "app/components_gui.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/gui/window_stack.h"
#include "common/workspace/platform.h"
#include "common/workspace/workspace.h"

// After this time the user is told that the program is at work.
static const int64_t patience_us = G_USEC_PER_SEC / 2;

// A listing under way.
struct listing {
    const z_components_gui *components;
    int64_t start_us;
    bool is_busy_shown;
};

z_utf8_ptr components_get_folder_path(const z_components_gui *components)
{
    return z_fs_utils_create_path_in_folder(components->workspace->folder_path.get(),
                                            components->sub_folder_name);
}

z_utf8_ptr components_get_bundled_folder_path(const z_components_gui *components)
{
    const z_utf8_ptr install_folder = z_platform_get_install_folder_path();
    if (install_folder == nullptr)
        return nullptr;
    return z_fs_utils_create_path_in_folder(install_folder.get(), components->sub_folder_name);
}

static z_utf8_ptr get_text_callback(const char *path, void *data)
{
    auto *self = static_cast<listing *>(data);
    if (!self->is_busy_shown && g_get_monotonic_time() - self->start_us > patience_us) {
        z_window_stack_busy_begin(self->components->window_stack, z_busy_display::window);
        self->is_busy_shown = true;
    }
    return self->components->get_item_text(path, self->components->user_data);
}

std::vector<z_item> components_list_folder(const z_components_gui *components, const char *folder_path)
{
    const char *extension = z_file_type_get_default_file_name_extension_with_period(components->file_type);
    listing self = {components, g_get_monotonic_time(), false};
    std::vector<z_item> items;
    if (!z_item_list_scan(items, folder_path, extension, components->item_text_context, get_text_callback,
                          &self))
        items.clear();
    if (self.is_busy_shown)
        z_window_stack_busy_end(components->window_stack);
    z_error_clear();
    return items;
}

z_utf8_ptr components_describe_file(const z_components_gui *components, const char *path)
{
    const z_item_line *line = z_item_list_get_line(path, components->item_text_context,
                                                   components->get_item_text, components->user_data);
    return z_utf8_ptr(g_strdup(line->text != nullptr ? line->text.get() : path));
}
