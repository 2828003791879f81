#include <map>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "app/text_sheet_action.h"
#include "bench/plain_form.h"
#include "common/gui/gfx_text.h"
#include "common/gui/resources.h"
#include "common/workspace/settings.h"
#include "tests/support/form_drawing.h"
#include "tests/support/form_text.h"

namespace {

// A form that is worked on at random for a long time, as from its menus, with somebody who answers whatever
// the menus' windows ask. It is looked at now and then.
struct RandomWorkTest : testing::Test {
    RandomWorkTest() : dialogs(z_text_sheet_action_dialogs)
    {
        EXPECT_TRUE(z_resources_open() && z_resources_load_shared_images());
        current = this;
        z_text_sheet_action_dialogs = {[](auto, const char *label, bool allow_empty, z_langstr_ptr &header) {
                                           return current->edit_header(label, allow_empty, header);
                                       },
                                       [](auto, auto) { return current->answer(); },
                                       [](auto target) { return current->set_up_fields(target->row); },
                                       [](auto target, auto) { return current->read(target); }};
    }
    ~RandomWorkTest() override
    {
        z_text_sheet_action_dialogs = dialogs;
        z_resources_clean_up();
        z_gfx_text_sheet_clean_up();
    }

    int pick(size_t count)
    {
        return static_cast<int>(random() % count);
    }
    template <typename T>
    T *pick_from(const z_list<T> &list)
    {
        std::vector<T *> items;
        for (T *item : list)
            items.push_back(item);
        return items.empty() ? nullptr : items[static_cast<size_t>(pick(items.size()))];
    }
    z_langstr_ptr pick_text()
    {
        static const char *const texts[] = {
            "en=Door",
            "sv=F\xf6nster|en=Window",
            "=Untagged",
            "en=\x80\x9f|sv=\x7f",
            "en=Wi",
            "en=hyphen\255ated soft\255ly in a long\255er word\255",
            "en=A text that is too long for any column of a narrow form, so that it goes on and on|sv=kort",
            "de=Donaudampfschifffahrtselektrizit\xe4tenhauptbetriebswerk"};
        return langstr_from_text(texts[pick(std::size(texts))]);
    }

    // Windows show the form behind them, so it is drawn while they are open.
    bool edit_header(const std::string &label, bool allow_empty, z_langstr_ptr &header)
    {
        EXPECT_EQ(allow_empty, label != "Row header");
        draw_live();
        if (pick(5) == 0)
            return false;
        header = allow_empty && pick(4) == 0 ? nullptr : pick_text();
        return true;
    }
    bool answer()
    {
        draw_live();
        return is_large || pick(2) == 0;
    }
    bool set_up_fields(z_text_sheet_row *row)
    {
        z_text_sheet_field *field = pick_from(row->fields);
        if (field != nullptr && field->kind == Z_TEXT_SHEET_CHECKBOX && pick(2) == 0)
            z_text_sheet_field_set_text(field, pick_text());
        else if (field != nullptr && pick(2) == 0)
            z_text_sheet_field_destroy(field);
        for (const uint32_t kind : {Z_TEXT_SHEET_CHECKBOX, Z_TEXT_SHEET_TEXT_FIELD})
            if (pick(2) == 0) {
                z_text_sheet_row_add_field(row, z_text_sheet_field_new(kind));
                z_text_sheet_field_set_text(row->fields.get_last(), pick_text());
            }
        return true;
    }
    // What is read stands in this form already.
    bool read(const z_text_sheet_target *target)
    {
        if (target->segment == nullptr) {
            if (const z_text_sheet_segment *segment = pick_from(target->report_type->segments))
                z_template_report_type_add_segment(target->report_type, z_text_sheet_segment_clone(segment));
        } else if (target->block == nullptr) {
            z_text_sheet_segment_copy_contents(target->segment, &tmpl->details);
        } else if (const z_text_sheet_row *row = pick_from(target->block->rows)) {
            z_text_sheet_block_add_row(target->block, z_text_sheet_row_clone(row));
        }
        return true;
    }

    // One thing to do on the form that is shown.

