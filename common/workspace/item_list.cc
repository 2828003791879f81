#include "common/workspace/item_list.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_map>

#include "common/base/fs_utils.h"
#include "common/base/utf8.h"

static const int64_t settling_time_ns = 2'000'000'000;

// Far more than a folder holds; a program that runs for weeks must not remember all that ever was.
static const size_t most_remembered = 50'000;

struct remembered_line {
    z_fs_identity identity;
    std::string context;
    bool is_settled = false;
    z_item_line line;
};

// By path.
static std::unordered_map<std::string, remembered_line> remembered_lines;

// Letter case must not count even where the user's locale goes by bytes.
static z_ptr<char, g_free> create_collation_key(const char *text)
{
    const z_utf8_ptr folded(g_utf8_casefold(text, -1));
    return z_ptr<char, g_free>(g_utf8_collate_key_for_filename(folded.get(), -1));
}

static z_ptr<char, g_free> create_sort_key(const char *text, const char *file_name)
{
    const z_ptr<char, g_free> text_key = create_collation_key(text != nullptr ? text : "");
    const z_ptr<char, g_free> file_name_key = create_collation_key(file_name);
    // No key holds a lower byte than the one between the two.
    return z_ptr<char, g_free>(
        g_strconcat(text != nullptr ? "1" : "0", text_key.get(), "\1", file_name_key.get(), nullptr));
}

static const z_item_line *get_line(const char *path, const z_fs_identity &identity, const char *context,
                                   z_item_text_operation get_text, void *user_data)
{
    if (remembered_lines.size() > most_remembered)
        remembered_lines.clear();
    remembered_line &entry = remembered_lines[path];
    if (entry.is_settled && entry.identity == identity && entry.context == context)
        return &entry.line;
    const int64_t now_ns = g_get_real_time() * 1000;
    z_utf8_ptr text = get_text(path, user_data);
    z_ptr<char, g_free> sort_key = create_sort_key(text.get(), z_fs_utils_find_entry_name_in_path(path));
    entry = {identity,
             context,
             now_ns - std::max(identity.modification_time_ns, identity.change_time_ns) > settling_time_ns,
             {std::move(text), std::move(sort_key)}};
    return &entry.line;
}

const z_item_line *z_item_list_get_line(const char *path, const char *context, z_item_text_operation get_text,
                                        void *user_data)
{
    z_fs_identity identity;
    static_cast<void>(z_fs_utils_get_identity(path, identity));
    return get_line(path, identity, context, get_text, user_data);
}

bool z_item_list_scan(std::vector<z_item> &items, const char *folder_path, const char *extension,
                      const char *context, z_item_text_operation get_text, void *user_data)
{
    items.clear();
    const z_folder_ptr folder = z_fs_utils_open_folder(folder_path);
    if (folder == nullptr)
        return false;
    z_utf8_ptr name;
    while (true) {
        if (!z_fs_utils_next_folder_entry(folder.get(), name))
            return false;
        if (name == nullptr)
            break;
        if (!z_utf8_has_suffix_case_insensitive_ascii(name.get(), extension))
            continue;
        const z_utf8_ptr path = z_fs_utils_create_path_in_folder(folder_path, name.get());
        z_fs_identity identity;
        if (z_fs_utils_get_entry_identity(folder.get(), identity) && identity.is_file)
            items.push_back({std::move(name), get_line(path.get(), identity, context, get_text, user_data)});
    }
    std::sort(items.begin(), items.end(), [](const z_item &a, const z_item &b) {
        return std::strcmp(a.line->sort_key.get(), b.line->sort_key.get()) < 0;
    });
    return true;
}

void z_item_list_clean_up()
{
    remembered_lines.clear();
}
