#include "common/gui/gfx_text.h"

#include <array>
#include <cmath>
#include <string>

#include <pango/pangocairo.h>

#include "common/base/convert.h"
#include "common/gui/gfx.h"
#include "common/gui/resources.h"
#include "common/workspace/settings.h"

static constexpr double fallback_font_size = 12.0;
static constexpr int no_wrap = -1;
static constexpr uint32_t black = 0x000000;
static constexpr uint32_t grey = 0xc0c0c0;

// What laid-out sizes depend on. The matrix has no translation.
struct text_key {
    z_font_description_ptr base_font;
    double resolution = 0.0;
    double scale_x = 0.0;
    double scale_y = 0.0;
    cairo_matrix_t matrix{};
    z_cairo_font_options_ptr options;
    std::string languages;
};

// Made when first needed, kept for the whole process and made anew when the key changes. A font style's
// layout is used for one text after the other.
struct text_cache {
    text_key key;
    uint32_t generation = 0;
    z_ref<PangoContext> context;
    guint serial = 0; // The context's; it changes with the fonts that are installed.
    std::array<z_ref<PangoLayout>, 4> layouts;
    z_gfx_text_size space;
};

static text_cache cache;

// Draws in device pixels while it lives. Inside a group it is the group's surface that is drawn on.
class device_pixels {
public:
    explicit device_pixels(cairo_t *cr) : surface(cairo_get_group_target(cr))
    {
        cairo_surface_get_device_scale(surface, &scale_x, &scale_y);
        if (is_scaled())
            cairo_surface_set_device_scale(surface, 1.0, 1.0);
    }
    device_pixels(const device_pixels &) = delete;
    device_pixels &operator=(const device_pixels &) = delete;
    ~device_pixels()
    {
        if (is_scaled())
            cairo_surface_set_device_scale(surface, scale_x, scale_y);
    }

    double scale_x = 1.0;
    double scale_y = 1.0;

private:
    [[nodiscard]] bool is_scaled() const
    {
        return scale_x != 1.0 || scale_y != 1.0;
    }

    cairo_surface_t *surface;
};

static std::string join_languages(const z_settings *settings)
{
    std::string languages;
    for (const z_preferred_language *language : settings->preferred_languages)
        languages.append(language->tag.get()).append(1, '\n');
    return languages;
}

static text_key make_key(const z_gfx_text_sheet_context *ctx)
{
    text_key key;
    key.base_font = ctx->base_font != nullptr
                        ? z_font_description_ptr(pango_font_description_copy(ctx->base_font))
                        : z_gui_create_fallback_font_description(fallback_font_size * ctx->scale_y);
    key.resolution = ctx->font_resolution * ctx->scale_y;
    key.scale_x = ctx->scale_x;
    key.scale_y = ctx->scale_y;
    cairo_get_matrix(ctx->cr, &key.matrix);
    key.matrix.x0 = key.matrix.y0 = 0.0;
    key.options.reset(cairo_font_options_create());
    cairo_surface_get_font_options(cairo_get_group_target(ctx->cr), key.options.get());
    key.languages = join_languages(ctx->settings);
    return key;
}

static bool is_same_key(const text_key &a, const text_key &b)
{
    return a.resolution == b.resolution && a.scale_x == b.scale_x && a.scale_y == b.scale_y &&
           a.matrix.xx == b.matrix.xx && a.matrix.xy == b.matrix.xy && a.matrix.yx == b.matrix.yx &&
           a.matrix.yy == b.matrix.yy && a.languages == b.languages && b.base_font != nullptr &&
           pango_font_description_equal(a.base_font.get(), b.base_font.get()) &&
           cairo_font_options_equal(a.options.get(), b.options.get());
}

static PangoLayout *get_layout(z_font_style style)
{
    return cache.layouts[static_cast<size_t>(style)].get();
}

// Lays the text out in its style's layout, which holds it until the next text of that style. The wrap width
// is in Pango units.
static PangoLayout *lay_out(z_font_style style, const char *utf8, int wrap_units)
{
    PangoLayout *layout = get_layout(style);
    pango_layout_set_width(layout, wrap_units);
    pango_layout_set_text(layout, utf8, -1);
    return layout;
}

static int get_wrap_units(const z_gfx_text_sheet_context *ctx, double wrap_width)
{
    return wrap_width > 0.0 ? pango_units_from_double(wrap_width * ctx->scale_x) : no_wrap;
}

static void get_exact_size(const z_gfx_text_sheet_context *ctx, PangoLayout *layout, double *width,
                           double *height)
{
    int width_units = 0;
    int height_units = 0;
    pango_layout_get_size(layout, &width_units, &height_units);
    *width = pango_units_to_double(width_units) / ctx->scale_x;
    *height = pango_units_to_double(height_units) / ctx->scale_y;
}

