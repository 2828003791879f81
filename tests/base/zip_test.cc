#include "common/base/zip.h"

#include "tests/support/file_sandbox.h"

namespace {

struct ZipTest : FileSandboxTest {
    [[nodiscard]] z_zip_archive_ptr create(const char *name) const
    {
        return z_zip_archive_ptr(zip_open(path(name).c_str(), ZIP_CREATE, nullptr));
    }
    static bool add(zip_t *archive, const char *name, std::string_view text,
                    z_zip_existing existing = z_zip_existing::refuse)
    {
        return z_zip_add_file_to_archive_from_buffer(archive, name, existing, text.data(), text.size());
    }
    static std::string read(zip_t *archive, const char *name)
    {
        z_zip_file_ptr member = z_zip_open_file(archive, name);
        char text[100];
        size_t count = 0;
        EXPECT_TRUE(member != nullptr && z_zip_read_from_file(member.get(), text, sizeof text, &count));
        EXPECT_TRUE(z_zip_close_file(std::move(member)));
        return {text, count};
    }
};

TEST_F(ZipTest, MembersAreAddedReplacedAndRead)
{
    z_zip_archive_ptr archive = create("å.zip");
    ASSERT_TRUE(add(archive.get(), "ä", "first"));
    EXPECT_FALSE(add(archive.get(), "ä", "second"));
    EXPECT_STREQ(z_error_get(), "Could not add file from buffer.\n\nFile already exists");
    EXPECT_TRUE(add(archive.get(), "ä", "third", z_zip_existing::overwrite));
    z_file_ptr file = z_fs_utils_open_file(write_file("file", "--inner--").c_str(), "rb");
    EXPECT_TRUE(z_zip_add_file_to_archive_from_source(archive.get(), "part", z_zip_existing::refuse,
                                                      z_zip_create_filep_source(std::move(file), 2, 5)));
    EXPECT_TRUE(z_zip_close_archive(std::move(archive)));

    archive = z_zip_open_archive_for_reading(path("å.zip").c_str());
    ASSERT_NE(archive, nullptr) << z_error_get();
    EXPECT_EQ(read(archive.get(), "ä"), "third");
    EXPECT_EQ(read(archive.get(), "part"), "inner");
    EXPECT_EQ(z_zip_open_file(archive.get(), "none"), nullptr);
    EXPECT_STREQ(z_error_get(), "Could not open compressed file.\n\nNo such file");
    EXPECT_EQ(z_zip_open_archive_for_reading(write_file("damaged", "PK\3\4 and nothing").c_str()), nullptr);
    EXPECT_STREQ(z_error_get(), "Could not open file.\n\nNot a zip archive");
}

} // namespace
