#include "common/base/xml.h"

#include <string>

#include <libxml/SAX2.h>
#include <libxml/xmlIO.h>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/input_stream.h"
#include "common/base/xml_dtd.h"
#include "common/base/zip.h"

// Far more than what is shown; a hostile document could otherwise fill the memory with complaints.
static constexpr size_t max_diagnostics_size = 64 * 1024;
static constexpr int max_diagnostics_lines = 15;

// A parse under way. While there is one, libxml2's process-wide settings are ours.
struct z_xml_parse {
    z_xml_parser_ptr parser;
    std::string diagnostics;
    bool is_incomplete = false; // The document lacks something, whatever libxml2 makes of it.
    size_t dtd_bytes_left = z_xml_max_dtd_size;
    int old_substitute_entities;
    int old_load_dtd;
    xmlExternalEntityLoader old_entity_loader;

    explicit z_xml_parse(z_xml_tree tree);
    ~z_xml_parse();
    z_xml_parse(const z_xml_parse &) = delete;
    z_xml_parse &operator=(const z_xml_parse &) = delete;
};

// What the handlers work for. They get no data of ours: libxml2 makes further parsers for external entities.
static z_xml_parse *current_parse = nullptr;

static void add_diagnostics(const char *text)
{
    std::string &diagnostics = current_parse->diagnostics;
    if (diagnostics.size() < max_diagnostics_size)
        diagnostics += text;
}

G_GNUC_PRINTF(2, 3) static void handle_diagnostic(void *, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const z_utf8_ptr text(g_strdup_vprintf(format, arguments));
    va_end(arguments);
    add_diagnostics(text.get());
}

// A missing DTD does no harm by itself. A missing external entity, which has a parser of its own, leaves a
// gap.
static xmlParserInput *load_external_entity(const char *url, const char *, xmlParserCtxt *parser)
{
    if (url == nullptr)
        url = "";
    xmlParserInput *input = nullptr;
    switch (z_xml_dtd_open(input, url, parser, current_parse->dtd_bytes_left)) {
    case z_xml_dtd_result::opened:
        break;
    case z_xml_dtd_result::missing:
        if (parser == current_parse->parser.get())
            break;
        current_parse->is_incomplete = true;
        add_diagnostics("Missing external entity: ");
        add_diagnostics(url);
        add_diagnostics("\n");
        break;
    case z_xml_dtd_result::refused:
        current_parse->is_incomplete = true;
        add_diagnostics("Refused to load external entity: ");
        add_diagnostics(url);
        add_diagnostics("\n");
        break;
    }
    return input;
}

// libxml2 leaves an unknown entity out where a DTD that it has not seen might have declared it.
static xmlEntity *get_entity(void *parser, const xmlChar *name)
{
    xmlEntity *entity = xmlSAX2GetEntity(parser, name);
    if (entity == nullptr)
        current_parse->is_incomplete = true;
    return entity;
}

static bool is_blank(const xmlChar *text, int size)
{
    for (const xmlChar *end = text + size; text != end; ++text)
        if (*text != ' ' && *text != '\t' && *text != '\n' && *text != '\r')
            return false;
    return true;
}

// White space between elements would be nearly half of a tree's nodes. An element keeps the first piece only,
// which still tells it from one without text; from other text on it keeps everything.
static void add_characters(void *data, const xmlChar *text, int size)
{
    auto *parser = static_cast<xmlParserCtxt *>(data);
    xmlNode *parent = parser->node;
    if (parent != nullptr && parent->_private == nullptr) {
        if (!is_blank(text, size))
            parent->_private = parent;
        else if (parent->children != nullptr && parent->children->type == XML_TEXT_NODE &&
                 parent->last->type == XML_ELEMENT_NODE)
            return;
    }
    xmlSAX2Characters(parser, text, size);
}

static int read_callback(void *data, char *buffer, int size)
{
    size_t count = 0;
    if (!z_input_stream_read(static_cast<z_input_stream *>(data), buffer, static_cast<size_t>(size), count)) {
        current_parse->is_incomplete = true;
        add_diagnostics(z_error_get());
        add_diagnostics("\n");
        return -1;
    }
    return static_cast<int>(count);
}