static z_gfx_text_size get_whole_size(const z_gfx_text_sheet_context *ctx, PangoLayout *layout)
{
    double width = 0.0;
    double height = 0.0;
    get_exact_size(ctx, layout, &width, &height);
    return {static_cast<int32_t>(std::ceil(width)), static_cast<int32_t>(std::ceil(height))};
}

static void make_layouts(const z_gfx_text_sheet_context *ctx)
{
    const device_pixels pixels(ctx->cr);
    cache.context = z_take(pango_cairo_create_context(ctx->cr));
    pango_cairo_context_set_resolution(cache.context.get(), cache.key.resolution);
    for (const z_font_style style :
         {z_font_style::normal, z_font_style::bold, z_font_style::italic, z_font_style::large_header}) {
        const z_font_description_ptr font(pango_font_description_copy(cache.key.base_font.get()));
        z_gui_apply_font_style(font.get(), style);
        z_ref<PangoLayout> layout = z_take(pango_layout_new(cache.context.get()));
        pango_layout_set_font_description(layout.get(), font.get());
        pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
        cache.layouts[static_cast<size_t>(style)] = std::move(layout);
    }
    cache.serial = pango_context_get_serial(cache.context.get());
    cache.space = get_whole_size(ctx, lay_out(z_font_style::normal, "T", no_wrap));
}

static z_rectangle get_clip(cairo_t *cr)
{
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    cairo_clip_extents(cr, &left, &top, &right, &bottom);
    z_rectangle clip;
    clip.x = static_cast<int32_t>(std::floor(left));
    clip.y = static_cast<int32_t>(std::floor(top));
    clip.width = static_cast<int32_t>(std::ceil(right)) - clip.x;
    clip.height = static_cast<int32_t>(std::ceil(bottom)) - clip.y;
    return clip;
}

void z_gfx_text_sheet_begin(z_gfx_text_sheet_context *ctx)
{
    cairo_surface_get_device_scale(cairo_get_group_target(ctx->cr), &ctx->scale_x, &ctx->scale_y);
    text_key key = make_key(ctx);
    if (!is_same_key(key, cache.key) || pango_context_get_serial(cache.context.get()) != cache.serial) {
        cache.key = std::move(key);
        ++cache.generation;
        make_layouts(ctx);
    }
    ctx->clip = get_clip(ctx->cr);
    ctx->space_width = cache.space.width;
    ctx->space_height = cache.space.height;
    ctx->menu_icon = z_get_text_tab_menu_icon_image();
    ctx->icon_width = ctx->menu_icon != nullptr ? static_cast<int32_t>(ctx->menu_icon->width) : 0;
    ctx->icon_height = ctx->menu_icon != nullptr ? static_cast<int32_t>(ctx->menu_icon->height) : 0;
    ctx->generation = cache.generation;
    ctx->measure_only = false;
    ctx->part = nullptr;
}

bool z_gfx_text_sheet_is_visible(const z_gfx_text_sheet_context *ctx, int32_t x, int32_t y, int32_t width,
                                 int32_t height)
{
    // Glyphs may leave their line a little.
    const int32_t margin = 2 * ctx->space_height;
    const z_rectangle &clip = ctx->clip;
    return !ctx->measure_only && y - margin < clip.y + clip.height && y + height + margin > clip.y &&
           x - margin < clip.x + clip.width && x + width + margin > clip.x;
}

static PangoLayout *lay_out_text(const z_gfx_text_sheet_context *ctx, const z_gfx_text &text,
                                 int32_t wrap_width)
{
    const char *latin1 =
        text.langstr != nullptr ? z_util_get_langstr_string(ctx->settings, text.langstr) : text.latin1;
    const z_utf8_ptr utf8 = z_convert_latin1_to_utf8(latin1 != nullptr ? latin1 : "");
    return lay_out(text.style, utf8.get(), get_wrap_units(ctx, wrap_width));
}

static void keep_natural_size(z_text_sheet_measure *measure, z_gfx_text_size size)
{
    measure->natural_width = size.width;
    measure->natural_height = size.height;
}

// The kept sizes, empty if they were of an older generation.
static z_text_sheet_measure *get_measure(const z_gfx_text &text)
{
    if (text.measure->generation != cache.generation) {
        *text.measure = z_text_sheet_measure{};
        text.measure->generation = cache.generation;
    }
    return text.measure;
}

z_gfx_text_size z_gfx_text_get_natural_size(const z_gfx_text_sheet_context *ctx, const z_gfx_text &text)
{
    z_text_sheet_measure *measure = get_measure(text);
    if (measure->natural_width < 0)
        keep_natural_size(measure, get_whole_size(ctx, lay_out_text(ctx, text, no_wrap)));
    return {measure->natural_width, measure->natural_height};
}

