#include "common/model/file_filter.h"

#include "tests/support/sandbox.h"

namespace {

// Paths are written with slashes in tables that hold on every system.
const auto native = SandboxTest::to_text;

std::string print(const std::vector<z_file_filter> &filters)
{
    std::string text;
    for (const z_file_filter &filter : filters) {
        text += filter.label + ":";
        for (const std::string &pattern : filter.patterns)
            text += " " + pattern;
        text += "\n";
    }
    return text;
}

TEST(FileFilterTest, OffersAllTypesTogetherThenEachThenAllFiles)
{
    const std::vector<z_file_type> types = {Z_FILE_TYPE_JPEG, Z_FILE_TYPE_PNG};
    EXPECT_EQ(print(z_file_filter_create_list(nullptr, types)),
              "Matching files: *.jpg *.jpeg *.png\nJPEG files (.jpg;.jpeg): *.jpg *.jpeg\n"
              "PNG files (.png): *.png\nAll files (*.*): *.*\n");
    EXPECT_EQ(print(z_file_filter_create_list("Pictures", {types.data() + 1, 1})),
              "PNG files (.png): *.png\nAll files (*.*): *.*\n");
    EXPECT_EQ(z_file_filter_create_key(types), "JPEG#PNG");
}

TEST(FileFilterTest, PatternsForChoosersThatTellCasesApart)
{
    EXPECT_EQ(z_file_filter_create_caseless_pattern("*.o2t"), "*.[oO]2[tT]");
    EXPECT_EQ(z_file_filter_create_caseless_pattern("*.*"), "*");
}

TEST(FileFilterTest, CompletesNamesTypedWithoutAnExtension)
{
    const struct {
        const char *path;
        z_file_type type;
        z_shown_files shown;
        const char *completed;
    } cases[] = {
        {"/a.b/foo", Z_FILE_TYPE_TEMPLATE, z_shown_files::of_type, "/a.b/foo.template"},
        {"/a/foo.TEMPLATE", Z_FILE_TYPE_TEMPLATE, z_shown_files::of_type, "/a/foo.TEMPLATE"},
        {"/a/foo.xml", Z_FILE_TYPE_TEMPLATE, z_shown_files::of_type, "/a/foo.xml.template"},
        {"/a/foo.xml", Z_FILE_TYPE_TEMPLATE, z_shown_files::all, "/a/foo.xml"},
        {"/a/foo.Jpeg", Z_FILE_TYPE_JPEG, z_shown_files::of_type, "/a/foo.Jpeg"},
    };
    for (const auto &[path, type, shown, completed] : cases)
        EXPECT_EQ(z_file_filter_complete_path(native(path).c_str(), type, shown).get(), native(completed));
}

} // namespace
