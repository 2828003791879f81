#include "app/user_session.h"

#include "app/workspace_gui.h"
#include "common/base/error.h"
#include "common/gui/message.h"
#include "common/workspace/settings.h"

static z_workspace_ptr open_or_create(z_window_stack *window_stack)
{
    z_error_clear();
    z_workspace_ptr workspace = z_workspace_open();
    if (workspace != nullptr)
        return workspace;
    if (*z_error_get() != '\0')
        z_message_show_error(window_stack, z_error_get());
    if (!z_workspace_gui_create_workspace(window_stack))
        return nullptr;
    workspace = z_workspace_open();
    if (workspace == nullptr)
        z_message_show_error(window_stack, "Something went wrong when opening your new workspace.");
    return workspace;
}

z_workspace_ptr z_user_session_start(z_window_stack *window_stack)
{
    z_workspace_ptr workspace = open_or_create(window_stack);
    if (workspace == nullptr)
        return nullptr;
    if (!z_settings_load(workspace->settings.get(), Z_SETTINGS_EVERYTHING))
        z_message_show_warning(window_stack, "Something went wrong when reading your personal settings.");
    return workspace;
}

// Other programs of the family may have saved settings of theirs meanwhile, so only what this one has changed
// is saved.
void z_user_session_end(z_workspace_ptr workspace)
{
    z_settings *settings = workspace->settings.get();
    z_error_clear();
    if (settings->changed_items != 0 && !z_settings_save(settings, settings->changed_items))
        z_message_show_error(nullptr, z_error_get());
}
