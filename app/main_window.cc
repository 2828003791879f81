#include "app/main_window.h"

#include "app/application.h"
#include "app/components_gui.h"
#include "app/editing_window.h"
#include "common/workspace/template_list.h"

static z_utf8_ptr text_callback(const char *path, void *user_data)
{
    return z_template_io_get_ui_text(static_cast<z_application_context *>(user_data)->settings, path);
}

static void edit_callback(const char *path, void *user_data)
{
    run_editing_window(static_cast<z_application_context *>(user_data), path);
}

void run_main_window(z_application_context *context)
{
    const z_utf8_ptr item_text_context = z_template_list_create_context(context->settings);
    const z_components_gui components = {
        .window_stack = context->window_stack,
        .workspace = context->workspace,
        .title = "Zanvel Templates Manager 3.2.3",
        .sub_folder_name = "templates",
        .file_type = Z_FILE_TYPE_TEMPLATE,
        .has_bundled_items = true,
        .get_item_text = text_callback,
        .item_text_context = item_text_context.get(),
        .edit = edit_callback,
        .is_editable = nullptr,
        .user_data = context,
    };
    z_components_gui_main_window_run(&components);
}
