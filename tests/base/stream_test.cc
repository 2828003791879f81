#include "common/base/stream.h"

#include <cerrno>
#include <cstring>

#include "common/base/zip.h"
#include "tests/support/file_sandbox.h"
#include "tests/support/fs_faults.h"

namespace {

struct StreamTest : FileSandboxTest {
    // Longer than any buffer of the streams, with zeros in it.
    static std::string make_long_text()
    {
        std::string text;
        for (int i = 0; text.size() < 10'000; ++i)
            text += std::to_string(i) + '\0';
        return text;
    }
    void make_archive(const char *name, std::string_view member) const
    {
        z_zip_archive_ptr archive(zip_open(path(name).c_str(), ZIP_CREATE, nullptr));
        ASSERT_TRUE(z_zip_add_file_to_archive_from_buffer(archive.get(), "mëmber", z_zip_existing::refuse,
                                                          member.data(), member.size()));
        ASSERT_TRUE(z_zip_close_archive(std::move(archive))) << z_error_get();
    }
    static std::string text_of(const z_bytes_ptr &data, size_t length)
    {
        EXPECT_EQ(data.get()[length], 0);
        return {reinterpret_cast<const char *>(data.get()), length};
    }
};

// Every kind of input gives the same bytes, read, lent and skipped alike.
TEST_F(StreamTest, AllInputsReadAlike)
{
    const std::string text = make_long_text();
    write_file("file", text);
    make_archive("zip", text);
    const z_zip_archive_ptr archive = z_zip_open_archive_for_reading(path("zip").c_str());
    const z_zip_source_ptr source = z_zip_create_buffer_source(text.data(), text.size());
    const z_input_stream_ptr streams[] = {
        z_input_stream_new_for_file_path(path("file").c_str()),
        z_input_stream_new_for_memory(text.data(), text.size()),
        z_input_stream_new_for_zip_file_path(archive.get(), "mëmber"),
        z_input_stream_new_for_zip_source(source.get(), z_zip_source_state::open_and_close),
    };
    for (const z_input_stream_ptr &stream : streams) {
        char start[10];
        size_t count;
        ASSERT_TRUE(z_input_stream_read(stream.get(), start, sizeof start, count)) << z_error_get();
        EXPECT_EQ(std::string(start, count), text.substr(0, 10));
        EXPECT_TRUE(z_input_stream_skip(stream.get(), 2000));
        const void *data;
        ASSERT_TRUE(z_input_stream_get_some(stream.get(), data, count));
        EXPECT_EQ(std::string(static_cast<const char *>(data), count), text.substr(2010, count));
        z_bytes_ptr rest;
        size_t length;
        ASSERT_TRUE(z_stream_copy_to_memory(stream.get(), rest, length));
        EXPECT_EQ(text_of(rest, length), text.substr(2010 + count));
        EXPECT_TRUE(z_input_stream_read(stream.get(), start, sizeof start, count));
        EXPECT_EQ(count, 0U);
    }
}

TEST_F(StreamTest, WhatDidNotOpenFailsWhenUsed)
{
    make_archive("zip", "12345");
    const z_zip_archive_ptr archive = z_zip_open_archive_for_reading(path("zip").c_str());
    const std::pair<z_input_stream_ptr, const char *> inputs[] = {
        {z_input_stream_new_for_file_path(path("none").c_str()), "Opening input file failed."},
        {z_input_stream_new_for_zip_file_path(archive.get(), "none"),
         "Opening compressed input file failed."},
    };
    for (const auto &[stream, text] : inputs) {
        char byte;
        size_t count;
        EXPECT_FALSE(z_input_stream_read(stream.get(), &byte, 1, count));
        EXPECT_STREQ(z_error_get(), text);
    }
    z_output_stream_ptr output = z_output_stream_new_for_file_path(path("none/file").c_str());
    EXPECT_FALSE(z_output_stream_write(output.get(), "x", 1));
    EXPECT_STREQ(z_error_get(), "Creating file failed.");
    EXPECT_FALSE(z_output_stream_destroy(std::move(output)));
}

TEST_F(StreamTest, MemoryIsHandedOverWithATerminator)
{
    const z_output_stream_ptr stream = z_output_stream_new_for_memory();
    for (const char *text : {"", "abcd", "e"}) {
        EXPECT_TRUE(z_output_stream_write(stream.get(), text, std::strlen(text)));
        size_t length = 7;
        const z_bytes_ptr data = z_output_stream_get_memory_data(stream.get(), length);
        EXPECT_EQ(text_of(data, length), text);
    }
}

TEST_F(StreamTest, AnOutputFileStaysOnlyIfItIsComplete)
{
    z_output_stream_ptr stream = z_output_stream_new_for_file_path(path("file").c_str());
    EXPECT_TRUE(z_output_stream_write(stream.get(), "half", 4));
    stream.reset();
    EXPECT_FALSE(exists("file"));
}

TEST_F(StreamTest, PiecesOfEverySizeArriveInOrder)
{
    std::string text;
    z_output_stream_ptr stream = z_output_stream_new_for_file_path(path("file").c_str());
    for (const size_t size : {1U, 65'535U, 1U, 65'536U, 1000U, 65'537U, 3U, 64'533U, 200'000U, 2U}) {
        const std::string piece(size, static_cast<char>('a' + text.size() % 26));
        EXPECT_TRUE(z_output_stream_write(stream.get(), piece.data(), size));
        text += piece;
    }
    EXPECT_TRUE(z_output_stream_destroy(std::move(stream)));
    EXPECT_EQ(read_file("file"), text);
}

// Either the copy is complete, or the destination is as it was or gone.
TEST_F(StreamTest, EveryStepOfACopyCanFail)
{
    const std::string text = make_long_text(), source = write_file("source", text);
    for (int step = 0;; ++step) {
        const std::string destination = write_file("destination", "old");
        const FsFaults faults(step, EIO);
        // The source was only read, so closing it may fail unseen.
        const bool done = z_stream_copy_from_file_path_to_file_path(source.c_str(), destination.c_str());
        const std::string left = exists("destination") ? read_file("destination") : "";
        EXPECT_TRUE(done ? left == text : left == "old" || !exists("destination")) << step;
        if (!faults.has_struck())
            break;
    }
    EXPECT_EQ(read_file("destination"), text);
}

TEST_F(StreamTest, FailuresOfAFileAreNamed)
{
    const struct {
        void (*break_system)();
        const char *text;
    } cases[] = {
        {[] { z_fs.write = [](FILE *, const void *, size_t size) { return size - 1; }; },
         "File write error."},
        {[] { z_fs.has_error = [](FILE *) { return true; }; }, "File write error."},
        {[] { z_fs.flush = [](FILE *) { return errno = ENOSPC, EOF; }; },
         "Cannot close file.\n\nError 28: No space left on device"},
    };
    for (const auto &each : cases) {
        const FsFaults faults;
        each.break_system();
        z_output_stream_ptr stream = z_output_stream_new_for_file_path(path("file").c_str());
        const bool is_written = z_output_stream_write(stream.get(), "text", 4);
        EXPECT_FALSE(z_output_stream_destroy(std::move(stream)) && is_written);
        EXPECT_STREQ(z_error_get(), each.text);
        EXPECT_FALSE(exists("file"));
    }
    write_file("file", "text");
    const z_input_stream_ptr input = z_input_stream_new_for_file_path(path("file").c_str());
    const FsFaults faults(0, EIO);
    char byte;
    size_t count;
    EXPECT_FALSE(z_input_stream_read(input.get(), &byte, 1, count));
    EXPECT_STREQ(z_error_get(), "File read error.");
}

} // namespace
