#include "common/gui/native_chooser.h"

#include "common/base/fs_utils.h"
#include "common/base/handles.h"

using z_name_list_ptr = z_ptr<GSList, +[](GSList *list) { g_slist_free_full(list, g_free); }>;

static GtkFileChooserAction to_toolkit_action(z_native_chooser_action action)
{
    switch (action) {
    case z_native_chooser_action::save:
        return GTK_FILE_CHOOSER_ACTION_SAVE;
    case z_native_chooser_action::choose_folder:
        return GTK_FILE_CHOOSER_ACTION_SELECT_FOLDER;
    case z_native_chooser_action::open:
    case z_native_chooser_action::open_several:
        break;
    }
    return GTK_FILE_CHOOSER_ACTION_OPEN;
}

// The chooser owns what is added; the returned filters are borrowed.
static std::vector<GtkFileFilter *> add_filters(GtkFileChooser *chooser,
                                                std::span<const z_file_filter> filters)
{
    std::vector<GtkFileFilter *> added;
    for (const z_file_filter &filter : filters) {
        added.push_back(gtk_file_filter_new());
        gtk_file_filter_set_name(added.back(), filter.label.c_str());
        for (const std::string &pattern : filter.patterns)
            gtk_file_filter_add_pattern(added.back(), z_file_filter_create_caseless_pattern(pattern).c_str());
        gtk_file_chooser_add_filter(chooser, added.back());
    }
    if (!added.empty())
        gtk_file_chooser_set_filter(chooser, added.front());
    return added;
}

// The toolkit's own question about overwriting stays off: it would ask about the name before the extension is
// appended.
static std::vector<GtkFileFilter *> set_up(GtkFileChooser *chooser, const z_native_chooser_request &request)
{
    gtk_file_chooser_set_local_only(chooser, TRUE);
    gtk_file_chooser_set_select_multiple(chooser, request.action == z_native_chooser_action::open_several);
    if (request.folder_path != nullptr) {
        if (const auto folder_path = z_fs_utils_convert_utf8_to_glibfsenc(request.folder_path))
            gtk_file_chooser_set_current_folder(chooser, folder_path.get());
    }
    if (request.file_name != nullptr)
        gtk_file_chooser_set_current_name(chooser, request.file_name);
    return add_filters(chooser, request.filters);
}

static z_native_chooser_answer run(const z_native_chooser_request &request)
{
    const z_ref<GtkFileChooserNative> native = z_take(gtk_file_chooser_native_new(
        request.title, nullptr, to_toolkit_action(request.action), nullptr, nullptr));
    GtkNativeDialog *dialog = GTK_NATIVE_DIALOG(native.get());
    if (request.owner != nullptr)
        gtk_native_dialog_set_transient_for(dialog, GTK_WINDOW(request.owner));
    gtk_native_dialog_set_modal(dialog, TRUE);
    GtkFileChooser *chooser = GTK_FILE_CHOOSER(native.get());
    const std::vector<GtkFileFilter *> filters = set_up(chooser, request);

    z_native_chooser_answer answer;
    if (gtk_native_dialog_run(dialog) != GTK_RESPONSE_ACCEPT)
        return answer;
    const z_name_list_ptr names(gtk_file_chooser_get_filenames(chooser));
    for (const GSList *item = names.get(); item != nullptr; item = item->next)
        answer.paths.emplace_back(static_cast<const char *>(item->data));
    for (size_t i = 0; i < filters.size(); ++i) {
        if (filters[i] == gtk_file_chooser_get_filter(chooser))
            answer.filter_index = i;
    }
    return answer;
}

z_native_chooser_answer (*z_native_chooser_run)(const z_native_chooser_request &request) = run;
