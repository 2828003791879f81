#include "app/components_copy.h"

#include "app/components_gui.h"
#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/stream.h"
#include "common/base/utf8.h"
#include "common/gui/file_dialog.h"
#include "common/gui/message.h"
#include "common/workspace/platform.h"

// Shows what is wrong. The texts have always spoken of fonts; users search for them as they are.
static bool provide_folder(const z_components_gui *components, const char *folder_path)
{
    z_fs_info info;
    if (!z_fs_utils_get_info(folder_path, info)) {
        z_error_append("Can not access the workspace fonts folder.");
        z_message_show_error(components->window_stack, z_error_get());
        return false;
    }
    if (!info.exists && (!z_fs_utils_create_folder(folder_path) || !z_fs_utils_get_info(folder_path, info)))
        info = z_fs_info{};
    if (!info.is_folder)
        z_message_show_error(components->window_stack,
                             "The workspace fonts folder does not exist and could not be created.");
    return info.is_folder;
}

static bool may_overwrite(const z_components_gui *components, const char *target, const char *source)
{
    const z_utf8_ptr target_text = components_describe_file(components, target);
    const z_utf8_ptr source_text = components_describe_file(components, source);
    return z_message_ask_yes_no_question_printf(
        components->window_stack, z_answer_if_closed::no, z_question_icon::warning,
        "Really overwrite \"%s\" with \"%s\"?", target_text.get(), source_text.get());
}

void components_add_file(const z_components_gui *components, const char *source)
{
    const char *extension = z_file_type_get_default_file_name_extension_with_period(components->file_type);
    if (!z_utf8_has_suffix_case_insensitive_ascii(source, extension)) {
        z_message_show_error_printf(components->window_stack, "The file name must end with \"%s\".",
                                    extension);
        return;
    }
    const z_utf8_ptr folder_path = components_get_folder_path(components);
    if (!provide_folder(components, folder_path.get()))
        return;
    const z_utf8_ptr target =
        z_fs_utils_create_path_in_folder(folder_path.get(), z_fs_utils_find_entry_name_in_path(source));
    if (z_platform_compare_file_system_paths(source, target.get()))
        return;
    z_fs_info info;
    const bool is_taken = !z_fs_utils_get_info(target.get(), info) || info.exists;
    if (is_taken && !may_overwrite(components, target.get(), source))
        return;
    if (!z_stream_put_copy_of_file(source, target.get(),
                                   is_taken ? z_fs_existing::replace : z_fs_existing::refuse))
        z_message_show_error_printf(components->window_stack, "An error occured when writing file.\n\n%s",
                                    target.get());
}

void components_clone_file(const z_components_gui *components, const char *source, const char *target)
{
    if (!z_stream_put_copy_of_file(source, target, z_fs_existing::refuse))
        z_message_show_error(components->window_stack, "An error occured when copying the file.");
}

void components_save_copy_of_file(const z_components_gui *components, const char *source)
{
    const z_utf8_ptr target = z_file_dialog_get_file_path_for_writing(
        components->window_stack, z_fs_utils_find_entry_name_in_path(source), components->file_type);
    if (target == nullptr || z_platform_compare_file_system_paths(source, target.get()))
        return;
    if (!z_stream_put_copy_of_file(source, target.get(), z_fs_existing::replace))
        z_message_show_error_printf(components->window_stack,
                                    "An error occured when saving the copy of the file.\n\n%s", target.get());
}
