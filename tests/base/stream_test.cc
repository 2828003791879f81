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
    [[nodiscard]] bool copy(const char *source, const char *destination) const
    {
        return z_stream_copy_from_file_path_to_file_path(path(source).c_str(), path(destination).c_str());
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
    const z_zip_file_ptr member = z_zip_open_file(archive.get(), "mëmber");
    const z_file_ptr file = z_fs_utils_open_file(path("file").c_str(), "rb");
    const z_zip_source_ptr closed = z_zip_create_buffer_source(text.data(), text.size());
    const z_zip_source_ptr open = z_zip_create_buffer_source(text.data(), text.size());
    ASSERT_TRUE(z_zip_open_source(open.get()));
    z_input_stream_ptr streams[] = {
        z_input_stream_new_for_file(file.get()),
        z_input_stream_new_for_file_path(path("file").c_str()),
        z_input_stream_new_for_memory(text.data(), text.size()),
        z_input_stream_new_for_zip_file(member.get()),
        z_input_stream_new_for_zip_file_path(archive.get(), "mëmber"),
        z_input_stream_new_for_zip_source(closed.get(), z_zip_source_state::open_and_close),
        z_input_stream_new_for_zip_source(open.get(), z_zip_source_state::already_open),
    };
    for (z_input_stream_ptr &stream : streams) {
        char start[10];
        size_t count;
        ASSERT_TRUE(z_input_stream_read(stream.get(), start, sizeof start, count)) << z_error_get();
        EXPECT_EQ(std::string(start, count), text.substr(0, 10));
        EXPECT_TRUE(z_input_stream_skip(stream.get(), 0) && z_input_stream_skip(stream.get(), 2000));
        const void *data;
        ASSERT_TRUE(z_input_stream_get_some(stream.get(), data, count));
        EXPECT_EQ(std::string(static_cast<const char *>(data), count), text.substr(2010, count));
        z_bytes_ptr rest;
        size_t length;
        ASSERT_TRUE(z_stream_copy_to_memory(stream.get(), rest, length));
        EXPECT_EQ(text_of(rest, length), text.substr(2010 + count));
        EXPECT_TRUE(z_input_stream_read(stream.get(), start, sizeof start, count));
        EXPECT_EQ(count, 0U);
        stream.reset();
    }
    char byte;
    size_t count;
    EXPECT_TRUE(z_zip_read_from_source(open.get(), &byte, 1, &count));
    EXPECT_FALSE(z_zip_read_from_source(closed.get(), &byte, 1, &count));
    EXPECT_TRUE(z_zip_close_source(open.get()));
}

TEST_F(StreamTest, SkippingEndsWithTheData)
{
    make_archive("zip", "12345");
    const z_zip_archive_ptr archive = z_zip_open_archive_for_reading(path("zip").c_str());
    const std::string file = write_file("file", "12345");
    const struct {
        z_input_stream_ptr stream;
        uint64_t too_much;
        const char *failure;
    } cases[] = {
        {z_input_stream_new_for_memory("12345", 5), 6, "Memory buffer end reached prematurely."},
        {z_input_stream_new_for_memory("12345", 5), UINT64_MAX, "Memory buffer end reached prematurely."},
        {z_input_stream_new_for_zip_file_path(archive.get(), "mëmber"), 6, "Premature end of data stream."},
        {z_input_stream_new_for_file_path(file.c_str()), UINT64_MAX, "Error "},
    };
    for (const auto &[stream, too_much, failure] : cases) {
        EXPECT_FALSE(z_input_stream_skip(stream.get(), too_much));
        EXPECT_TRUE(std::string(z_error_get()).starts_with(failure)) << z_error_get();
    }
    EXPECT_TRUE(z_input_stream_skip(cases[0].stream.get(), 5));
}

TEST_F(StreamTest, WhatDidNotOpenFailsWhenUsed)
{
    make_archive("zip", "12345");
    const z_zip_archive_ptr archive = z_zip_open_archive_for_reading(path("zip").c_str());
    const z_zip_source_ptr source = z_zip_create_function_source(
        [](void *, void *, zip_uint64_t, zip_source_cmd_t) -> zip_int64_t { return -1; }, nullptr);
    const struct {
        z_input_stream_ptr stream;
        const char *text;
    } inputs[] = {
        {z_input_stream_new_for_file_path(path("none").c_str()), "Opening input file failed."},
        {z_input_stream_new_for_zip_file_path(archive.get(), "none"),
         "Opening compressed input file failed."},
        {z_input_stream_new_for_zip_source(source.get(), z_zip_source_state::open_and_close),
         "Opening compressed source failed."},
    };
    for (const auto &each : inputs) {
        char byte;
        size_t count;
        EXPECT_FALSE(z_input_stream_read(each.stream.get(), &byte, 1, count));
        EXPECT_STREQ(z_error_get(), each.text);
        z_error_clear();
        EXPECT_FALSE(z_input_stream_skip(each.stream.get(), 1));
        EXPECT_STREQ(z_error_get(), each.text);
    }
    z_output_stream_ptr output = z_output_stream_new_for_file_path(path("none/file").c_str());
    EXPECT_TRUE(z_output_stream_write(output.get(), "", 0));
    EXPECT_FALSE(z_output_stream_write(output.get(), "x", 1));
    EXPECT_STREQ(z_error_get(), "Creating file failed.");
    z_error_append("Context.");
    EXPECT_FALSE(z_output_stream_destroy(std::move(output)));
    EXPECT_STREQ(z_error_get(), "Context.\n\nCreating file failed.");
    EXPECT_FALSE(z_output_stream_destroy(z_output_stream_new_for_file_path(path("none/file").c_str())));
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

    const z_file_ptr borrowed = z_fs_utils_open_file(path("borrowed").c_str(), "wb");
    stream = z_output_stream_new_for_file(borrowed.get());
    EXPECT_TRUE(z_output_stream_write(stream.get(), "text", 4));
    EXPECT_TRUE(z_output_stream_destroy(std::move(stream)));
    EXPECT_EQ(read_file("borrowed"), "text");
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

TEST_F(StreamTest, CopyingSeesTheSourceBeforeTheDestination)
{
    const std::string text = make_long_text();
    write_file("source", text);
    write_file("empty", "");
    write_file("destination", "old");
    EXPECT_FALSE(copy("none", "destination"));
    EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 2: No such file or directory");
    EXPECT_EQ(read_file("destination"), "old");
    EXPECT_TRUE(copy("source", "destination"));
    EXPECT_EQ(read_file("destination"), text);
    EXPECT_TRUE(copy("none", "none"));
    EXPECT_FALSE(copy("empty", "none/file"));
    EXPECT_STREQ(z_error_get(), "Cannot open file.\n\nError 2: No such file or directory");
    EXPECT_TRUE(copy("empty", "destination"));
    EXPECT_EQ(read_file("destination"), "");
}

// Either the copy is complete, or the destination is as it was or gone.
TEST_F(StreamTest, EveryStepOfACopyCanFail)
{
    const std::string text = make_long_text();
    write_file("source", text);
    for (int step = 0;; ++step) {
        write_file("destination", "old");
        const FsFaults faults(step, EIO);
        // The source was only read, so closing it may fail unseen.
        const bool done = copy("source", "destination");
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
