#include "common/base/xml_build.h"

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
    for (const char *text : {"\x01", "\xe9", "\xef\xbf\xbf"}) {
        EXPECT_FALSE(z_xml_set_attribute(root_element, "a", text));
        EXPECT_STREQ(z_error_get(), "Error when setting an XML attribute.");
        EXPECT_EQ(z_xml_add_child_element_with_utf8_text_content(root_element, "a", text), nullptr);
        EXPECT_STREQ(z_error_get(), "Error when creating an XML text child element.");
    }
    EXPECT_EQ(to_text(), "<?xml version=\"1.0\"?>\n<r/>\n");
}

TEST(XmlWriteTest, EscapingOfWhatIsWrittenByHand)
{
    EXPECT_STREQ(z_xml_latin1_to_xml("a>b<c'd&e\"f\rg\nh\ti\x01\xe9").get(),
                 "a&gt;b&lt;c&apos;d&amp;e&quot;f&#xD;g&#xA;h&#x9;i\x01\xe9");
}

} // namespace
