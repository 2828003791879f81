#include "common/model/codeset_io.h"

#include "common/base/xml.h"
#include "tests/support/langstr_text.h"
#include "tests/support/sandbox.h"

namespace {

std::string make_remark(const std::string &code)
{
    return "<remark><code>" + code + "</code><description lang='en'>D</description></remark>";
}

struct CodesetIoTest : SandboxTest {
    // As the writer prints it.
    const std::string golden = read_file(ZANVEL_TEST_DATA "/fuzz/seeds/current.codeset");

    // The codes in their order, or the failure.
    static std::string show(const std::string &children)
    {
        const std::string document = "<codeset><name lang='en'>N</name>" + children + "</codeset>";
        const z_codeset_ptr codeset =
            z_codeset_io_read_from_document(z_xml_parse_memory(document.data(), document.size()));
        if (codeset == nullptr)
            return z_error_get();
        std::string codes;
        for (const z_remark *remark : codeset->remarks)
            codes += std::string(remark->code.get()) + " ";
        return codes;
    }
};

TEST_F(CodesetIoTest, WriteReadWrite)
{
    const z_codeset_ptr codeset = z_codeset_io_read_from_file(write_file("a", golden).c_str());
    ASSERT_NE(codeset, nullptr) << z_error_get();
    EXPECT_EQ(text_from_langstr(codeset->author.get()), "=A & B");
    EXPECT_EQ(text_from_langstr(codeset->remarks.get_first()->description.get()), "en=Tear|sv=Reva \xe5");
    EXPECT_TRUE(z_codeset_io_write_to_file(codeset.get(), path("b").c_str()));
    EXPECT_EQ(read_file("b"), golden);
    EXPECT_TRUE(z_codeset_io_check_readable(codeset.get()));

    codeset->remarks.get_first()->code.reset(g_strdup("R&D"));
    EXPECT_FALSE(z_codeset_io_check_readable(codeset.get()));
    EXPECT_TRUE(z_codeset_io_write_to_file(codeset.get(), path("b").c_str()));
    EXPECT_NE(read_file("b").find("<code>R&D</code>"), std::string::npos);
}

TEST_F(CodesetIoTest, RefusedFiles)
{
    const std::string parsing = "Error parsing codeset file.\n\n";
    const std::string missing = parsing + "Missing remark content in XML data.";
    const std::string description = "<description lang='en'>D</description>";
    EXPECT_EQ(show(make_remark("a10") + make_remark("9") + make_remark("A2")), "9 A2 a10 ");
    const struct {
        std::string children, failure;
    } cases[] = {
        {"", parsing + "Missing remarks."},
        {make_remark("A1") + make_remark(" A1 "), parsing + "Duplicate remark codes."},
        {"<remark><code> </code>" + description + "</remark>", missing},
        {"<remark><code>A</code><code>A</code></remark>", missing},
        {"<remark><code>A</code>" + description + "<code>A</code></remark>",
         parsing + "Remark in XML has multiple codes."},
        {"<remark><code>A</code>" + description + "<description lang='sv'/></remark>",
         parsing + "Empty text content in XML where not allowed."},
    };
    for (const auto &c : cases)
        EXPECT_EQ(show(c.children), c.failure) << c.children;
}

TEST_F(CodesetIoTest, NamesStayInTheFolder)
{
    write_file("codesets/pap\xc3\xa9r.codeset", golden);
    write_file("outside.codeset", golden);
    const std::string folder = path("codesets");
    EXPECT_NE(z_codeset_io_read_from_file_in_folder("pap\xe9r.codeset", folder.c_str()), nullptr);
    for (const char *name : {"../outside.codeset", "..", "", "a\\b", "/"}) {
        EXPECT_EQ(z_codeset_io_read_from_file_in_folder(name, folder.c_str()), nullptr) << name;
        EXPECT_STREQ(z_error_get(),
                     "Error loading codeset file.\n\nCannot open file.\n\nError 2: No such file or "
                     "directory");
    }
}

} // namespace
