#pragma once

// The kinds of file that the programs of the family deal with: their names, media types and file-name
// extensions. A kind is its number; 3 and 5 are unused. All texts are static.

#include "common/base/xml_handles.h"

enum z_file_type : int {
    Z_FILE_TYPE_CODESET = 0,
    Z_FILE_TYPE_CSV = 1,
    Z_FILE_TYPE_OBJECT = 2,
    Z_FILE_TYPE_JPEG = 4,
    Z_FILE_TYPE_LAYOUT = 6,
    Z_FILE_TYPE_LOCK = 7,
    Z_FILE_TYPE_MS_WORD = 8,
    Z_FILE_TYPE_OPENDOCUMENT_TEXT = 9,
    Z_FILE_TYPE_PDF = 10,
    Z_FILE_TYPE_PNG = 11,
    Z_FILE_TYPE_SVG = 12,
    Z_FILE_TYPE_TEMPLATE = 13,
    Z_FILE_TYPE_TIFF = 14,
    Z_FILE_TYPE_TRUETYPE = 15,
    Z_FILE_TYPE_XML = 16,
};

// A number that is no kind has the name "Unknown", the extension "unknown" and no media type.
[[nodiscard]] const char *z_file_type_get_name(int id);
[[nodiscard]] const char *z_file_type_get_media_type(int id); // Null where there is none.

// "template", ".template" and "*.template". The alternative ones are null where a kind has one extension
// only.
[[nodiscard]] const char *z_file_type_get_default_file_name_extension(int id);
[[nodiscard]] const char *z_file_type_get_default_file_name_extension_with_period(int id);
[[nodiscard]] const char *z_file_type_get_default_file_name_extension_wildcard_pattern(int id);
[[nodiscard]] const char *z_file_type_get_alternative_file_name_extension(int id);
[[nodiscard]] const char *z_file_type_get_alternative_file_name_extension_with_period(int id);
[[nodiscard]] const char *z_file_type_get_alternative_file_name_extension_wildcard_pattern(int id);

// The kind with exactly this media type; false, with an error, if there is none.
[[nodiscard]] bool z_file_type_parse_media_type(z_file_type &id, const char *text);
[[nodiscard]] bool z_file_type_parse_media_type_from_required_attribute(z_file_type &id, const xmlNode *node,
                                                                        const char *name);
