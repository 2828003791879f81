#include "common/gui/gfx_form.h"

#include <array>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/gui/gfx_text.h"
#include "common/gui/resources.h"
#include "common/workspace/settings.h"
#include "tests/support/reference_text_sheet.h"
#include "tests/support/template_text.h"

namespace {

// What one draw is asked for, beside the form.
struct Scene {
    int width = 500;
    int height = 300;
    int scroll = 0;
    double scale = 1.0;
    double offset = 0.0; // Of the form within the surface, both ways.
    bool editing = true;
    bool in_group = false;
    z_rectangle clip = {};
    bool highlights_last_row = false;
    const char *font = nullptr;
};

using rectangle = std::array<int32_t, 4>; // x, y, width, height

struct Drawing {
    int height = 0;
    std::vector<rectangle> rects;
    std::string pixels;
};

std::string get_pixels(cairo_surface_t *surface)
{
    cairo_surface_flush(surface);
    const int size = cairo_image_surface_get_stride(surface) * cairo_image_surface_get_height(surface);
    const auto *data = reinterpret_cast<const char *>(cairo_image_surface_get_data(surface));
    return {data, static_cast<size_t>(size)};
}

std::vector<z_text_sheet_row *> list_rows(const z_template_report_type *report_type)
{
    std::vector<z_text_sheet_row *> rows;
    for (z_text_sheet_segment *segment : report_type->segments)
        for (z_text_sheet_block *block : segment->blocks)
            for (z_text_sheet_row *row : block->rows)
                rows.push_back(row);
    return rows;
}

std::vector<rectangle> list_rects(const z_gfx_form &form)
{
    std::vector<rectangle> rects;
    const auto add = [&rects](const char *, const z_langstr_ptr &, const z_rectangle &rect) {
        rects.push_back({rect.x, rect.y, rect.width, rect.height});
    };
    add(nullptr, nullptr, form.add_segments_rect);
    if (form.report_type == nullptr)
        visit_segment(&form.tmpl->details, add);
    else
        for (const z_text_sheet_segment *segment : form.report_type->segments)
            visit_segment(segment, add);
    return rects;
}

using draw_function = int32_t (*)(z_gfx_text_sheet_context *ctx, z_gfx_form *form, int32_t scroll);

struct GfxFormTest : testing::Test {
    GfxFormTest() : tmpl(z_template_new())
    {
        z_template_add_report_type(tmpl.get(), z_template_report_type_new(nullptr));
        form.tmpl = tmpl.get();
        form.report_type = tmpl->report_types.get_first();
        set_languages({"en"});
        EXPECT_TRUE(z_resources_open() && z_resources_load_shared_images());
    }
    ~GfxFormTest() override
    {
        z_resources_clean_up();
        z_gfx_text_sheet_clean_up();
    }

    void set_languages(std::initializer_list<const char *> tags)
    {
        settings.preferred_languages.destroy_all();
        for (const char *tag : tags)
            z_settings_add_preferred_language(&settings, z_settings_language_new(tag));
    }

    z_text_sheet_segment *add_segment(const std::string &header) const
    {
        z_template_report_type_add_segment(form.report_type,
                                           z_text_sheet_segment_new(langstr_from_text(header).get()));
        return form.report_type->segments.get_last();
    }
    static z_text_sheet_block *add_block(z_text_sheet_segment *segment, const std::string &header)
    {
        z_text_sheet_segment_add_block(segment, z_text_sheet_block_new(langstr_from_text(header).get()));
        return segment->blocks.get_last();
    }
    static z_text_sheet_row *add_row(z_text_sheet_block *block, const std::string &header)
    {
        z_text_sheet_block_add_row(block, z_text_sheet_row_new(langstr_from_text(header).get()));
        return block->rows.get_last();
    }
    static void add_field(z_text_sheet_row *row, uint32_t kind, const std::string &text = "")
    {
        z_text_sheet_field_ptr field = z_text_sheet_field_new(kind);
        z_text_sheet_field_set_text(field.get(), langstr_from_text(text));
        z_text_sheet_row_add_field(row, std::move(field));
    }

