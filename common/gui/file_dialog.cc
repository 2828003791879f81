#include "common/gui/file_dialog.h"

#include <map>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/gui/message.h"
#include "common/gui/native_chooser.h"
#include "common/gui/window_stack.h"
#include "common/workspace/platform.h"

// By the types that the folder was used for.
static std::map<std::string, std::string> last_folder_paths;

static bool is_folder(const char *path)
{
    z_fs_info info;
    return z_fs_utils_get_info(path, info) && info.is_folder;
}

// A documents folder that is yet missing may have its place in one that exists. Null leaves it to the
// desktop.
static z_utf8_ptr find_documents_folder()
{
    z_utf8_ptr path = z_platform_get_documents_folder_path();
    if (path != nullptr && !is_folder(path.get()))
        z_fs_utils_strip_entry_name_from_path(path.get());
    return path != nullptr && is_folder(path.get()) ? std::move(path) : nullptr;
}

static z_utf8_ptr find_folder(const std::string &key)
{
    const auto found = last_folder_paths.find(key);
    if (found != last_folder_paths.end() && is_folder(found->second.c_str()))
        return z_utf8_ptr(g_strdup(found->second.c_str()));
    return find_documents_folder();
}

static void remember_folder(const std::string &key, const char *file_path)
{
    const z_utf8_ptr folder_path(g_strdup(file_path));
    z_fs_utils_strip_entry_name_from_path(folder_path.get());
    last_folder_paths[key] = folder_path.get();
}

// The chosen paths, or none. The stack's node lasts exactly as long as the chooser, so that messages about
// the answer stand on the stack by themselves.
static std::vector<z_utf8_ptr> run_chooser(z_window_stack *stack, z_native_chooser_request request,
                                           size_t *filter_index = nullptr)
{
    if (stack != nullptr)
        request.owner = z_window_stack_push_native_window(stack);
    const z_native_chooser_answer answer = z_native_chooser_run(request);
    if (stack != nullptr)
        z_window_stack_pop_window(stack);
    if (filter_index != nullptr)
        *filter_index = answer.filter_index;

    if (answer.failure != nullptr)
        z_message_show_error(stack, answer.failure);
    std::vector<z_utf8_ptr> paths;
    for (const std::string &name : answer.paths) {
        z_utf8_ptr path = z_fs_utils_convert_glibfsenc_to_utf8(name.c_str());
        if (path == nullptr) {
            z_message_show_error(stack, z_error_get());
            return {};
        }
        paths.push_back(std::move(path));
    }
    return paths;
}

// A chooser in which names can be typed may give those of files that do not exist. One that cannot be
// examined is left to whoever opens it.
static bool check_files(z_window_stack *stack, std::span<const z_utf8_ptr> paths)
{
    for (const z_utf8_ptr &path : paths) {
        z_fs_info info;
        if (!z_fs_utils_get_info(path.get(), info) || info.exists)
            continue;
        z_message_show_error_printf(stack, "There is no file with that name.\n\n%s", path.get());
        return false;
    }
    return true;
}

static std::vector<z_utf8_ptr> run_for_reading(z_window_stack *stack, z_native_chooser_action action,
                                               const char *title, const char *filter_name,
                                               std::span<const z_file_type> types)
{
    const std::string key = z_file_filter_create_key(types);
    const z_utf8_ptr folder_path = find_folder(key);
    const std::vector<z_file_filter> filters = z_file_filter_create_list(filter_name, types);
    const z_native_chooser_request request = {
        .action = action, .title = title, .folder_path = folder_path.get(), .filters = filters};
    std::vector<z_utf8_ptr> paths;
    do
        paths = run_chooser(stack, request);
    while (!check_files(stack, paths));
    if (!paths.empty())
        remember_folder(key, paths.front().get());
    return paths;
}

z_utf8_ptr z_file_dialog_get_file_path_for_reading(z_window_stack *stack, const char *title,
                                                   const char *filter_name,
                                                   std::span<const z_file_type> types)
{
    std::vector<z_utf8_ptr> paths =
        run_for_reading(stack, z_native_chooser_action::open, title, filter_name, types);
    return !paths.empty() ? std::move(paths.front()) : nullptr;
}

std::vector<z_utf8_ptr> z_file_dialog_get_multiple_file_paths_for_reading(z_window_stack *stack,
                                                                          const char *title,
                                                                          const char *filter_name,
                                                                          std::span<const z_file_type> types)
{
    return run_for_reading(stack, z_native_chooser_action::open_several, title, filter_name, types);
}

// Whether the user may and will save there.
static bool accept_place(z_window_stack *stack, const char *path)
{
    z_fs_info info;
    if (!z_fs_utils_get_info(path, info)) {
        z_message_show_error(stack, z_error_get());
        return false;
    }
    if (info.is_folder) {
        z_message_show_error_printf(
            stack, "The file name represents an existing directory. Cannot overwrite that.\n\n%s", path);
        return false;
    }
    return !info.exists || z_message_ask_yes_no_question_printf(
                               stack, z_answer_if_closed::no, z_question_icon::warning,
                               "A file with that name already exists. Really overwrite?\n\n%s", path);
}

// One round of the dialog, which proposes a path or a bare name. Null when cancelled.
static z_utf8_ptr run_for_writing(z_window_stack *stack, const char *proposal, z_file_type type)
{
    const std::vector<z_file_filter> filters = z_file_filter_create_list(nullptr, {&type, 1});
    z_utf8_ptr folder_path(g_strdup(proposal));
    z_fs_utils_strip_entry_name_from_path(folder_path.get());
    if (*folder_path == '\0' || !is_folder(folder_path.get()))
        folder_path = find_folder(z_file_filter_create_key({&type, 1}));
    size_t filter_index = 0;
    const std::vector<z_utf8_ptr> paths =
        run_chooser(stack,
                    {.action = z_native_chooser_action::save,
                     .title = "Save as",
                     .folder_path = folder_path.get(),
                     .file_name = z_fs_utils_find_entry_name_in_path(proposal),
                     .filters = filters},
                    &filter_index);
    if (paths.empty())
        return nullptr;
    const bool are_all_shown = filter_index + 1 == filters.size();
    return z_file_filter_complete_path(paths.front().get(), type,
                                       are_all_shown ? z_shown_files::all : z_shown_files::of_type);
}

z_utf8_ptr z_file_dialog_get_file_path_for_writing(z_window_stack *stack, const char *suggested_name,
                                                   z_file_type type)
{
    const char *extension = z_file_type_get_default_file_name_extension_with_period(type);
    z_utf8_ptr path(suggested_name != nullptr ? g_strdup(suggested_name)
                                              : g_strconcat("untitled", extension, nullptr));
    do
        path = run_for_writing(stack, path.get(), type);
    while (path != nullptr && !accept_place(stack, path.get()));
    if (path != nullptr)
        remember_folder(z_file_filter_create_key({&type, 1}), path.get());
    return path;
}

z_utf8_ptr z_file_dialog_get_folder_path(z_window_stack *stack, const char *prompt)
{
    const z_utf8_ptr folder_path = find_documents_folder();
    std::vector<z_utf8_ptr> paths = run_chooser(stack, {.action = z_native_chooser_action::choose_folder,
                                                        .title = prompt,
                                                        .folder_path = folder_path.get()});
    if (paths.empty())
        return nullptr;
    z_fs_utils_strip_ending_path_delimiters(paths.front().get());
    return std::move(paths.front());
}

void z_file_dialog_clean_up()
{
    last_folder_paths.clear();
}
