#pragma once

// A temporary folder for one test, removed with everything in it. The header brings what nearly every test
// with files speaks: the test macros, texts and z_error.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "common/base/error.h"

// The fixture also begins and ends with an empty error accumulator. Names and paths are UTF-8.
struct SandboxTest : testing::Test {
    explicit SandboxTest(const std::string &name = "zanvel-test-")
    {
        std::string pattern = to_text(std::filesystem::temp_directory_path() / to_path(name + "XXXXXX"));
        root = to_path(g_mkdtemp(pattern.data()));
        z_error_clear();
    }
    ~SandboxTest() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
        z_error_clear();
    }

    [[nodiscard]] static std::filesystem::path to_path(std::string_view text)
    {
        return std::u8string(text.begin(), text.end());
    }
    [[nodiscard]] static std::string to_text(std::filesystem::path path)
    {
        const std::u8string text = path.make_preferred().u8string();
        return {text.begin(), text.end()};
    }

    // Of the folder itself without a name.
    [[nodiscard]] std::string path(std::string_view name = "") const
    {
        return to_text(name.empty() ? root : root / to_path(name));
    }
    [[nodiscard]] bool exists(std::string_view name) const
    {
        return std::filesystem::exists(root / to_path(name));
    }

    // The paths, within the folder and with slashes, of all that is in it.
    [[nodiscard]] std::set<std::string> list(std::string_view folder = "") const
    {
        std::set<std::string> names;
        for (const auto &entry : std::filesystem::recursive_directory_iterator(root / to_path(folder))) {
            const std::u8string name =
                entry.path().lexically_relative(root / to_path(folder)).generic_u8string();
            names.emplace(name.begin(), name.end());
        }
        return names;
    }

    // Returns the path of the file written.
    std::string write_file(std::string_view name, std::string_view bytes) const
    {
        const std::filesystem::path place = root / to_path(name);
        std::filesystem::create_directories(place.parent_path());
        std::ofstream file(place, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        EXPECT_TRUE(file.good());
        return path(name);
    }
    [[nodiscard]] std::string read_file(std::string_view name) const
    {
        std::ifstream file(root / to_path(name), std::ios::binary);
        EXPECT_TRUE(file.good()) << name;
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    std::filesystem::path root;
};