z_xml_parse::z_xml_parse(z_xml_tree tree)
{
    current_parse = this;
    xmlSetGenericErrorFunc(nullptr, handle_diagnostic);
    old_substitute_entities = xmlSubstituteEntitiesDefault(1);
    old_load_dtd = std::exchange(xmlLoadExtDtdDefaultValue, 1);
    old_entity_loader = xmlGetExternalEntityLoader();
    xmlSetExternalEntityLoader(load_external_entity);
    parser.reset(xmlNewParserCtxt());
    if (parser == nullptr)
        return;
    parser->sax->getEntity = get_entity;
    if (tree == z_xml_tree::for_reading)
        parser->sax->characters = parser->sax->ignorableWhitespace = add_characters;
}

z_xml_parse::~z_xml_parse()
{
    parser.reset();
    xmlSetExternalEntityLoader(old_entity_loader);
    xmlLoadExtDtdDefaultValue = old_load_dtd;
    xmlSubstituteEntitiesDefault(old_substitute_entities);
    xmlSetGenericErrorFunc(nullptr, nullptr);
    current_parse = nullptr;
}

// Out of memory, libxml2 returns what it had got so far as a well-formed document; but it has stopped its
// handlers.
static bool is_complete(const z_xml_parse &parse)
{
    return !parse.is_incomplete && parse.parser->wellFormed && !parse.parser->disableSAX &&
           parse.parser->errNo != XML_ERR_NO_MEMORY;
}

static void set_error_from_diagnostics(const std::string &diagnostics)
{
    if (diagnostics.empty()) {
        z_error_set("Unknown XML error.");
        return;
    }
    const z_utf8_ptr valid(g_utf8_make_valid(diagnostics.c_str(), -1)); // They quote the document's bytes.
    z_error_set(g_strstrip(valid.get()));
    z_error_limit_line_count(max_diagnostics_lines);
}

static z_xml_doc_ptr parse_stream(z_input_stream *stream, z_xml_tree tree, const char *failure_text)
{
    // The DTD must be asked for here: these options override the process-wide settings.
    int options = XML_PARSE_NOENT | XML_PARSE_DTDLOAD | XML_PARSE_NONET;
    if (tree == z_xml_tree::for_reading)
        options |= XML_PARSE_COMPACT;
    z_xml_parse parse(tree);
    z_xml_doc_ptr doc;
    if (parse.parser != nullptr)
        doc.reset(
            xmlCtxtReadIO(parse.parser.get(), read_callback, nullptr, stream, nullptr, nullptr, options));
    if (doc != nullptr && is_complete(parse))
        return doc;
    set_error_from_diagnostics(parse.diagnostics);
    z_error_append(failure_text);
    return nullptr;
}

z_xml_doc_ptr z_xml_parse_file(const char *path, z_xml_tree tree)
{
    const z_file_ptr file = z_fs_utils_open_file(path, "rb");
    if (file == nullptr)
        return nullptr;
    const z_input_stream_ptr stream = z_input_stream_new_for_file(file.get());
    return parse_stream(stream.get(), tree, "Could not parse XML data.");
}

bool z_xml_parse_file_if_exists(z_xml_doc_ptr &doc, const char *path)
{
    doc.reset();
    z_fs_info info;
    if (!z_fs_utils_get_info(path, info))
        return false;
    if (!info.exists)
        return true;
    doc = z_xml_parse_file(path);
    return doc != nullptr;
}

z_xml_doc_ptr z_xml_parse_memory(const void *data, size_t size, z_xml_tree tree)
{
    const z_input_stream_ptr stream = z_input_stream_new_for_memory(data, size);
    return parse_stream(stream.get(), tree, "Could not parse XML data.");
}

z_xml_doc_ptr z_xml_parse_zip_file(zip *archive, const char *member_name)
{
    const z_zip_file_ptr member = z_zip_open_file(archive, member_name);
    if (member == nullptr)
        return nullptr;
    const z_input_stream_ptr stream = z_input_stream_new_for_zip_file(member.get());
    return parse_stream(stream.get(), z_xml_tree::whole, "Could not parse compressed XML data.");
}

z_xml_doc_ptr z_xml_new_doc()
{
    z_xml_doc_ptr doc(xmlNewDoc(z_xml_from_utf8("1.0")));
    if (doc == nullptr)
        z_error_set("Error when creating new empty XML tree.");
    return doc;
}

void z_xml_free_doc(xmlDoc *doc)
{
    const z_xml_doc_ptr owned(doc);
}
