#include "common/base/xml.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "common/base/xml_attribute.h"
#include "common/base/xml_dtd.h"
#include "common/base/xml_read.h"
#include "tests/support/sandbox.h"

namespace {

struct XmlTest : SandboxTest {
    // The root's text, or the accumulated failure.
    static std::string parse(const std::string &document)
    {
        const z_xml_doc_ptr doc = z_xml_parse_memory(document.data(), document.size());
        if (doc == nullptr)
            return z_error_get();
        const z_utf8_ptr text = z_xml_get_text_content_as_utf8(z_xml_get_root_element(doc.get()));
        return text != nullptr ? text.get() : z_error_get();
    }

    // A document whose DOCTYPE holds this, and whose root holds that.
    static std::string parse(const std::string &doctype, const std::string &content)
    {
        return parse("<!DOCTYPE r " + doctype + "><r>" + content + "</r>");
    }

    // A path in a document is a kind of URL, whatever the system's delimiter.
    [[nodiscard]] std::string slashed_path(std::string_view name) const
    {
        return (root / name).generic_string();
    }
    static std::string as_url(const std::string &path)
    {
        return z_utf8_ptr(g_filename_to_uri(path.c_str(), nullptr, nullptr)).get();
    }
};

const std::string could_not_parse = "Could not parse XML data.\n\n";

TEST_F(XmlTest, DiagnosticsStandUnderTheSentenceUpToFifteenLines)
{
    EXPECT_EQ(parse("<r>"), could_not_parse + "Entity: line 1: parser error : Premature end of data in tag r "
                                              "line 1\n<r>\n   ^");
    std::string document = "<r>\xe9";
    for (int i = 0; i < 10000; ++i)
        document += "<a:b/>\n";
    const std::string text = parse(document + "<");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2 + 14 + 2) << text;
    EXPECT_TRUE(text.ends_with("\n\n(Error message truncated.)")) << text;
}

TEST_F(XmlTest, EntitiesAreSubstituted)
{
    write_file("names.dtd", "<!ENTITY far 'Stockholm'>");
    const std::string dtd = slashed_path("names.dtd");
    const std::string external = "SYSTEM '" + dtd + "'";
    const struct {
        std::string doctype, content, text;
    } cases[] = {
        {"[<!ENTITY e 'x'>]", "a&e;b", "axb"},
        {external, "&far;&amp;&#233;", "Stockholm&\xc3\xa9"},
        {"SYSTEM '" + as_url(dtd) + "'", "&far;", "Stockholm"},
        {"SYSTEM '" + slashed_path("missing.dtd") + "'", "harmless", "harmless"},
        {"[<!ENTITY % p SYSTEM '" + dtd + "'> %p;]", "&far;", "Stockholm"},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(parse(c.doctype, c.content), c.text) << c.doctype;
        EXPECT_STREQ(z_error_get(), "");
    }
}

TEST_F(XmlTest, NothingButSmallLocalDtdsIsLoaded)
{
    write_file("secret.txt", "secret");
    write_file("big.dtd", std::string(z_xml_max_dtd_size + 1, ' '));
    const std::string secret = slashed_path("secret.txt");
    ASSERT_TRUE(std::filesystem::create_directory(root / "folder.dtd"));

    for (const std::string &url :
         {secret, as_url(secret), slashed_path("big.dtd"), slashed_path("folder.dtd"),
          std::string("http://localhost/x.dtd"), std::string("file://elsewhere/x.dtd")}) {
        const std::string expected = could_not_parse + "Refused to load external entity: " + url;
        EXPECT_TRUE(parse("SYSTEM '" + url + "'", "text").starts_with(expected)) << z_error_get();
        EXPECT_TRUE(parse("[<!ENTITY e SYSTEM '" + url + "'>]", "&e;").starts_with(expected))
            << z_error_get();
    }
}

