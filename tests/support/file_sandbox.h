#pragma once

// A temporary folder in whose tests every file must be closed again, with the ways of writing one.

#include "common/base/stream.h"
#include "tests/support/open_handles.h"
#include "tests/support/sandbox.h"

struct FileSandboxTest : SandboxTest {
    const OpenHandles handles;

    // By deleting what is there first.
    [[nodiscard]] bool write(std::string_view name, std::string_view text) const
    {
        z_output_stream_ptr stream = z_output_stream_new_for_file_path(path(name).c_str());
        const bool is_written = z_output_stream_write(stream.get(), text.data(), text.size());
        return z_output_stream_destroy(std::move(stream)) && is_written;
    }
    // By one rename.
    [[nodiscard]] bool put(std::string_view name, std::string_view text,
                           z_fs_existing existing = z_fs_existing::replace) const
    {
        return z_fs_utils_put_file(path(name).c_str(), text.data(), text.size(), existing);
    }
    [[nodiscard]] z_fs_info get_info(std::string_view name) const
    {
        z_fs_info info;
        EXPECT_TRUE(z_fs_utils_get_info(path(name).c_str(), info)) << name << ": " << z_error_get();
        return info;
    }
};
