#include "common/gui/native_chooser.h"

#include <array>
#include <cstring>
#include <cwchar>

#include "common/gui/win32/native_dialog_calls.h"

#include <cderr.h>
#include <commctrl.h>
#include <gdk/gdkwin32.h>

#include "common/base/fs_path.h"
#include "common/base/utf16.h"
#include "common/base/win32/path_win32.h"
#include "common/base/win32/wide_text.h"
#include "common/gui/win32/dialog_thread.h"

static constexpr size_t name_buffer_size = 8192;
static constexpr char nul_stand_in = 0x7F;

static constexpr DWORD flags_for_all = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;

z_native_dialog_calls z_native_dialog = {
    .get_open_file_name = GetOpenFileNameW,
    .get_save_file_name = GetSaveFileNameW,
    .get_extended_error = CommDlgExtendedError,
    .browse_for_folder = SHBrowseForFolderW,
    .get_path_from_id_list = SHGetPathFromIDListW,
    .free_item = CoTaskMemFree,
};

// Everything that the dialog's thread reads and writes.
struct file_dialog {
    z_utf16_ptr title, filters, extension;
    std::array<wchar_t, name_buffer_size> names = {};
    OPENFILENAMEW record = {};
    DWORD error = 0;
};

static HWND get_native_window(GtkWidget *window)
{
    if (window == nullptr)
        return nullptr;
    return static_cast<HWND>(gdk_win32_window_get_handle(gtk_widget_get_window(window)));
}

static std::string join_patterns(const z_file_filter &filter)
{
    std::string joined;
    for (const std::string &pattern : filter.patterns)
        joined.append(joined.empty() ? "" : ";").append(pattern);
    return joined;
}

// Pairs of a label and its patterns, each ended by NUL, and one more NUL at the end.
static z_utf16_ptr create_filter_list(std::span<const z_file_filter> filters)
{
    std::string pairs;
    for (const z_file_filter &filter : filters)
        (pairs.append(filter.label) += nul_stand_in).append(join_patterns(filter)) += nul_stand_in;
    z_utf16_ptr list = z_convert_utf8_to_utf16(pairs.c_str());
    if (list != nullptr)
        z_utf16_replace_code_unit(list.get(), nul_stand_in, 0);
    return list;
}

// The extension of the first type, with which the first filter begins; null for all files.
static z_utf16_ptr create_default_extension(std::span<const z_file_filter> filters)
{
    const char *pattern = filters.front().patterns.front().c_str();
    return filters.size() > 1 ? z_convert_utf8_to_utf16(pattern + std::strlen("*.")) : nullptr;
}

// The name to save under, or else the patterns, in whose place the dialog shows the matching files of the
// folder.
static void fill_in_name(file_dialog &dialog, const z_native_chooser_request &request)
{
    if (request.folder_path == nullptr && request.file_name == nullptr)
        return;
    const std::string patterns = join_patterns(request.filters.front());
    const char *name = request.file_name != nullptr ? request.file_name : patterns.c_str();
    const char *folder_path = request.folder_path != nullptr ? request.folder_path : "";
    const z_utf16_ptr path =
        z_convert_utf8_to_utf16(z_fs_utils_create_path_in_folder(folder_path, name).get());
    if (path != nullptr && z_utf16_strlen(path.get()) < MAX_PATH)
        std::wcscpy(dialog.names.data(), z_win32_get_wide(path));
}

static DWORD get_flags(z_native_chooser_action action)
{
    if (action == z_native_chooser_action::save)
        return flags_for_all;
    const DWORD several = action == z_native_chooser_action::open_several ? OFN_ALLOWMULTISELECT : 0;
    return flags_for_all | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | several;
}