TEST_F(XmlTest, ADocumentWithAGapFails)
{
    const std::string missing = slashed_path("missing.dtd");
    const struct {
        std::string doctype, content, diagnostic;
    } cases[] = {
        {"SYSTEM '" + missing + "'", "&e;", "Entity 'e' not defined"},
        // A later warning replaces the number of the last error.
        {"SYSTEM '" + missing + "'", "&e;<a xmlns='relative'/>", "Entity 'e' not defined"},
        {"[<!ENTITY e SYSTEM '" + missing + "'>]", "&e;", "Missing external entity: " + missing},
    };
    for (const auto &c : cases) {
        const std::string text = parse(c.doctype, c.content);
        EXPECT_TRUE(text.starts_with(could_not_parse)) << text;
        EXPECT_NE(text.find(c.diagnostic), std::string::npos) << text;
    }
}

TEST_F(XmlTest, ExpansionIsCapped)
{
    std::string references;
    for (int i = 0; i < 3000; ++i)
        references += "&e;";
    const std::string doctype = "[<!ENTITY e '" + std::string(50000, 'x') + "'>]";
    EXPECT_TRUE(parse(doctype, references).starts_with(could_not_parse)) << z_error_get();
    EXPECT_TRUE(parse("[<!ENTITY a '&b;&b;'><!ENTITY b '&a;&a;'>]", "&a;").starts_with(could_not_parse));
}

TEST_F(XmlTest, ATreeForReadingLacksOnlyWhiteSpaceBetweenElements)
{
    const struct {
        std::string content, text;
    } cases[] = {
        {" <a/> <a/> ", " "},
        {" <a/> x <a/> <a/> y", "  x   y"},
        {"<![CDATA[x]]><a/> y", "x y"},
        {" <!--x--> ", "  "},
    };
    for (const auto &c : cases) {
        const std::string document = "<r>" + c.content + "</r>";
        const z_xml_doc_ptr doc =
            z_xml_parse_memory(document.data(), document.size(), z_xml_tree::for_reading);
        const z_utf8_ptr text = z_xml_get_text_content_as_utf8(z_xml_get_root_element(doc.get()));
        EXPECT_EQ(text.get(), c.text) << document;
    }
}

int allocations_left;

TEST_F(XmlTest, WithoutMemoryADocumentIsWholeOrFails)
{
    xmlFreeFunc old_free;
    xmlMallocFunc old_malloc;
    xmlReallocFunc old_realloc;
    xmlStrdupFunc old_strdup;
    xmlMemGet(&old_free, &old_malloc, &old_realloc, &old_strdup);
    const std::string document = "<r a='a long attribute value'>a text that is not short<b c='d'/>end</r>";
    bool was_whole = false;
    for (int count = 0; !was_whole && count < 1000; ++count) {
        SCOPED_TRACE(count);
        allocations_left = count;
        xmlMemSetup(
            free, [](size_t size) { return allocations_left-- > 0 ? malloc(size) : nullptr; },
            [](void *old, size_t size) { return allocations_left-- > 0 ? realloc(old, size) : nullptr; },
            [](const char *text) { return allocations_left-- > 0 ? strdup(text) : nullptr; });
        const z_xml_doc_ptr doc = z_xml_parse_memory(document.data(), document.size());
        was_whole = allocations_left >= 0;
        xmlMemSetup(old_free, old_malloc, old_realloc, old_strdup);
        if (doc == nullptr) {
            EXPECT_TRUE(std::string(z_error_get()).starts_with(could_not_parse));
            continue;
        }
        const xmlNode *parsed = z_xml_get_root_element(doc.get());
        EXPECT_EQ(z_xml_get_text_content_as_utf8(parsed).get(), std::string("a text that is not shortend"));
        EXPECT_NE(z_xml_get_required_attribute_value_as_utf8(parsed, "a"), nullptr);
    }
    EXPECT_TRUE(was_whole);
}

} // namespace
