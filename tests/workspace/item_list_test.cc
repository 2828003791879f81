#include "common/workspace/item_list.h"

#include "common/base/fs_system.h"
#include "tests/support/sandbox.h"

namespace {

// The files' contents are their lines; an empty file is none of the kind. Every file seems to have changed
// long ago.
struct ItemListTest : SandboxTest {
    static inline z_fs_calls calls;
    static inline bool has_just_changed;
    int read_count = 0;

    ItemListTest()
    {
        calls = z_fs;
        has_just_changed = false;
        z_fs.get_entry_status = [](z_folder *folder, z_fs_status *status) {
            const int result = calls.get_entry_status(folder, status);
            status->modification_time_ns = 0;
            status->change_time_ns = has_just_changed ? g_get_real_time() * 1000 : 0;
            return result;
        };
    }
    ~ItemListTest() override
    {
        z_fs = calls;
        z_item_list_clean_up();
    }

    static z_utf8_ptr read_line(const char *path, void *data)
    {
        ++static_cast<ItemListTest *>(data)->read_count;
        std::ifstream file(path);
        std::string line;
        std::getline(file, line);
        return z_utf8_ptr(line.empty() ? nullptr : g_strdup(line.c_str()));
    }
    std::string scan(const char *context = "en")
    {
        std::vector<z_item> items;
        std::string shown;
        if (!z_item_list_scan(items, path("items").c_str(), ".item", context, read_line, this))
            return z_error_get();
        for (const z_item &item : items)
            shown += std::string(item.file_name.get()) + ": " +
                     (item.line->text != nullptr ? item.line->text.get() : "none") + "\n";
        return shown;
    }
};

TEST_F(ItemListTest, OrdersAsAReaderCountsAndSpells)
{
    write_file("items/z.item", "Inspection 9");
    write_file("items/a.ITEM", "inspection 10");
    write_file("items/b10.item", "Zoo");
    write_file("items/b9.item", "Zoo");
    write_file("items/broken9.item", "");
    write_file("items/zz.item", "");
    write_file("items/a.txt", "A");
    std::filesystem::create_directory(root / "items/folder.item");
    EXPECT_EQ(scan(), "broken9.item: none\nzz.item: none\nz.item: Inspection 9\na.ITEM: inspection 10\n"
                      "b9.item: Zoo\nb10.item: Zoo\n");
    std::filesystem::remove_all(root / "items");
    EXPECT_EQ(scan(), "Cannot open folder.\n\nError 2: No such file or directory");
}

TEST_F(ItemListTest, ReadsAFileAgainOnlyWhenItsLineCanHaveChanged)
{
    write_file("items/a.item", "A");
    write_file("items/b.item", "");
    const auto count_reads = [this](const char *context) {
        read_count = 0;
        scan(context);
        return read_count;
    };
    EXPECT_EQ(count_reads("en"), 2);
    EXPECT_EQ(count_reads("en"), 0);
    EXPECT_EQ(count_reads("sv"), 2) << "another language";
    write_file("items/b.item", "Bee");
    EXPECT_EQ(count_reads("sv"), 1) << "another size";
    EXPECT_EQ(scan("sv"), "a.item: A\nb.item: Bee\n");
    write_file("other", "Ant");
    std::filesystem::remove(root / "items/a.item");
    std::filesystem::rename(root / "other", root / "items/a.item");
    EXPECT_EQ(scan("sv"), "a.item: Ant\nb.item: Bee\n") << "another file in the place";
    has_just_changed = true;
    EXPECT_EQ(count_reads("sv"), 2) << "touched";
    EXPECT_EQ(count_reads("sv"), 2) << "may change again within the clock's step";
}

} // namespace
