#include "common/model/file_type.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "common/base/error.h"
#include "common/base/xml.h"
#include "common/base/xml_read.h"

namespace {

TEST(FileTypeTest, GivesEachSpellingOfAnExtension)
{
    const auto show = [](int id) {
        const auto or_none = [](const char *text) {
            return std::string(text != nullptr ? text : "none") + " ";
        };
        return or_none(z_file_type_get_name(id)) + or_none(z_file_type_get_default_file_name_extension(id)) +
               or_none(z_file_type_get_default_file_name_extension_with_period(id)) +
               or_none(z_file_type_get_default_file_name_extension_wildcard_pattern(id)) +
               or_none(z_file_type_get_alternative_file_name_extension(id)) +
               or_none(z_file_type_get_alternative_file_name_extension_with_period(id)) +
               or_none(z_file_type_get_alternative_file_name_extension_wildcard_pattern(id));
    };
    EXPECT_EQ(show(Z_FILE_TYPE_TEMPLATE), "Template template .template *.template none none none ");
    EXPECT_EQ(show(Z_FILE_TYPE_JPEG), "JPEG jpg .jpg *.jpg jpeg .jpeg *.jpeg ");
    EXPECT_EQ(show(Z_FILE_TYPE_XML), "XML xml .xml *.xml none none none ");
    for (const int id : {-1, 3, 5, 17})
        EXPECT_EQ(show(id), "Unknown unknown .unknown *.unknown none none none ") << id;
}

TEST(FileTypeTest, ReadsMediaTypesOfAttributes)
{
    const std::string_view text = "<image type='image/tiff' other='x/y'/>";
    const z_xml_doc_ptr doc = z_xml_parse_memory(text.data(), text.size());
    const xmlNode *node = z_xml_get_root_element(doc.get());
    z_file_type id = Z_FILE_TYPE_LOCK;
    EXPECT_TRUE(z_file_type_parse_media_type_from_required_attribute(id, node, "type"));
    EXPECT_EQ(id, Z_FILE_TYPE_TIFF);
    EXPECT_FALSE(z_file_type_parse_media_type_from_required_attribute(id, node, "other"));
    EXPECT_STREQ(z_error_get(), "Unknown media type.");
    EXPECT_FALSE(z_file_type_parse_media_type_from_required_attribute(id, node, "none"));
    EXPECT_STREQ(z_error_get(), "Missing XML attribute: none");
    EXPECT_FALSE(z_file_type_parse_media_type(id, "image/PNG"));
    z_error_clear();
}

} // namespace
