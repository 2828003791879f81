#include "common/base/util.h"
#include "common/base/xml_read.h"

#include <functional>

#include "common/base/xml.h"
#include "common/base/xml_attribute.h"
#include "tests/support/sandbox.h"

namespace {

z_xml_doc_ptr parse(const std::string &document)
{
    z_xml_doc_ptr doc = z_xml_parse_memory(document.data(), document.size());
    EXPECT_NE(doc, nullptr) << z_error_get();
    return doc;
}

// What a getter has given, as a text: the value, "null", or the failure.
template <typename Value>
std::string show(bool success, const Value &value)
{
    if constexpr (std::is_floating_point_v<Value>) {
        return success ? z_util_format_double(value).get() : z_error_get();
    } else if constexpr (std::is_arithmetic_v<Value>) {
        return success ? std::to_string(value) : z_error_get();
    } else {
        EXPECT_TRUE(success || value == nullptr);
        return !success ? z_error_get() : value != nullptr ? value.get() : "null";
    }
}

using getter = std::function<std::string(const xmlNode *node)>;

// Getters of "a" that give the value, or set it and tell whether they could; some in a range.
template <typename Handle>
getter giving(Handle (*get)(const xmlNode *, const char *))
{
    return [get](const xmlNode *node) {
        const Handle value = get(node, "a");
        return show(value != nullptr, value);
    };
}

template <typename Handle>
getter giving(Handle (*get)(const xmlNode *))
{
    return [get](const xmlNode *node) {
        const Handle text = get(node);
        return show(text != nullptr, text);
    };
}

template <typename Value, typename... Limits>
getter setting(bool (*get)(Value &, const xmlNode *, const char *, Limits...),
               std::type_identity_t<Limits>... limits)
{
    return [=](const xmlNode *node) {
        Value value{};
        const bool success = get(value, node, "a", limits...);
        return show(success, value);
    };
}

struct XmlReadTest : SandboxTest {
    // One row per document, one column per getter.
    static void expect(const std::string &document, const std::vector<getter> &getters,
                       const std::vector<std::string> &results)
    {
        SCOPED_TRACE(document);
        const z_xml_doc_ptr doc = parse(document);
        ASSERT_EQ(getters.size(), results.size());
        for (size_t i = 0; i < getters.size(); ++i) {
            z_error_clear();
            EXPECT_EQ(getters[i](z_xml_get_root_element(doc.get())), results[i]) << "getter " << i;
        }
    }
};

const std::string not_latin1 = "Character incompatible with ISO-8859-1 found where not allowed.";

TEST_F(XmlReadTest, AttributesAsTexts)
{
    const std::vector<getter> getters = {
        setting(z_xml_get_attribute_value_as_utf8),
        setting(z_xml_get_nonempty_attribute_value_as_utf8),
        setting(z_xml_get_attribute_value_as_ascii),
        setting(z_xml_get_attribute_value_as_latin1),
        giving(z_xml_get_required_attribute_value_as_utf8),
        giving(z_xml_get_required_attribute_value_as_ascii),
        giving(z_xml_get_required_attribute_value_as_latin1),
        giving(z_xml_get_nonempty_required_attribute_value_as_utf8),
        giving(z_xml_get_nonempty_required_attribute_value_as_latin1),
    };
    const std::string missing = "Missing XML attribute: a";
    const std::string empty = "Empty XML attribute: a";
    const std::string not_ascii = "Invalid XML attribute content.\n\nNon-ascii byte found where not allowed.";
    const std::string invalid = "Invalid XML attribute content.\n\n" + not_latin1;
    const std::string e = "\xc3\xa9", euro = "\xe2\x82\xac";
    expect("<r/>", getters, {"null", "null", "null", "null", missing, missing, missing, missing, missing});
    expect("<r a=''/>", getters, {"", empty, "", "", "", "", "", empty, empty});
    expect("<r b='y' a=' x '/>", getters, {" x ", " x ", " x ", " x ", " x ", " x ", " x ", " x ", " x "});
    expect("<r a='\xc3\xa9'/>", getters, {e, e, not_ascii, "\xe9", e, not_ascii, "\xe9", e, "\xe9"});
    expect("<r a='&#x20AC;'/>", getters,
           {euro, euro, not_ascii, invalid, euro, not_ascii, invalid, euro, invalid});
}

TEST_F(XmlReadTest, AttributesAsValues)
{
    const std::vector<getter> getters = {
        setting(z_xml_get_attribute_value_as_boolean_with_fallback, true),
        setting(z_xml_get_required_attribute_value_as_boolean),
        setting(z_xml_get_attribute_value_as_int_in_range_with_fallback, 1, 3, 9),
        setting(z_xml_get_required_attribute_value_as_int_in_range, 1, 3),
        setting(z_xml_get_required_attribute_value_as_int),
        setting(z_xml_get_attribute_value_as_double_in_range_with_fallback, 1, 3, 9),
        setting(z_xml_get_required_attribute_value_as_double_in_range, 1, 3),
    };
    const std::string missing = "Missing XML attribute: a", empty = "Empty XML attribute: a";
    const std::string no_boolean = "Invalid boolean value in XML attribute: a";
    const std::string no_int = "Invalid integer value in XML attribute: a\n\n";
    const std::string no_double = "Invalid floating point number in XML attribute: a\n\n";
    const std::string letters = no_int + "Invalid characters in integer value.";
    const std::string no_number = no_double + "Invalid floating-point value.";
    const std::string too_large = "nteger value out of valid range (too large).";
    expect("<r/>", getters, {"1", missing, "9", missing, missing, "9", missing});
    expect("<r a=''/>", getters, {empty, empty, empty, empty, empty, empty, empty});
    expect("<r a='false'/>", getters, {"0", "0", letters, letters, letters, no_number, no_number});
    for (const char *value : {"True", "yes", " true", "true "}) {
        SCOPED_TRACE(value);
        const z_xml_doc_ptr doc = parse(std::string("<r a='") + value + "'/>");
        EXPECT_EQ(getters[1](z_xml_get_root_element(doc.get())), no_boolean);
    }
    expect("<r a='2'/>", getters, {no_boolean, no_boolean, "2", "2", "2", "2", "2"});
    const std::string int_range = no_int + "I" + too_large;
    const std::string double_range = no_double + "Floating-point value out of valid range (too large).";
    expect("<r a='4'/>", getters,
           {no_boolean, no_boolean, int_range, int_range, "4", double_range, double_range});
    expect("<r a='2147483648'/>", getters,
           {no_boolean, no_boolean, int_range, int_range, int_range, double_range, double_range});
}

TEST_F(XmlReadTest, Texts)
{
    const std::vector<getter> getters = {
        giving(z_xml_get_text_content_as_utf8),
        giving(z_xml_get_text_content_as_latin1),
        giving(z_xml_get_text_content_as_compact_latin1),
        giving(z_xml_get_nonempty_text_content_as_compact_latin1),
    };
    const std::string none = "Error reading text content from XML node.";
    const std::string missing = "Missing text content in XML.\n\nText content is empty.";
    const std::string invalid = "Invalid XML node content.\n\n" + not_latin1;
    for (const char *empty :
         {"<r/>", "<r></r>", "<r><![CDATA[]]></r>", "<!DOCTYPE r [<!ENTITY e ''>]><r>&e;</r>"})
        expect(empty, getters, {"", "", "", missing});
    for (const char *textless : {"<r><!--x--></r>", "<r><a>x</a></r>", "<r><?x y?></r>"})
        expect(textless, getters, {none, none, none, none});
    expect("<r> \n </r>", getters, {" \n ", " \n ", "", missing});
    expect("<r> <a>x</a> <!--x--> </r>", getters, {"   ", "   ", "", missing});
    expect("<r> a\n\tb <![CDATA[<]]>&amp;<a>x</a> c</r>", getters,
           {" a\n\tb <& c", " a\n\tb <& c", "a b <& c", "a b <& c"});
    expect("<r> <a/>x<a/> <a/>y</r>", getters, {" x y", " x y", "x y", "x y"});
    expect("<r>\xc3\xa9\xc2\xa0</r>", getters, {"\xc3\xa9\xc2\xa0", "\xe9\xa0", "\xe9\xa0", "\xe9\xa0"});
    expect("<r>\xe2\x82\xac</r>", getters, {"\xe2\x82\xac", invalid, invalid, invalid});
}

TEST_F(XmlReadTest, TextsOfOneChild)
{
    const std::vector<getter> getters = {
        setting(z_xml_get_text_content_from_distinct_child_node_as_latin1),
        setting(z_xml_get_text_content_from_distinct_child_node_as_compact_latin1),
        setting(z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_latin1),
        setting(z_xml_get_text_content_from_distinct_child_node_as_utf8),
        setting(z_xml_get_text_content_from_distinct_child_node_as_compact_utf8),
        setting(z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_utf8),
        giving(z_xml_get_nonempty_text_content_from_required_distinct_child_node_as_compact_utf8),
    };
    const std::string twice = "Duplicate XML nodes found where not allowed.";
    const std::string missing = "Missing text content in XML.\n\nText content is empty.";
    expect("<r><b>x</b></r>", getters,
           {"null", "null", "null", "null", "null", "null", "Missing XML node: a"});
    expect("<r><b/><a> x  y </a></r>", getters, {" x  y ", "x y", "x y", " x  y ", "x y", "x y", "x y"});
    expect("<r><a> </a></r>", getters, {" ", "", missing, " ", "", missing, missing});
    expect("<r><a>x</a><?a?></r>", getters, {twice, twice, twice, twice, twice, twice, twice});
}

// A tree that libxml2 made without substituting entities.
TEST_F(XmlReadTest, EntityNodesAreExpandedUpToALimit)
{
    const auto read = [](const std::string &doctype) {
        const std::string text = "<!DOCTYPE r [" + doctype + "]><r>&e;&amp;</r>";
        const z_xml_doc_ptr doc(
            xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, XML_PARSE_HUGE));
        return giving(z_xml_get_text_content_as_utf8)(xmlDocGetRootElement(doc.get()));
    };
    EXPECT_EQ(read("<!ENTITY e 'x&f;'><!ENTITY f 'y'>"), "xy&");
    std::string doctype = "<!ENTITY e0 '" + std::string(2000, 'x') + "'>";
    for (int i = 1; i < 6; ++i) {
        doctype += "<!ENTITY e" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j)
            doctype += "&e" + std::to_string(i - 1) + ";";
        doctype += "'>";
    }
    EXPECT_EQ(read(doctype + "<!ENTITY e '&e5;'>"), "Error reading text content from XML node.");
}

} // namespace