    Drawing draw(const Scene &scene)
    {
        return draw(&form, scene, z_gfx_form_draw);
    }
    Drawing draw(z_gfx_form *drawn_form, const Scene &scene, draw_function function)
    {
        const z_cairo_surface_ptr surface(
            cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(scene.width * scene.scale),
                                       static_cast<int>(scene.height * scene.scale)));
        cairo_surface_set_device_scale(surface.get(), scene.scale, scene.scale);
        const z_cairo_ptr cr(cairo_create(surface.get()));
        if (scene.clip.width > 0) {
            cairo_rectangle(cr.get(), scene.clip.x, scene.clip.y, scene.clip.width, scene.clip.height);
            cairo_clip(cr.get());
        }
        if (scene.in_group)
            cairo_push_group(cr.get());
        cairo_translate(cr.get(), scene.offset, scene.offset);
        z_font_description_ptr font(scene.font != nullptr ? pango_font_description_from_string(scene.font)
                                                          : nullptr);
        z_gfx_text_sheet_context ctx;
        ctx.settings = &settings;
        ctx.base_font = font.get();
        ctx.cr = cr.get();
        ctx.width = scene.width;
        ctx.record_rects = true;
        ctx.editing = scene.editing;
        if (scene.highlights_last_row && drawn_form->report_type != nullptr) {
            for (z_text_sheet_row *row : list_rows(drawn_form->report_type))
                ctx.highlighted_row = row;
        }
        const int height = function(&ctx, drawn_form, scene.scroll);
        if (scene.in_group) {
            cairo_pop_group_to_source(cr.get());
            cairo_paint(cr.get());
        }
        return {height, list_rects(*drawn_form), get_pixels(surface.get())};
    }

    // The form as it stands, with what it has kept, against a fresh copy that is drawn plainly.
    void expect_same_as_reference(const Scene &scene)
    {
        const Drawing drawing = draw(scene);
        const z_template_ptr copy = z_template_new();
        z_text_sheet_segment_copy_contents(&copy->details, &tmpl->details);
        z_gfx_form copied_form;
        copied_form.tmpl = copy.get();
        if (form.report_type != nullptr) {
            z_template_add_report_type(copy.get(), z_template_report_type_clone(form.report_type));
            copied_form.report_type = copy->report_types.get_last();
        }
        const Drawing expected = draw(&copied_form, scene, reference_form_draw);
        EXPECT_EQ(drawing.height, expected.height);
        EXPECT_EQ(drawing.rects, expected.rects);
        EXPECT_TRUE(drawing.pixels == expected.pixels);
    }

    z_settings settings;
    z_template_ptr tmpl;
    z_gfx_form form;
};

// A form of any shape, and changes of any kind to it.
struct RandomFormTest : GfxFormTest {
    int pick(int count)
    {
        return static_cast<int>(random() % static_cast<unsigned>(count));
    }

    // As in langstr_text.h.
    std::string random_text()
    {
        static const char *const texts[] = {
            "Door",
            "Surface layer and what lies below it",
            "Wi",
            "f\xf6rgyllningar \xc5\xc4\xd6",
            "Donaudampfschifffahrtselektrizit\xe4tenhauptbetriebswerkbauunterbeamtengesellschaft",
            "two\nlines",
            "hyphen\255ated soft\255ly in a long\255er word\255",
            ("A sentence that is too long for any column of a form, so that it has to go on on the next "
             "line. "
             "And another one, because the first was not long enough for the widest of the windows.")};
        const std::string english = std::string("en=") + texts[pick(8)];
        return pick(3) == 0 ? english + "|sv=" + texts[pick(8)] : english;
    }
    std::string random_text_or_none()
    {
        return pick(4) == 0 ? "" : random_text();
    }

    void fill_row(z_text_sheet_row *row)
    {
        for (int count = pick(5); count > 0; --count) {
            const bool is_checkbox = pick(2) == 0;
            add_field(row, is_checkbox ? Z_TEXT_SHEET_CHECKBOX : Z_TEXT_SHEET_TEXT_FIELD,
                      is_checkbox ? random_text() : random_text_or_none());
            row->fields.get_last()->selected = is_checkbox && pick(2) == 0;
        }
    }
    void fill_segment(z_text_sheet_segment *segment)
    {
        for (int blocks = pick(4); blocks > 0; --blocks) {
            z_text_sheet_block *block = add_block(segment, random_text_or_none());
            for (int rows = pick(5); rows > 0; --rows)
                fill_row(add_row(block, random_text()));
        }
    }
    void fill()
    {
        for (int count = pick(4); count > 0; --count)
            fill_segment(add_segment(random_text_or_none()));
        fill_segment(&tmpl->details);
    }

