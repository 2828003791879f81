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
    // As the program lists it, which must tell each entry's identity. Empty if it cannot be opened.
    [[nodiscard]] static std::set<std::string> list_folder(const std::string &path)
    {
        z_folder_ptr folder = z_fs_utils_open_folder(path.c_str());
        std::set<std::string> names;
        z_utf8_ptr name;
        while (folder != nullptr && z_fs_utils_next_folder_entry(folder.get(), name) && name != nullptr) {
            z_fs_identity identity, own_identity;
            EXPECT_TRUE(z_fs_utils_get_entry_identity(folder.get(), identity));
            EXPECT_TRUE(z_fs_utils_get_identity((path + "/" + name.get()).c_str(), own_identity));
            EXPECT_EQ(identity, own_identity) << name.get();
            EXPECT_TRUE(names.insert(name.get()).second) << name.get();
        }
        EXPECT_TRUE(z_fs_utils_close_folder(std::move(folder)));
        return names;
    }
    [[nodiscard]] z_fs_info get_info(std::string_view name) const
    {
        z_fs_info info;
        EXPECT_TRUE(z_fs_utils_get_info(path(name).c_str(), info)) << name << ": " << z_error_get();
        return info;
    }
};
