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
    EXPECT_TRUE(z_zip_close_archive(nullptr) && z_zip_close_file(nullptr));

    archive = z_zip_open_archive_for_reading(path("å.zip").c_str());
    ASSERT_NE(archive, nullptr) << z_error_get();
    EXPECT_EQ(read(archive.get(), "ä"), "third");
    EXPECT_EQ(read(archive.get(), "part"), "inner");
    zip_stat_t stat;
    EXPECT_TRUE(z_zip_stat_file(archive.get(), "part", &stat));
    EXPECT_EQ(stat.size, 5U);
    EXPECT_FALSE(z_zip_stat_file(archive.get(), "none", &stat));
    EXPECT_STREQ(z_error_get(), "Could not stat compressed file.\n\nNo such file");
    EXPECT_EQ(z_zip_open_file(archive.get(), "none"), nullptr);
    EXPECT_STREQ(z_error_get(), "Could not open compressed file.\n\nNo such file");
    EXPECT_FALSE(add(archive.get(), "new", "x"));
}

TEST_F(ZipTest, RefusedArchivesAndSourcesSayWhy)
{
    const std::string damaged = "PK\3\4 and nothing that follows";
    EXPECT_EQ(z_zip_open_archive_for_reading(path("none").c_str()), nullptr);
    EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 2: No such file or directory");
    EXPECT_EQ(z_zip_open_archive_for_reading(write_file("damaged", damaged).c_str()), nullptr);
    EXPECT_STREQ(z_error_get(), "Could not open file.\n\nNot a zip archive");
    EXPECT_EQ(z_zip_open_archive_for_reading_from_buffer(damaged.data(), damaged.size()), nullptr);
    EXPECT_STREQ(z_error_get(), "Could not open data from source.\n\nNot a zip archive");
    EXPECT_EQ(z_zip_create_buffer_source(nullptr, 1), nullptr);
    EXPECT_STREQ(z_error_get(), "Could not create buffer data source.\n\nInvalid argument");
    const z_zip_source_ptr closed = z_zip_create_buffer_source("text", 4);
    char byte;
    size_t count;
    EXPECT_FALSE(z_zip_read_from_source(closed.get(), &byte, 1, &count));
    EXPECT_TRUE(std::string(z_error_get()).starts_with("Error reading source data.\n\n"));
    EXPECT_FALSE(z_zip_close_source(closed.get()));
    EXPECT_TRUE(std::string(z_error_get()).starts_with("Could not close source.\n\n"));
}

} // namespace
