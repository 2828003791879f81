// The templates and codesets that come with the program: each reads, is complete in its four languages,
// refers only to codesets that are there, and is exactly what the writer makes of it.

#include <array>
#include <filesystem>
#include <set>

#include "common/model/codeset_io.h"
#include "common/model/template_io.h"
#include "tests/support/sandbox.h"

namespace {

namespace fs = std::filesystem;

const fs::path bundled = fs::path(ZANVEL_TEST_DATA).parent_path() / "bundled";
constexpr std::array languages = {"en-uk", "sv", "de-de", "fr-fr"};

struct BundledTest : SandboxTest {
    // Exactly the four languages, in their order, each with a text.
    void expect_complete(const z_langstr *langstr, const char *what)
    {
        for (const char *language : languages) {
            ASSERT_TRUE(langstr != nullptr) << what << " lacks " << language;
            EXPECT_STREQ(langstr->tag.get(), language) << what;
            EXPECT_STRNE(langstr->text.get(), "") << what;
            langstr = langstr->next.get();
        }
        EXPECT_EQ(langstr, nullptr) << what << " has further languages";
    }

    // A form is for use: no block without rows, no row without fields, no header twice in a block.
    void expect_complete(const z_text_sheet_segment *segment)
    {
        for (const z_text_sheet_block *block : segment->blocks) {
            expect_complete(block->header.get(), "block");
            EXPECT_FALSE(block->rows.is_empty()) << block->header->text.get();
            std::set<std::string> headers;
            for (const z_text_sheet_row *row : block->rows) {
                expect_complete(row->header.get(), "row");
                EXPECT_FALSE(row->fields.is_empty()) << row->header->text.get();
                EXPECT_TRUE(headers.insert(row->header->text.get()).second) << row->header->text.get();
                for (const z_text_sheet_field *field : row->fields)
                    if (field->kind == Z_TEXT_SHEET_CHECKBOX || field->text)
                        expect_complete(field->text.get(), "field");
            }
        }
    }

    void expect_complete(const z_template *tmpl)
    {
        EXPECT_FALSE(tmpl->codesets.is_empty());
        for (const z_template_codeset *codeset : tmpl->codesets)
            EXPECT_TRUE(fs::exists(bundled / "codesets" / codeset->file_name.get()))
                << codeset->file_name.get();
        expect_complete(&tmpl->details);
        for (const z_template_report_type *report_type : tmpl->report_types) {
            expect_complete(report_type->name.get(), "report type");
            for (const z_text_sheet_segment *segment : report_type->segments) {
                expect_complete(segment->header.get(), "segment");
                expect_complete(segment);
            }
        }
    }

    void expect_complete(const z_codeset *codeset)
    {
        for (const z_remark *remark : codeset->remarks)
            expect_complete(remark->description.get(), remark->code.get());
    }

    template <typename Ptr, typename Element>
    void expect_finished(const char *folder, int count, Ptr (*read)(const char *),
                         bool (*write)(const Element *, const char *))
    {
        for (const auto &entry : fs::directory_iterator(bundled / folder)) {
            const std::string file = entry.path().string();
            SCOPED_TRACE(file);
            --count;
            const Ptr element = read(file.c_str());
            ASSERT_TRUE(element) << z_error_get();
            expect_complete(element->name.get(), "name");
            EXPECT_STREQ(element->author->text.get(), "Zanvel"); // A name is the same in every language.
            EXPECT_STREQ(element->version.get(), "1.0");
            expect_complete(element.get());
            ASSERT_TRUE(write(element.get(), path("copy").c_str())) << z_error_get();
            EXPECT_EQ(read_file("copy"), read_file(file));
        }
        EXPECT_EQ(count, 0);
    }
};

TEST_F(BundledTest, EverythingIsCompleteAndAsTheWriterWritesIt)
{
    expect_finished("templates", 4, z_template_io_read_from_file, z_template_io_write_to_file);
    expect_finished("codesets", 5, z_codeset_io_read_from_file, z_codeset_io_write_to_file);
}

} // namespace