// Whether the sizes that are kept hold for this wrap width, and which one it is.
static bool find_kept_size(const z_text_sheet_measure *measure, int32_t wrap_width, z_gfx_text_size *size)
{
    if (measure->natural_width >= 0 && (wrap_width <= 0 || measure->natural_width <= wrap_width))
        *size = {measure->natural_width, measure->natural_height};
    else if (wrap_width > 0 && measure->wrap_width == wrap_width)
        *size = {measure->width, measure->height};
    else
        return false;
    return true;
}

// Returns the layout that it took the size from.
static PangoLayout *measure_wrapped(const z_gfx_text_sheet_context *ctx, const z_gfx_text &text,
                                    int32_t wrap_width, z_gfx_text_size *size)
{
    PangoLayout *layout = lay_out_text(ctx, text, wrap_width);
    *size = get_whole_size(ctx, layout);
    if (wrap_width <= 0 || !pango_layout_is_wrapped(layout)) {
        keep_natural_size(text.measure, *size);
    } else {
        text.measure->wrap_width = wrap_width;
        text.measure->width = size->width;
        text.measure->height = size->height;
    }
    return layout;
}

z_gfx_text_size z_gfx_text_get_size(const z_gfx_text_sheet_context *ctx, const z_gfx_text &text,
                                    int32_t wrap_width)
{
    if (wrap_width <= 0)
        return z_gfx_text_get_natural_size(ctx, text);
    z_gfx_text_size size;
    if (!find_kept_size(get_measure(text), wrap_width, &size))
        measure_wrapped(ctx, text, wrap_width, &size);
    return size;
}

// Shows a layout with its top left corner at a point of the form.
static void show(const z_gfx_text_sheet_context *ctx, PangoLayout *layout, double x, double y)
{
    const device_pixels pixels(ctx->cr);
    cairo_matrix_t matrix;
    cairo_get_matrix(ctx->cr, &matrix);
    const double origin_x = pixels.scale_x * x + (pixels.scale_x - 1.0) * matrix.x0;
    const double origin_y = pixels.scale_y * y + (pixels.scale_y - 1.0) * matrix.y0;
    cairo_move_to(ctx->cr, origin_x, origin_y);
    pango_cairo_show_layout(ctx->cr, layout);
}

z_gfx_text_size z_gfx_text_draw(const z_gfx_text_sheet_context *ctx, const z_gfx_text &text, int32_t x,
                                int32_t y, int32_t wrap_width)
{
    z_gfx_text_size size;
    PangoLayout *layout = nullptr;
    if (!find_kept_size(get_measure(text), wrap_width, &size))
        layout = measure_wrapped(ctx, text, wrap_width, &size);
    if (!z_gfx_text_sheet_is_visible(ctx, x, y, size.width, size.height))
        return size;
    if (layout == nullptr)
        layout = lay_out_text(ctx, text, wrap_width);
    if (text.ink == z_gfx_ink::grey)
        z_gfx_set_color_rgb(ctx->cr, grey);
    show(ctx, layout, x, y);
    if (text.ink == z_gfx_ink::grey)
        z_gfx_set_color_rgb(ctx->cr, black);
    return size;
}

void z_gfx_text_sheet_draw_utf8_text_block(const z_gfx_text_sheet_context *ctx, z_font_style style,
                                           const char *utf8, double x, double y, double wrap_width,
                                           z_gfx_text_action action, double *out_width, double *out_height)
{
    PangoLayout *layout = lay_out(style, utf8, get_wrap_units(ctx, wrap_width));
    if (action == z_gfx_text_action::draw)
        show(ctx, layout, x, y);
    double width = 0.0;
    double height = 0.0;
    get_exact_size(ctx, layout, &width, &height);
    if (out_width != nullptr)
        *out_width = width;
    if (out_height != nullptr)
        *out_height = height;
}

void z_gfx_text_sheet_draw_latin1_text_block(const z_gfx_text_sheet_context *ctx, z_font_style style,
                                             const char *latin1, double x, double y, double wrap_width,
                                             z_gfx_text_action action, double *out_width, double *out_height)
{
    const z_utf8_ptr utf8 = z_convert_latin1_to_utf8(latin1);
    z_gfx_text_sheet_draw_utf8_text_block(ctx, style, utf8.get(), x, y, wrap_width, action, out_width,
                                          out_height);
}

int32_t z_gfx_text_sheet_get_space_width(const z_gfx_text_sheet_context *ctx)
{
    return ctx->space_width;
}

int32_t z_gfx_text_sheet_get_space_height(const z_gfx_text_sheet_context *ctx)
{
    return ctx->space_height;
}

void z_gfx_text_sheet_clean_up()
{
    // A generation is never used twice, so sizes kept so far stay void.
    const uint32_t generation = cache.generation;
    cache = text_cache{};
    cache.generation = generation;
}
