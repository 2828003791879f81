#include "app/text_sheet_action.h"

#include <string>

#include <gtest/gtest.h>

#include "common/model/template.h"
#include "tests/support/form_text.h"

namespace {

// A form of single letters, worked on by somebody who is asked at most one thing.
struct TextSheetActionTest : testing::Test {
    TextSheetActionTest() : dialogs(z_text_sheet_action_dialogs)
    {
        z_text_sheet_action_dialogs = {
            [](auto, const char *label, bool allow_empty, z_langstr_ptr &header) {
                asked = label + std::string(allow_empty ? " " : ", required ") + get_letter(header);
                header = langstr_from_text("sv=N");
                return is_willing;
            },
            [](auto, const char *question) { return asked = question, is_willing; },
            [](auto) { return asked = "fields", is_willing; },
            [](auto, z_template_gui_mode mode) { return asked = std::to_string(mode), is_willing; }};
    }
    ~TextSheetActionTest() override
    {
        z_text_sheet_action_dialogs = dialogs;
    }
    void start()
    {
        tmpl = z_template_new();
        z_template_add_report_type(tmpl.get(), z_template_report_type_new(nullptr));
        report_type = tmpl->report_types.get_first();
        for (const char *header : {"sv=S", "sv=T"})
            z_template_report_type_add_segment(report_type,
                                               z_text_sheet_segment_new(langstr_from_text(header).get()));
        z_text_sheet_segment *segment = report_type->segments.get_first();
        for (const char *header : {"sv=B", "sv=D"})
            z_text_sheet_segment_add_block(segment, z_text_sheet_block_new(langstr_from_text(header).get()));
        for (const char *header : {"sv=A", "sv=C"})
            z_text_sheet_block_add_row(segment->blocks.get_first(),
                                       z_text_sheet_row_new(langstr_from_text(header).get()));
    }
    static std::string get_letter(const z_langstr_ptr &header)
    {
        return header != nullptr ? header->text.get() : "";
    }
    // "S{B(A)(C)}{D} T".
    [[nodiscard]] std::string get_form() const
    {
        std::string text;
        for (const z_text_sheet_segment *segment : report_type->segments)
            text += (text.empty() ? "" : " ") + text_from_segment(segment);
        for (size_t tag; (tag = text.find("sv=")) != std::string::npos;)
            text.erase(tag, 3);
        return text;
    }
    [[nodiscard]] z_text_sheet_target find(const std::string &letter) const
    {
        z_text_sheet_target found = {nullptr, nullptr, tmpl.get(), report_type, nullptr, nullptr, nullptr};
        for (z_text_sheet_segment *segment : report_type->segments) {
            if (get_letter(segment->header) == letter)
                found.segment = segment;
            for (z_text_sheet_block *block : segment->blocks) {
                if (get_letter(block->header) == letter)
                    found.segment = segment, found.block = block;
                for (z_text_sheet_row *row : block->rows)
                    if (get_letter(row->header) == letter)
                        found.segment = segment, found.block = block, found.row = row;
            }
        }
        return found;
    }
    static bool run(const z_text_sheet_target &target, const std::string &label)
    {
        asked.clear();
        for (const z_text_sheet_menu_entry &entry : z_text_sheet_action_get_menu(&target))
            if (entry.label != nullptr && entry.label == label)
                return z_text_sheet_action_run(&target, entry.action);
        ADD_FAILURE() << "no such entry";
        return false;
    }

    const z_text_sheet_dialogs dialogs;
    static inline std::string asked;
    static inline bool is_willing;
    z_template_ptr tmpl;
    z_template_report_type *report_type = nullptr;
};

TEST_F(TextSheetActionTest, EveryEntryDoesWhatItSays)
{
    const char whole[] = "S{B(A)(C)}{D} T";
    const struct {
        const char *letter; // Of what is clicked; none for the label "Add segments".
        const char *label;
        const char *question;
        const char *form;
    } cases[] = {
        {"A", "Edit row header", "Row header, required A", "S{B(N)(C)}{D} T"},
        {"A", "Set up fields", "fields", whole},
        {"C", "Move row up", "", "S{B(C)(A)}{D} T"},
        {"A", "Move row down", "", "S{B(C)(A)}{D} T"},
        {"A", "Delete row", "Do you really want to delete this row?", "S{B(C)}{D} T"},
        {"C", "Add row above", "Row header, required ", "S{B(A)(N _)(C)}{D} T"},
        {"A", "Add row below", "Row header, required ", "S{B(A)(N _)(C)}{D} T"},
        {"B", "Edit block header", "Block header B", "S{N(A)(C)}{D} T"},
        {"B", "Delete block header", "Do you really want to delete the block header?", "S{(A)(C)}{D} T"},
        {"D", "Set block header", "Block header D", "S{B(A)(C)}{N} T"},
        {"B", "Add row", "Row header, required ", "S{B(A)(C)(N _)}{D} T"},
        {"B", "Read one row from a template", "6", whole},
        {"D", "Move block up", "", "S{D}{B(A)(C)} T"},
        {"B", "Move block down", "", "S{D}{B(A)(C)} T"},
        {"B", "Delete block", "Do you really want to delete this entire block?", "S{D} T"},
        {"D", "Add block above", "Block header ", "S{B(A)(C)}{N}{D} T"},
        {"B", "Add block below", "Block header ", "S{B(A)(C)}{N}{D} T"},
        {"S", "Edit segment header", "Segment header S", "N{B(A)(C)}{D} T"},
        {"S", "Delete segment header", "Do you really want to delete the segment header?", "{B(A)(C)}{D} T"},
        {"T", "Set segment header", "Segment header T", "S{B(A)(C)}{D} N"},
        {"S", "Add block", "Block header ", "S{B(A)(C)}{D}{N} T"},
        {"S", "Read one block from a template", "5", whole},
        {"T", "Move segment up", "", "T S{B(A)(C)}{D}"},
        {"S", "Move segment down", "", "T S{B(A)(C)}{D}"},
        {"S", "Delete segment", "Do you really want to delete this entire segment?", "T"},
        {"T", "Add segment above", "Segment header ", "S{B(A)(C)}{D} N T"},
        {"S", "Add segment below", "Segment header ", "S{B(A)(C)}{D} N T"},
        {"", "Add segment", "Segment header ", "S{B(A)(C)}{D} T N"},
        {"", "Read one segment from a template", "7", whole},
        {"", "Read all segments of one report type from a template", "2", whole},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.label);
        for (const bool willing : {false, true}) {
            is_willing = willing;
            start();
            const bool is_done = willing || *each.question == '\0';
            EXPECT_EQ(is_done, run(find(each.letter), each.label));
            EXPECT_EQ(each.question, asked);
            EXPECT_EQ(is_done ? each.form : whole, get_form());
        }
    }
    z_text_sheet_target target = find("B"); // What basic data read, they read from basic data.
    target.report_type = nullptr;
    EXPECT_TRUE(run(target, "Read one row from a template") && asked == "4");
    target.block = nullptr;
    EXPECT_TRUE(run(target, "Read one block from a template") && asked == "3");
    EXPECT_TRUE(run(target, "Read all basic data blocks from a template") && asked == "1");
}

} // namespace
