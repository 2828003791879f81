#include <cstring>

#include "common/base/error.h"
#include "common/base/fs_utils.h"
#include "common/base/util.h"
#include "common/gui/gfx_text.h"
#include "common/gui/resources.h"
#include "common/model/template_io.h"
#include "tools/zanvel_template/commands.h"
#include "tools/zanvel_template/form_picture.h"

static constexpr int32_t min_width = 100;
static constexpr int32_t max_width = 10000;

struct render_request {
    const char *input_path = nullptr;
    const char *output_path = nullptr;
    const char *language = nullptr;
    int32_t report_type = 0; // Counted from 1; 0 when none was named.
    int32_t width = 900;
    bool is_basic_data = false;
    bool is_editing = false;
};

// Takes the value that follows an option.
static const char *take_value(z_arguments &arguments)
{
    if (arguments.size() < 2)
        return nullptr;
    arguments = arguments.subspan(1);
    return arguments.front();
}

static bool take_option(render_request &request, z_arguments &arguments)
{
    const char *option = arguments.front();
    const auto is = [option](const char *name) { return std::strcmp(option, name) == 0; };
    if (is("--basic-data"))
        return request.is_basic_data = true;
    if (is("--editing"))
        return request.is_editing = true;
    const char *value = take_value(arguments);
    if (value == nullptr)
        return false;
    if (is("-o"))
        request.output_path = value;
    else if (is("--language"))
        request.language = value;
    else if (is("--report-type"))
        return z_util_parse_int_in_range(&request.report_type, value, 1, INT32_MAX);
    else if (is("--width"))
        return z_util_parse_int_in_range(&request.width, value, min_width, max_width);
    else
        return false;
    return true;
}

// Options stand anywhere before a "--".
static bool parse_arguments(render_request &request, z_arguments arguments)
{
    bool has_options = true;
    for (; !arguments.empty(); arguments = arguments.subspan(1)) {
        const char *argument = arguments.front();
        if (has_options && std::strcmp(argument, "--") == 0) {
            has_options = false;
        } else if (has_options && argument[0] == '-') {
            if (!take_option(request, arguments))
                return false;
        } else if (request.input_path == nullptr) {
            request.input_path = argument;
        } else {
            return false;
        }
    }
    return request.input_path != nullptr && request.output_path != nullptr &&
           (request.language == nullptr ||
            (request.language[0] != '\0' && g_str_is_ascii(request.language))) &&
           !(request.is_basic_data && request.report_type != 0);
}

// The first report type unless another form was asked for. False, with the reason, if there is none such.
static bool choose_form(z_gfx_form &form, z_template *tmpl, const render_request &request)
{
    form.tmpl = tmpl;
    if (request.is_basic_data)
        return true;
    const int32_t wanted = request.report_type != 0 ? request.report_type : 1;
    int32_t count = 0;
    for (z_template_report_type *report_type : tmpl->report_types) {
        if (++count == wanted) {
            form.report_type = report_type;
            return true;
        }
    }
    z_error_set_utf8_printf("There is no report type %d; the last one is %d.", wanted, count);
    return false;
}

static z_settings_ptr load_settings(const char *language)
{
    z_settings_ptr settings = z_load_language_settings();
    if (language != nullptr)
        settings->preferred_languages.add_first(z_settings_language_new(language));
    return settings;
}

static bool draw(const render_request &request, z_picture_format format, z_gfx_form *form)
{
    const z_settings_ptr settings = load_settings(request.language);
    z_gfx_text_sheet_context ctx;
    ctx.settings = settings.get();
    ctx.width = request.width;
    ctx.editing = request.is_editing;
    const z_output_stream_ptr stream = z_output_stream_new_for_memory();
    if (!z_picture_draw_form(stream.get(), format, ctx, form))
        return false;
    size_t size = 0;
    const z_bytes_ptr data = z_output_stream_get_memory_data(stream.get(), size);
    return z_fs_utils_put_file(request.output_path, data.get(), size, z_fs_existing::replace);
}

// The icons and fonts, for as long as something is drawn.
class drawing_resources {
public:
    drawing_resources() = default;
    drawing_resources(const drawing_resources &) = delete;
    drawing_resources &operator=(const drawing_resources &) = delete;
    ~drawing_resources()
    {
        z_gfx_text_sheet_clean_up();
        z_resources_clean_up();
    }
    [[nodiscard]] static bool open()
    {
        return z_resources_open() && z_resources_load_shared_images();
    }
};

int z_command_render(z_arguments arguments)
{
    render_request request;
    if (!parse_arguments(request, arguments))
        return Z_EXIT_WRONG_USAGE;
    z_picture_format format;
    if (!z_picture_format_for_path(format, request.output_path)) {
        z_print_error(request.output_path);
        return Z_EXIT_WRONG_USAGE;
    }
    const z_template_ptr tmpl = z_template_io_read_from_file(request.input_path);
    z_gfx_form form;
    if (tmpl == nullptr || !choose_form(form, tmpl.get(), request)) {
        z_print_error(request.input_path);
        return Z_EXIT_REFUSED;
    }
    const drawing_resources resources;
    if (!drawing_resources::open() || !draw(request, format, &form)) {
        z_print_error(request.output_path);
        return Z_EXIT_REFUSED;
    }
    return Z_EXIT_DONE;
}
