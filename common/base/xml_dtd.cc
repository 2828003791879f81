#include "common/base/xml_dtd.h"

#include <libxml/parserInternals.h>
#include <libxml/xmlIO.h>

#include "common/base/fs_utils.h"
#include "common/base/input_stream.h"
#include "common/base/xml_handles.h"

using buffer_ptr = z_ptr<xmlParserInputBuffer, xmlFreeParserInputBuffer>;

// The path that a system identifier stands for; null for everything that is not on this machine. A single
// letter before a colon is a drive.
static z_utf8_ptr get_local_path(const char *url)
{
    const z_utf8_ptr scheme(g_uri_parse_scheme(url));
    if (scheme == nullptr || scheme.get()[1] == '\0')
        return z_utf8_ptr(g_strdup(url));
    z_ptr<char, g_free> host;
    z_utf8_ptr path(g_filename_from_uri(url, z_out(host), nullptr));
    return host == nullptr ? std::move(path) : nullptr;
}

// Whether the whole file went into `data`.
static bool read_file(const char *path, char *data, size_t max_size, size_t &size)
{
    const z_file_ptr file = z_fs_utils_open_file(path, "rb");
    if (file == nullptr)
        return false;
    const z_input_stream_ptr stream = z_input_stream_new_for_file(file.get());
    return z_input_stream_read(stream.get(), data, max_size, size) && size < max_size;
}

z_xml_dtd_result z_xml_dtd_open(xmlParserInput *&input, const char *url, xmlParserCtxt *parser,
                                size_t &bytes_left)
{
    input = nullptr;
    const z_utf8_ptr path = get_local_path(url);
    if (path == nullptr || !g_str_has_suffix(path.get(), ".dtd"))
        return z_xml_dtd_result::refused;
    z_fs_info info;
    if (!z_fs_utils_get_info(path.get(), info))
        return z_xml_dtd_result::refused;
    if (!info.exists)
        return z_xml_dtd_result::missing;

    const z_ptr<char, g_free> data(static_cast<char *>(g_try_malloc(bytes_left + 1)));
    size_t size = 0;
    if (data == nullptr || !read_file(path.get(), data.get(), bytes_left + 1, size))
        return z_xml_dtd_result::refused;
    bytes_left -= size;

    buffer_ptr buffer(
        xmlParserInputBufferCreateMem(data.get(), static_cast<int>(size), XML_CHAR_ENCODING_NONE));
    if (buffer != nullptr)
        input = xmlNewIOInputStream(parser, buffer.get(), XML_CHAR_ENCODING_NONE);
    if (input == nullptr)
        return z_xml_dtd_result::refused;
    static_cast<void>(buffer.release());
    // What the DTD includes by a relative name lies beside it.
    input->filename = z_xml_to_utf8(xmlStrdup(z_xml_from_utf8(url)));
    return z_xml_dtd_result::opened;
}