    Scene random_scene()
    {
        static const int widths[] = {30, 120, 260, 500, 501, 900};
        static const char *const fonts[] = {nullptr, nullptr, "DejaVu Sans 10", "Liberation Serif 14"};
        Scene scene;
        scene.width = widths[pick(6)];
        scene.scroll = pick(3) == 0 ? 0 : pick(800);
        scene.scale = pick(4) == 0 ? 2.0 : 1.0;
        scene.offset = pick(4) == 0 ? 7.0 : 0.0;
        scene.editing = pick(4) != 0;
        scene.in_group = pick(4) == 0;
        scene.highlights_last_row = pick(2) == 0;
        scene.font = fonts[pick(4)];
        if (pick(3) == 0)
            scene.clip = {pick(scene.width), pick(200), 1 + pick(200), 1 + pick(60)};
        return scene;
    }

    void change()
    {
        z_text_sheet_segment *segment = form.report_type->segments.get_first();
        z_text_sheet_block *block = segment != nullptr ? segment->blocks.get_last() : nullptr;
        const std::vector<z_text_sheet_row *> rows = list_rows(form.report_type);
        z_text_sheet_row *row =
            rows.empty() ? nullptr : rows[static_cast<size_t>(pick(static_cast<int>(rows.size())))];
        z_text_sheet_field *field = row != nullptr ? row->fields.get_first() : nullptr;
        const auto text = [this] { return langstr_from_text(random_text()); };
        std::vector<std::function<void()>> changes = {[=, this] { set_languages({"en"}); },
                                                      [=, this] {
                                                          set_languages({"sv", "en"});
                                                      }};
        const auto offer = [&changes](bool is_possible, std::initializer_list<std::function<void()>> more) {
            if (is_possible)
                changes.insert(changes.end(), more);
        };
        offer(segment != nullptr,
              {[=] { z_text_sheet_segment_set_header(segment, text()); },
               [=] { z_text_sheet_segment_set_header(segment, nullptr); },
               [=] { z_text_sheet_segment_move_down(segment); },
               [=, this] {
                   z_template_report_type_add_segment(form.report_type, z_text_sheet_segment_remove(segment));
               }});
        offer(block != nullptr, {[=] { z_text_sheet_block_set_header(block, text()); },
                                 [=] { z_text_sheet_block_set_header(block, nullptr); },
                                 [=] { z_text_sheet_block_move_up(block); },
                                 [=] {
                                     z_text_sheet_block_add_before(z_text_sheet_block_clone(block),
                                                                   segment->blocks.get_first());
                                 },
                                 [=] { z_text_sheet_block_destroy(block); }});
        offer(row != nullptr, {[=] { z_text_sheet_row_set_header(row, text()); },
                               [=] { z_text_sheet_row_destroy(row); }, [=] { z_text_sheet_row_move_up(row); },
                               [=] { z_text_sheet_row_add_after(z_text_sheet_row_clone(row), row); },
                               [=, this] { fill_row(row); }});
        offer(field != nullptr,
              {[=] { z_text_sheet_field_set_text(field, text()); },
               [=] { z_text_sheet_field_move_down(field); }, [=] { z_text_sheet_field_destroy(field); }});
        changes[static_cast<size_t>(pick(static_cast<int>(changes.size())))]();
    }

    std::minstd_rand random{1};
};

TEST_F(RandomFormTest, LooksAndHitsAsDrawnPlainlyAfterAnyChange)
{
    for (unsigned seed = 1; seed <= 40 && !HasFailure(); ++seed) {
        random.seed(seed);
        form.report_type->segments.destroy_all();
        tmpl->details.blocks.destroy_all();
        fill();
        Scene scene = random_scene();
        for (int step = 0; step < 6 && !HasFailure(); ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            expect_same_as_reference(scene);
            for (int changes = pick(3); changes >= 0; --changes)
                change();
            if (pick(5) == 0)
                scene = random_scene();
        }
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", basic data");
        form.report_type = nullptr;
        expect_same_as_reference(scene);
        form.report_type = tmpl->report_types.get_first();
    }
}