    z_text_sheet_target pick_target()
    {
        z_text_sheet_target target = {nullptr, nullptr, tmpl.get(), shown, nullptr, nullptr, nullptr};
        if (shown == nullptr)
            target.segment = &tmpl->details;
        else if (pick(5) != 0)
            target.segment = pick_from(shown->segments);
        if (target.segment != nullptr && pick(4) != 0)
            target.block = pick_from(target.segment->blocks);
        if (target.block != nullptr && pick(3) != 0)
            target.row = pick_from(target.block->rows);
        return target;
    }
    void work()
    {
        const z_text_sheet_target target = pick_target();
        const std::string before = text_from_template(tmpl.get());
        is_large = before.size() > 2500;
        std::vector<z_text_sheet_action> actions;
        for (const z_text_sheet_menu_entry &entry : z_text_sheet_action_get_menu(&target))
            if (entry.label != nullptr && (entry.is_shown == nullptr || entry.is_shown(&target)) &&
                (entry.is_sensitive == nullptr || entry.is_sensitive(&target)) &&
                (!is_large || std::string(entry.label).starts_with("Delete")))
                actions.push_back(entry.action);
        if (actions.empty())
            return;
        const z_text_sheet_action action = actions[static_cast<size_t>(pick(actions.size()))];
        if (!z_text_sheet_action_run(&target, action)) {
            ASSERT_EQ(before, text_from_template(tmpl.get())) << "action " << static_cast<int>(action);
        }
    }
    void change_view()
    {
        shown = pick(3) == 0 ? nullptr : tmpl->report_types.get_first();
        settings.preferred_languages.destroy_all();
        if (pick(2) == 0)
            z_settings_add_preferred_language(&settings, z_settings_language_new("sv"));
        z_settings_add_preferred_language(&settings, z_settings_language_new("en"));
        static const int widths[] = {30, 120, 260, 500, 501, 900};
        static const char *const fonts[] = {nullptr, nullptr, "DejaVu Sans 10", "DejaVu Sans Bold 14"};
        scene = {.width = widths[pick(6)],
                 .scroll = pick(3) == 0 ? 0 : pick(800),
                 .scale = pick(4) == 0 ? 2.0 : 1.0,
                 .offset = pick(4) == 0 ? 7.0 : 0.0,
                 .editing = pick(4) != 0,
                 .in_group = pick(4) == 0,
                 .highlights_a_row = pick(2) == 0,
                 .font = fonts[pick(4)]};
        if (pick(3) == 0)
            scene.clip = {pick(static_cast<size_t>(scene.width)), pick(200), 1 + pick(200), 1 + pick(60)};
    }

    // Looking at it.

    Drawing draw_live()
    {
        z_gfx_form *form = &forms[shown];
        form->tmpl = tmpl.get();
        form->report_type = shown;
        return draw_scene(form, scene, &settings);
    }
    // The form as it stands, with all that it has kept, against one that is drawn plainly.
    void expect_plain_drawing()
    {
        const Drawing drawn = draw_live();
        z_gfx_form plain;
        plain.tmpl = tmpl.get();
        plain.report_type = shown;
        const Drawing expected = draw_scene(&plain, scene, &settings, bench_draw_plain_form);
        ASSERT_EQ(expected.height, drawn.height);
        ASSERT_EQ(expected.rects, drawn.rects);
        ASSERT_TRUE(expected.pixels == drawn.pixels) << "the pixels differ";
    }

    static inline RandomWorkTest *current;
    const z_text_sheet_dialogs dialogs;
    std::minstd_rand random;
    z_settings settings;
    z_template_ptr tmpl;
    z_template_report_type *shown = nullptr;
    std::map<const z_template_report_type *, z_gfx_form> forms; // Each with what it has kept.
    bool is_large = false;                                      // Enough for now.
    Scene scene;
};

TEST_F(RandomWorkTest, TheFormStaysItselfWhateverIsDone)
{
    for (unsigned seed = 1; seed <= 4 && !HasFailure(); ++seed) {
        random.seed(seed);
        forms.clear();
        tmpl = z_template_new();
        tmpl->name = pick_text();
        z_template_add_report_type(tmpl.get(), z_template_report_type_new(pick_text().get()));
        change_view();
        for (int step = 0; step < 800 && !HasFailure(); ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            if (pick(12) == 0)
                change_view();
            work();
            if (pick(8) == 0 && !HasFailure())
                expect_plain_drawing();
        }
    }
}

} // namespace
