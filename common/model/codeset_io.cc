#include "common/model/codeset_io.h"

#include <cerrno>
#include <string_view>
#include <unordered_set>

#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/base/fs_path.h"
#include "common/base/output_stream.h"
#include "common/base/xml.h"
#include "common/base/xml_read.h"
#include "common/base/xml_write.h"
#include "common/model/model_file.h"
#include "common/model/xml_langstr.h"

static bool read_remarks(z_codeset *codeset, const xmlNode *root)
{
    std::unordered_set<std::string_view> codes; // those of the remarks in the list
    for (const xmlNode *node = root->children; node != nullptr; node = node->next) {
        if (node->type != XML_ELEMENT_NODE || !z_xml_node_has_name(node, "remark"))
            continue;
        z_remark_ptr remark = z_xml_parse_remark(node);
        if (remark == nullptr)
            return false;
        if (!codes.insert(remark->code.get()).second) {
            z_error_set("Duplicate remark codes.");
            return false;
        }
        z_remark_list_add_remark_sorted(&codeset->remarks, std::move(remark));
    }
    if (codeset->remarks.is_empty())
        z_error_set("Missing remarks.");
    return !codeset->remarks.is_empty();
}

static bool read_codeset(z_codeset *codeset, const xmlNode *root)
{
    codeset->name = z_xml_parse_required_langstr(root, "name", z_xml_white_space::compact);
    return codeset->name != nullptr &&
           z_xml_parse_langstr(codeset->author, root, "author", z_xml_white_space::compact) &&
           z_xml_get_nonempty_text_content_from_distinct_child_node_as_compact_latin1(codeset->version, root,
                                                                                      "version") &&
           read_remarks(codeset, root);
}

z_codeset_ptr z_codeset_io_read_from_document(z_xml_doc_ptr doc)
{
    if (doc == nullptr) {
        z_error_append("Error loading codeset file.");
        return nullptr;
    }
    const xmlNode *root = z_xml_get_root_element(doc.get());
    if (root == nullptr) {
        z_error_append("Invalid codeset file.");
        return nullptr;
    }
    if (!z_xml_node_has_name(root, "codeset")) {
        z_error_set("Not a codeset file.");
        return nullptr;
    }
    z_codeset_ptr codeset = z_codeset_new();
    if (!read_codeset(codeset.get(), root)) {
        z_error_append("Error parsing codeset file.");
        return nullptr;
    }
    return codeset;
}

z_codeset_ptr z_codeset_io_read_from_file(const char *path)
{
    return z_codeset_io_read_from_document(z_xml_parse_file(path, z_xml_tree::for_reading));
}

z_codeset_ptr z_codeset_io_read_from_file_in_folder(const char *file_name_latin1, const char *folder)
{
    const std::string_view name = file_name_latin1;
    if (name.find_first_of("/\\") != std::string_view::npos || name == "." || name == ".." || name.empty()) {
        errno = ENOENT;
        z_error_set_from_errno();
        z_error_append("Cannot open file.");
        return z_codeset_io_read_from_document(nullptr);
    }
    const z_utf8_ptr name_utf8 = z_convert_latin1_to_utf8(file_name_latin1);
    const z_utf8_ptr path = z_fs_utils_create_path_in_folder(folder, name_utf8.get());
    return z_codeset_io_read_from_file(path.get());
}

static bool write_remark(z_output_stream *stream, const z_remark *remark)
{
    return z_xml_write_markup(stream, "\n\t<remark>\n\t\t<code>") &&
           z_xml_write_markup(stream, remark->code != nullptr ? remark->code.get() : "") &&
           z_xml_write_markup(stream, "</code>\n") &&
           z_xml_write_langstr(stream, remark->description.get(), "description", 2) &&
           z_xml_write_markup(stream, "\t</remark>\n");
}

static bool write_codeset(z_output_stream *stream, const z_codeset *codeset)
{
    if (!z_xml_write_markup(stream, "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\n\n<codeset>\n\n") ||
        !z_xml_write_langstr(stream, codeset->name.get(), "name", 1) ||
        !z_xml_write_langstr(stream, codeset->author.get(), "author", 1) ||
        !z_model_file_write_version(stream, codeset->version.get()))
        return false;
    for (const z_remark *remark : codeset->remarks)
        if (!write_remark(stream, remark))
            return false;
    return z_xml_write_markup(stream, "\n</codeset>\n");
}

static z_model_file_printer get_printer(const z_codeset *codeset)
{
    return [codeset](z_output_stream *stream) { return write_codeset(stream, codeset); };
}

bool z_codeset_io_write_to_file(const z_codeset *codeset, const char *path)
{
    return z_model_file_print_to_path(get_printer(codeset), path);
}

bool z_codeset_io_write_to_stream(const z_codeset *codeset, z_output_stream *stream)
{
    return write_codeset(stream, codeset);
}

bool z_codeset_io_check_readable(const z_codeset *codeset)
{
    size_t size;
    const z_bytes_ptr data = z_model_file_print_to_memory(get_printer(codeset), size);
    return data != nullptr && z_codeset_io_read_from_document(
                                  z_xml_parse_memory(data.get(), size, z_xml_tree::for_reading)) != nullptr;
}
