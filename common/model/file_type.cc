#include "common/model/file_type.h"

#include <cstring>

#include "common/base/error.h"
#include "common/base/xml_attribute.h"

struct file_type_row {
    const char *name;
    const char *media_type;
    const char *pattern;
    const char *alternative_pattern;
};

static constexpr file_type_row unknown = {"Unknown", nullptr, "*.unknown", nullptr};

// A kind's row is its number.
static constexpr file_type_row rows[] = {
    {"Remark codeset", nullptr, "*.codeset", nullptr},
    {"CSV", "text/csv", "*.csv", nullptr},
    {"Zanvel object", nullptr, "*.zanvel", nullptr},
    unknown,
    {"JPEG", "image/jpeg", "*.jpg", "*.jpeg"},
    unknown,
    {"Layout", nullptr, "*.layout", nullptr},
    {"Lock", nullptr, "*.lock", nullptr},
    {"MS Word", "application/msword", "*.doc", nullptr},
    {"OpenDocument text", "application/vnd.oasis.opendocument.text", "*.odt", nullptr},
    {"PDF", "application/pdf", "*.pdf", nullptr},
    {"PNG", "image/png", "*.png", nullptr},
    {"SVG", "image/svg+xml", "*.svg", nullptr},
    {"Template", nullptr, "*.template", nullptr},
    {"TIFF", "image/tiff", "*.tif", "*.tiff"},
    {"TrueType", "application/x-font-ttf", "*.ttf", nullptr},
    {"XML", "text/xml", "*.xml", nullptr},
};
static constexpr int row_count = sizeof rows / sizeof rows[0];

static const file_type_row &get_row(int id)
{
    return id >= 0 && id < row_count ? rows[id] : unknown;
}

// The pattern without its first characters: 1 for the star, 2 for the period too.
static const char *skip(const char *pattern, int count)
{
    return pattern != nullptr ? pattern + count : nullptr;
}

const char *z_file_type_get_name(int id)
{
    return get_row(id).name;
}

const char *z_file_type_get_media_type(int id)
{
    return get_row(id).media_type;
}

const char *z_file_type_get_default_file_name_extension(int id)
{
    return skip(get_row(id).pattern, 2);
}

const char *z_file_type_get_default_file_name_extension_with_period(int id)
{
    return skip(get_row(id).pattern, 1);
}

const char *z_file_type_get_default_file_name_extension_wildcard_pattern(int id)
{
    return get_row(id).pattern;
}

const char *z_file_type_get_alternative_file_name_extension(int id)
{
    return skip(get_row(id).alternative_pattern, 2);
}

const char *z_file_type_get_alternative_file_name_extension_with_period(int id)
{
    return skip(get_row(id).alternative_pattern, 1);
}

const char *z_file_type_get_alternative_file_name_extension_wildcard_pattern(int id)
{
    return get_row(id).alternative_pattern;
}

bool z_file_type_parse_media_type(z_file_type &id, const char *text)
{
    for (int index = 0; index < row_count; ++index) {
        if (rows[index].media_type != nullptr && std::strcmp(rows[index].media_type, text) == 0) {
            id = static_cast<z_file_type>(index);
            return true;
        }
    }
    z_error_set("Unknown media type.");
    return false;
}

bool z_file_type_parse_media_type_from_required_attribute(z_file_type &id, const xmlNode *node,
                                                          const char *name)
{
    const z_utf8_ptr text = z_xml_get_required_attribute_value_as_utf8(node, name);
    return text != nullptr && z_file_type_parse_media_type(id, text.get());
}
