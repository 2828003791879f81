#include "common/base/xml_read.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "common/base/error.h"
#include "common/base/xml.h"
#include "common/base/xml_attribute.h"

namespace {

// What a getter has given: the value, "null", or the failure.
std::string show(bool success, const char *value)
{
    return !success ? z_error_get() : value != nullptr ? value : "null";
}

std::string show_number(bool success, int value)
{
    return success ? std::to_string(value) : z_error_get();
}

struct XmlReadTest : testing::Test {
    z_xml_doc_ptr doc;

    const xmlNode *parse(const char *document)
    {
        doc = z_xml_parse_memory(document, strlen(document));
        return z_xml_get_root_element(doc.get());
    }
};

const std::string not_latin1 = "Character incompatible with ISO-8859-1 found where not allowed.";
const std::string missing_attribute = "Missing XML attribute: a", empty_attribute = "Empty XML attribute: a";
const std::string missing_text = "Missing text content in XML.\n\nText content is empty.";

TEST_F(XmlReadTest, AttributesAsTexts)
{
    const std::string not_ascii = "Invalid XML attribute content.\n\nNon-ascii byte found where not allowed.";
    const std::string invalid = "Invalid XML attribute content.\n\n" + not_latin1;
    const struct {
        const char *document;
        std::string utf8, ascii, nonempty_required_latin1;
    } cases[] = {
        {"<r/>", "null", "null", missing_attribute},         {"<r a=''/>", "", "", empty_attribute},
        {"<r b='y' a=' x '/>", " x ", " x ", " x "},         {"<r a='\u00e9'/>", "\u00e9", not_ascii, "\xe9"},
        {"<r a='&#x20AC;'/>", "\u20ac", not_ascii, invalid},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.document);
        const xmlNode *root = parse(c.document);
        z_utf8_ptr utf8;
        const bool is_read = z_xml_get_attribute_value_as_utf8(utf8, root, "a");
        EXPECT_EQ(show(is_read, utf8.get()), c.utf8);
        z_latin1_ptr ascii;
        const bool is_ascii = z_xml_get_attribute_value_as_ascii(ascii, root, "a");
        EXPECT_EQ(show(is_ascii, ascii.get()), c.ascii);
        const z_latin1_ptr latin1 = z_xml_get_nonempty_required_attribute_value_as_latin1(root, "a");
        EXPECT_EQ(show(latin1 != nullptr, latin1.get()), c.nonempty_required_latin1);
    }
}

TEST_F(XmlReadTest, AttributesAsValues)
{
    const std::string no_boolean = "Invalid boolean value in XML attribute: a";
    const std::string no_int = "Invalid integer value in XML attribute: a\n\n";
    const struct {
        const char *document;
        std::string boolean_or_true, required_int;
    } cases[] = {
        {"<r/>", "1", missing_attribute},
        {"<r a=''/>", empty_attribute, empty_attribute},
        {"<r a='false'/>", "0", no_int + "Invalid characters in integer value."},
        {"<r a=' true'/>", no_boolean, no_int + "Integer value must not begin with whitespace."},
        {"<r a='2'/>", no_boolean, "2"},
        {"<r a='4'/>", no_boolean, no_int + "Integer value out of valid range (too large)."},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.document);
        const xmlNode *root = parse(c.document);
        bool boolean = false;
        bool success = z_xml_get_attribute_value_as_boolean_with_fallback(boolean, root, "a", true);
        EXPECT_EQ(show_number(success, boolean), c.boolean_or_true);
        int integer = 0;
        success = z_xml_get_required_attribute_value_as_int_in_range(integer, root, "a", 1, 3);
        EXPECT_EQ(show_number(success, integer), c.required_int);
    }
}

TEST_F(XmlReadTest, Texts)
{
    const std::string none = "Error reading text content from XML node.";
    const struct {
        const char *document;
        std::string utf8, nonempty_compact_latin1;
    } cases[] = {
        {"<r/>", "", missing_text},
        {"<r><!--x--></r>", none, none},
        {"<r><a>x</a></r>", none, none},
        {"<r> \n </r>", " \n ", missing_text},
        {"<r> a\n\tb <![CDATA[<]]>&amp;<a>x</a> c</r>", " a\n\tb <& c", "a b <& c"},
        {"<r> <a/>x<a/> <a/>y</r>", " x y", "x y"},
        {"<r>\u00e9\u00a0</r>", "\u00e9\u00a0", "\xe9\xa0"},
        {"<r>\u20ac</r>", "\u20ac", "Invalid XML node content.\n\n" + not_latin1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.document);
        const xmlNode *root = parse(c.document);
        const z_utf8_ptr utf8 = z_xml_get_text_content_as_utf8(root);
        EXPECT_EQ(show(utf8 != nullptr, utf8.get()), c.utf8);
        const z_latin1_ptr latin1 = z_xml_get_nonempty_text_content_as_compact_latin1(root);
        EXPECT_EQ(show(latin1 != nullptr, latin1.get()), c.nonempty_compact_latin1);
    }
}

TEST_F(XmlReadTest, TextsOfOneChild)
{
    const struct {
        const char *document;
        std::string text;
    } cases[] = {
        {"<r><b>x</b></r>", "null"},
        {"<r><b/><a> x  y </a></r>", "x y"},
        {"<r><a> </a></r>", missing_text},
        {"<r><a>x</a><?a?></r>", "Duplicate XML nodes found where not allowed."},
    };
    for (const auto &[document, text] : cases) {
        z_utf8_ptr utf8;
        const bool success = z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_utf8(
            utf8, parse(document), "a");
        EXPECT_EQ(show(success, utf8.get()), text) << document;
    }
}

} // namespace
