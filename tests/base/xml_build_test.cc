#include "common/base/xml_build.h"

#include "common/base/fs_system.h"
#include "common/base/xml.h"
#include "common/base/xml_write.h"
#include "tests/support/sandbox.h"

namespace {

struct XmlBuildTest : SandboxTest {
    z_xml_doc_ptr doc = z_xml_new_doc();
    xmlNode *root_element = z_xml_add_root_element(doc.get(), "r");

    std::string to_text() const
    {
        size_t length;
        const z_bytes_ptr data = z_xml_write_to_string(doc.get(), length);
        return {reinterpret_cast<const char *>(data.get()), length};
    }
};

TEST_F(XmlBuildTest, ATreeOfEverything)
{
    EXPECT_TRUE(z_xml_set_attribute(root_element, "utf8", "\"<&>\t"));
    EXPECT_TRUE(z_xml_set_attribute_with_latin1_content(root_element, "latin1", "\xe9"));
    EXPECT_TRUE(z_xml_set_attribute_to_boolean(root_element, "boolean", true));
    EXPECT_TRUE(z_xml_set_attribute_to_int(root_element, "int", 1));
    EXPECT_TRUE(z_xml_set_attribute_to_int(root_element, "int", -7));
    EXPECT_TRUE(z_xml_set_attribute_to_double(root_element, "double", 0.1));
    EXPECT_NE(z_xml_add_child_element_with_utf8_text_content(root_element, "utf8", "a<&\xc3\xa9"), nullptr);
    EXPECT_NE(z_xml_add_child_element_with_latin1_text_content(root_element, "latin1", "\xe9"), nullptr);
    EXPECT_NE(z_xml_add_child_element(root_element, "empty"), nullptr);
    EXPECT_EQ(to_text(), "<?xml version=\"1.0\"?>\n"
                         "<r utf8=\"&quot;&lt;&amp;&gt;&#9;\" latin1=\"&#xE9;\" boolean=\"true\" int=\"-7\" "
                         "double=\"0.1\">\n"
                         "  <utf8>a&lt;&amp;&#xE9;</utf8>\n"
                         "  <latin1>&#xE9;</latin1>\n"
                         "  <empty/>\n"
                         "</r>\n");
    EXPECT_TRUE(z_xml_write_to_file(doc.get(), path("file").c_str(), "UTF-8"));
    EXPECT_NE(read_file("file").find("<latin1>\xc3\xa9</latin1>"), std::string::npos);
}

TEST_F(XmlBuildTest, WhatCannotBeReadBackIsNotAdded)
{
    for (const char *text : {"\x01", "a\x0b", "\xe9", "\xef\xbf\xbf", "\xed\xa0\x80"}) {
        EXPECT_FALSE(z_xml_set_attribute(root_element, "a", text));
        EXPECT_STREQ(z_error_get(), "Error when setting an XML attribute.");
        EXPECT_EQ(z_xml_add_child_element_with_utf8_text_content(root_element, "a", text), nullptr);
        EXPECT_STREQ(z_error_get(), "Error when creating an XML text child element.");
    }
    EXPECT_FALSE(z_xml_set_attribute_with_latin1_content(root_element, "a", nullptr));
    EXPECT_STREQ(z_error_get(), "Missing value for XML attribute.");
    EXPECT_EQ(to_text(), "<?xml version=\"1.0\"?>\n<r/>\n");
}

TEST_F(XmlBuildTest, AFailedSaveKeepsTheOldFile)
{
    const std::string file = write_file("settings.xml", "old");
    EXPECT_FALSE(z_xml_write_to_file(doc.get(), file.c_str(), "no-such-encoding"));
    EXPECT_STREQ(z_error_get(), "Could not create XML saving context for file.");

    const z_fs_calls saved = z_fs;
    z_fs.write = [](FILE *, const void *, size_t) -> size_t { return 0; };
    EXPECT_FALSE(z_xml_write_to_file(doc.get(), file.c_str(), "UTF-8"));
    EXPECT_STREQ(z_error_get(), "Could not write XML data.\n\nFile write error.");
    z_fs = saved;

    EXPECT_EQ(read_file("settings.xml"), "old");
    EXPECT_EQ(list().size(), 1U);
    EXPECT_TRUE(z_xml_write_to_file(doc.get(), file.c_str(), "UTF-8"));
    EXPECT_EQ(read_file("settings.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r/>\n");
}

TEST(XmlWriteTest, Escaping)
{
    std::string all;
    for (int i = 1; i < 256; ++i)
        all += static_cast<char>(i);
    std::string expected = all;
    for (const auto &[byte, escape] :
         {std::pair('>', "&gt;"), std::pair('<', "&lt;"), std::pair('\'', "&apos;"), std::pair('&', "&amp;"),
          std::pair('"', "&quot;"), std::pair('\r', "&#xD;"), std::pair('\n', "&#xA;"),
          std::pair('\t', "&#x9;")})
        expected.replace(static_cast<size_t>(byte) - 1, 1, escape);
    EXPECT_EQ(z_xml_latin1_to_xml(all.c_str()).get(), expected);
    EXPECT_EQ(z_xml_latin1_to_xml(nullptr), nullptr);
}

} // namespace
