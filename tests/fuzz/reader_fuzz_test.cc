// Mutated files, given to the readers of templates and codesets. Whatever they hold, a reader neither crashes
// nor leaks; it explains a failure, and what it accepts can be written and read back, or is refused by the
// check.
//
// Runs for ZANVEL_FUZZ_SECONDS, 3 if not set, from ZANVEL_FUZZ_SEED, always the same if not set. A failure
// prints the seed of its case, from which the case alone is run with ZANVEL_FUZZ_SECONDS=0.

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/base/error.h"
#include "common/base/output_stream.h"
#include "common/base/xml.h"
#include "common/model/codeset_io.h"
#include "common/model/template_io.h"

namespace {

using random_source = std::mt19937;

size_t pick(random_source &random, size_t count)
{
    return std::uniform_int_distribution<size_t>(0, count - 1)(random);
}

// What means something to a reader, between bars.
constexpr const char tokens[] =
    "<|>|/>|</|&|&amp;|&#1;|&#x20AC;|&a;|&house;|<![CDATA[|]]>|<!--|-->|<?x|?>|\"|'| lang=\"\"|"
    " lang=\"en\"|\xe9|\xc3\xa9|\xff\xfe|<row>|</row>|<block/>|<header/>|<remark>|<code/>|"
    "<checkbox/>|<condition/>|<version/>|template|codeset|<!DOCTYPE a [|]>|"
    "<!ENTITY a SYSTEM \"x.dtd\">|<!ENTITY a \"&a;&a;\">| xmlns=\"u\"|x:|\t\n ";

// Replaces, removes, doubles or moves a part, or puts in something that means something.
void mutate(std::string &document, const std::string &other, random_source &random)
{
    const size_t start = pick(random, document.size() + 1);
    const size_t size = std::min(pick(random, 40), document.size() - start);
    switch (pick(random, 7)) {
    case 0:
        if (start < document.size())
            document[start] = static_cast<char>(pick(random, 256));
        break;
    case 1:
        document.erase(start, size);
        break;
    case 2:
        document.insert(start, document.substr(start, size));
        break;
    case 3:
        document.insert(pick(random, document.size() + 1), document.substr(start, size));
        break;
    case 4:
        document.insert(start, other.substr(pick(random, other.size()), pick(random, 200)));
        break;
    case 5:
        document.resize(start);
        break;
    default:
        static const z_ptr<char *, g_strfreev> list(g_strsplit(tokens, "|", -1));
        document.insert(start, list.get()[pick(random, g_strv_length(list.get()))]);
    }
}

template <typename Ptr, typename Element>
void expect_sound(const std::string &document, Ptr (*read)(z_xml_doc_ptr),
                  bool (*write)(const Element *, z_output_stream *), bool (*check)(const Element *))
{
    z_error_clear();
    const Ptr element = read(z_xml_parse_memory(document.data(), document.size(), z_xml_tree::for_reading));
    if (element == nullptr) {
        EXPECT_STRNE(z_error_get(), "");
        EXPECT_TRUE(g_utf8_validate(z_error_get(), -1, nullptr));
        return;
    }
    EXPECT_STREQ(z_error_get(), "");
    if (!check(element.get())) {
        EXPECT_STRNE(z_error_get(), "");
        return;
    }
    // What was read back is written the same.
    const auto print = [&](const Element *printed) {
        const z_output_stream_ptr stream = z_output_stream_new_for_memory();
        EXPECT_TRUE(write(printed, stream.get()));
        size_t size;
        const z_bytes_ptr data = z_output_stream_get_memory_data(stream.get(), size);
        return std::string(reinterpret_cast<const char *>(data.get()), size);
    };
    const std::string first = print(element.get());
    const Ptr again = read(z_xml_parse_memory(first.data(), first.size()));
    ASSERT_NE(again, nullptr) << z_error_get();
    EXPECT_EQ(print(again.get()), first);
}

std::vector<std::string> read_seeds()
{
    std::vector<std::filesystem::path> paths;
    for (const auto &entry : std::filesystem::directory_iterator(ZANVEL_TEST_DATA "/fuzz/seeds"))
        paths.push_back(entry.path());
    std::sort(paths.begin(), paths.end());
    std::vector<std::string> seeds;
    for (const auto &path : paths) {
        std::ifstream file(path, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return seeds;
}

unsigned get_number(const char *variable, unsigned fallback)
{
    const char *text = std::getenv(variable);
    return text != nullptr ? static_cast<unsigned>(std::strtoul(text, nullptr, 10)) : fallback;
}

TEST(ReaderFuzzTest, MutatedFiles)
{
    const std::vector<std::string> seeds = read_seeds();
    ASSERT_FALSE(seeds.empty());
    const auto end =
        std::chrono::steady_clock::now() + std::chrono::seconds(get_number("ZANVEL_FUZZ_SECONDS", 3));
    unsigned seed = get_number("ZANVEL_FUZZ_SEED", 20260101);
    do {
        SCOPED_TRACE("ZANVEL_FUZZ_SEED=" + std::to_string(seed));
        random_source random(seed++);
        std::string document = seeds[pick(random, seeds.size())];
        for (size_t count = pick(random, 6); count > 0; --count)
            mutate(document, seeds[pick(random, seeds.size())], random);
        expect_sound(document, z_template_io_read_from_document, z_template_io_write_to_stream,
                     z_template_io_check_readable);
        expect_sound(document, z_codeset_io_read_from_document, z_codeset_io_write_to_stream,
                     z_codeset_io_check_readable);
    } while (!HasFailure() && std::chrono::steady_clock::now() < end);
}

} // namespace