// Cairo's coordinates wrap at 2^23; whatever reaches it from beyond comes back as a ghost.
TEST_F(GfxFormTest, LeavesNoGhostsOfWhatIsFarAway)
{
    z_text_sheet_block *block = add_block(add_segment("en=Segment"), "en=Block");
    z_text_sheet_row *row = add_row(block, "en=Row");
    for (int index = 0; index < 400000; ++index)
        add_field(row, Z_TEXT_SHEET_TEXT_FIELD);
    const Drawing top = draw({.scroll = 1000});
    const int line_height = row->fields.get_last()->rect.height;
    const int lines_down = (1 << 23) / line_height + 100;
    const Drawing far_down = draw({.scroll = 1000 + lines_down * line_height});
    EXPECT_TRUE(far_down.pixels == top.pixels);

    const Drawing beyond = draw({.scroll = 1 << 24});
    EXPECT_EQ(beyond.rects[3][1] - top.rects[3][1], 1000 - (1 << 24));
    form.report_type->segments.destroy_all();
    EXPECT_TRUE(beyond.pixels == draw({.editing = false}).pixels);
}

TEST_F(GfxFormTest, KnowsItsHeightWithoutMovingAnyRectangle)
{
    z_text_sheet_block *block = add_block(add_segment("en=Segment"), "en=Block");
    for (int index = 0; index < 5; ++index)
        add_field(add_row(block, "en=Row"), Z_TEXT_SHEET_TEXT_FIELD);
    const Drawing before = draw({.scroll = 40});
    z_text_sheet_row_destroy(block->rows.get_first());
    const Drawing asked =
        draw(&form, {.scroll = 300}, [](z_gfx_text_sheet_context *ctx, z_gfx_form *drawn, int32_t) {
            return z_gfx_form_get_height(ctx, drawn);
        });
    EXPECT_EQ(asked.rects[3][1], before.rects[5][1]) << "the second row is the first one now";
    EXPECT_EQ(draw({}).height, asked.height);
    EXPECT_LT(asked.height, before.height);
}

// At twice the device scale a text has the same size in the form's pixels, within the rounding of its glyphs.
TEST_F(GfxFormTest, TextKeepsItsSizeAtTwiceTheScale)
{
    for (const char *font : {static_cast<const char *>(nullptr), "DejaVu Sans 10"}) {
        z_text_sheet_segment *segment = add_segment("en=A header of some length");
        const z_rectangle plain = (draw({.font = font}), segment->rect);
        const z_rectangle doubled = (draw({.scale = 2.0, .font = font}), segment->rect);
        EXPECT_NEAR(plain.height, doubled.height, 1);
        form.report_type->segments.destroy_all();
    }
}

TEST_F(GfxFormTest, APointHitsTheInnermostPart)
{
    z_text_sheet_segment *segment = add_segment("en=Segment");
    z_text_sheet_block *block = add_block(segment, "en=Block");
    z_text_sheet_row *row = add_row(block, "en=Row");
    draw({});
    const auto hit_middle = [this](const z_rectangle &rect) {
        return z_gfx_form_hit_test(&form, rect.x + rect.width / 2, rect.y + rect.height / 2);
    };
    const struct {
        z_rectangle rect;
        z_gfx_form_hit expected;
    } cases[] = {{row->rect, {z_gfx_form_part::row, segment, block, row}},
                 {block->rect, {z_gfx_form_part::block, segment, block, nullptr}},
                 {segment->rect, {z_gfx_form_part::segment, segment, nullptr, nullptr}},
                 {form.add_segments_rect, {z_gfx_form_part::add_segments, nullptr, nullptr, nullptr}},
                 {{0, 0, 20, 300}, {z_gfx_form_part::none, nullptr, nullptr, nullptr}}};
    for (const auto &one : cases) {
        const z_gfx_form_hit hit = hit_middle(one.rect);
        EXPECT_TRUE(hit.part == one.expected.part && hit.segment == one.expected.segment &&
                    hit.block == one.expected.block && hit.row == one.expected.row)
            << "case " << &one - cases;
    }

    form.report_type = nullptr;
    draw({});
    const z_gfx_form_hit hit = hit_middle(tmpl->details.rect);
    EXPECT_TRUE(hit.part == z_gfx_form_part::segment && hit.segment == &tmpl->details);
}

} // namespace