static void set_up(file_dialog &dialog, const z_native_chooser_request &request)
{
    dialog.title = z_convert_utf8_to_utf16(request.title);
    dialog.filters = create_filter_list(request.filters);
    dialog.extension = create_default_extension(request.filters);
    fill_in_name(dialog, request);
    dialog.record.lStructSize = sizeof dialog.record;
    dialog.record.hwndOwner = get_native_window(request.owner);
    dialog.record.lpstrFilter = z_win32_get_wide(dialog.filters);
    dialog.record.nFilterIndex = 1;
    dialog.record.lpstrFile = dialog.names.data();
    dialog.record.nMaxFile = name_buffer_size;
    dialog.record.lpstrTitle = z_win32_get_wide(dialog.title);
    dialog.record.lpstrDefExt = z_win32_get_wide(dialog.extension);
    dialog.record.Flags = get_flags(request.action);
}

// Several names are a folder and what was chosen in it, each ended by NUL, and one more NUL; one is its path,
// in front of what is left of the name that was filled in.
static std::vector<std::string> split_names(const OPENFILENAMEW &record)
{
    const std::string first = z_win32_name_to_bytes(record.lpstrFile);
    if (record.nFileOffset <= std::wcslen(record.lpstrFile))
        return {first};
    std::vector<std::string> paths;
    for (const wchar_t *name = record.lpstrFile + record.nFileOffset; *name != L'\0';
         name += std::wcslen(name) + 1)
        paths.emplace_back(
            z_fs_utils_create_path_in_folder(first.c_str(), z_win32_name_to_bytes(name).c_str()).get());
    return paths;
}

static z_native_chooser_answer run_file_dialog(const z_native_chooser_request &request)
{
    file_dialog dialog;
    set_up(dialog, request);
    const bool is_accepted = z_dialog_thread_run([&dialog, action = request.action] {
        const auto run = action == z_native_chooser_action::save ? z_native_dialog.get_save_file_name
                                                                 : z_native_dialog.get_open_file_name;
        const bool is_chosen = run(&dialog.record) != FALSE;
        if (!is_chosen)
            dialog.error = z_native_dialog.get_extended_error();
        return is_chosen;
    });
    z_native_chooser_answer answer;
    if (is_accepted) {
        answer.paths = request.action == z_native_chooser_action::open_several
                           ? split_names(dialog.record)
                           : std::vector{z_win32_name_to_bytes(dialog.names.data())};
        answer.filter_index = dialog.record.nFilterIndex - 1;
    } else if (dialog.error != 0) {
        answer.failure = dialog.error == FNERR_BUFFERTOOSMALL ? "Too many files were chosen at once."
                                                              : "The file dialog could not be shown.";
    }
    return answer;
}

// Returns whether a folder was chosen. The path stays empty if it has none of an ordinary length.
static bool browse(BROWSEINFOW &browser, wchar_t *path)
{
    const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    InitCommonControls();
    ITEMIDLIST *item = z_native_dialog.browse_for_folder(&browser);
    if (item != nullptr && !z_native_dialog.get_path_from_id_list(item, path))
        *path = L'\0';
    if (item != nullptr)
        z_native_dialog.free_item(item);
    if (SUCCEEDED(com))
        CoUninitialize();
    return item != nullptr;
}

static z_native_chooser_answer run_folder_browser(const z_native_chooser_request &request)
{
    const z_utf16_ptr prompt = z_convert_utf8_to_utf16(request.title);
    std::array<wchar_t, MAX_PATH> name = {};
    std::array<wchar_t, MAX_PATH> path = {};
    BROWSEINFOW browser = {};
    browser.hwndOwner = get_native_window(request.owner);
    browser.pszDisplayName = name.data();
    browser.lpszTitle = z_win32_get_wide(prompt);
    browser.ulFlags = BIF_RETURNONLYFSDIRS;
    z_native_chooser_answer answer;
    if (!z_dialog_thread_run([&browser, &path] { return browse(browser, path.data()); }))
        return answer;
    if (path[0] != L'\0')
        answer.paths.push_back(z_win32_name_to_bytes(path.data()));
    else
        answer.failure = "The folder has no path, or one that is too long.";
    return answer;
}

static z_native_chooser_answer run(const z_native_chooser_request &request)
{
    return request.action == z_native_chooser_action::choose_folder ? run_folder_browser(request)
                                                                    : run_file_dialog(request);
}

z_native_chooser_answer (*z_native_chooser_run)(const z_native_chooser_request &request) = run;
