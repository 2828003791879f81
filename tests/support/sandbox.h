#pragma once

// A temporary folder for one test, removed with everything in it.

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "common/base/error.h"

// The fixture also begins and ends with an empty error accumulator.
struct SandboxTest : testing::Test {
    SandboxTest()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "zanvel-test-XXXXXX").string();
        root = g_mkdtemp(pattern.data());
        z_error_clear();
    }
    ~SandboxTest() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
        z_error_clear();
    }

    [[nodiscard]] std::string path(std::string_view name) const
    {
        return (root / name).string();
    }
    [[nodiscard]] bool exists(std::string_view name) const
    {
        return std::filesystem::exists(root / name);
    }

    // The paths, within the folder, of all that is in it.
    [[nodiscard]] std::set<std::string> list(std::string_view folder = "") const
    {
        std::set<std::string> names;
        for (const auto &entry : std::filesystem::recursive_directory_iterator(root / folder))
            names.insert(entry.path().lexically_relative(root / folder).string());
        return names;
    }

    // Returns the path of the file written.
    std::string write_file(std::string_view name, std::string_view bytes) const
    {
        std::filesystem::create_directories((root / name).parent_path());
        std::ofstream file(root / name, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        EXPECT_TRUE(file.good());
        return path(name);
    }
    [[nodiscard]] std::string read_file(std::string_view name) const
    {
        std::ifstream file(root / name, std::ios::binary);
        EXPECT_TRUE(file.good()) << name;
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    std::filesystem::path root;
};
