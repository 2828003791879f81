#include "app/text_sheet_fields_gui.h"

#include "tests/support/form_text.h"
#include "tests/support/lists.h"
#include "tests/support/workspace_sandbox.h"

namespace {

const char title[] = "Set up fields";

struct FieldsWindowTest : WorkspaceSandboxTest {
    FieldsWindowTest()
    {
        z_text_sheet_segment_add_block(&tmpl->details, z_text_sheet_block_new(nullptr));
        z_text_sheet_block *block = tmpl->details.blocks.get_first();
        z_text_sheet_block_add_row(block, z_text_sheet_row_new(langstr_from_text("sv=Row").get()));
        row = block->rows.get_first();
    }
    void add_field(uint32_t kind, const std::string &text) const
    {
        z_text_sheet_row_add_field(row, z_text_sheet_field_new(kind));
        z_text_sheet_field_set_text(row->fields.get_last(), langstr_from_text(text));
    }
    bool run()
    {
        return z_text_sheet_fields_gui_run(stack.get(), context.settings, row);
    }

    static void add_opening(Steps &steps)
    {
        steps.add([] { return find_window(title) != nullptr; });
        add_pause(steps);
    }
    // Selects a line and tells whether it can be edited.
    static void add_select(Steps &steps, int index, bool is_editable)
    {
        steps.add([=] {
            select_line(find_window(title), index);
            EXPECT_EQ(is_editable, gtk_widget_is_sensitive(find_button(find_window(title), "Edit")));
            return true;
        });
    }
    const z_template_ptr tmpl = z_template_new();
    z_text_sheet_row *row;
};

TEST_F(FieldsWindowTest, ListsTheFieldsInShort)
{
    const std::string letters(60, 'x');
    add_field(Z_TEXT_SHEET_TEXT_FIELD, "");
    add_field(Z_TEXT_SHEET_TEXT_FIELD, "sv= two \n lines ");
    add_field(Z_TEXT_SHEET_CHECKBOX, "en=Yes|sv=J\xe4");
    for (const size_t length : {52u, 53u, 60u})
        add_field(Z_TEXT_SHEET_CHECKBOX, "sv=" + letters.substr(0, length));
    const std::string cut = "Checkbox," + letters.substr(0, 50) + "...;";
    const std::string before = text_from_row(row);
    Steps steps;
    add_opening(steps);
    const std::string lines = "Text field,;Text field,two lines;Checkbox,J\u00e4;Checkbox," +
                              letters.substr(0, 52) + ";" + cut + cut;
    steps.add([&] {
        GtkWidget *window = find_window(title);
        EXPECT_EQ(lines, get_list_lines(window));
        EXPECT_EQ(GTK_WIDGET(find_list(window)), gtk_window_get_focus(GTK_WINDOW(window)));
        for (const char *button : {"Edit", "Move up", "Move down", "Delete"})
            EXPECT_FALSE(gtk_widget_is_sensitive(find_button(window, button))) << button;
        return true;
    });
    add_select(steps, 1, false);
    add_select(steps, 2, true);
    steps.add([] { return press_button(title, "OK"); });
    EXPECT_TRUE(run());
    EXPECT_EQ(before, text_from_row(row));
}

TEST_F(FieldsWindowTest, TheRowTakesNothingBeforeOk)
{
    const struct {
        bool edits;
        const char *button;
        const char *row;
    } cases[] = {{true, "Cancel", "(sv=Row osv=Ja)"},
                 {false, "Cancel", "(sv=Row osv=Ja)"},
                 {true, "OK", "(sv=Row osv=Nej)"},
                 {false, "OK", "(sv=Row)"}};
    add_field(Z_TEXT_SHEET_CHECKBOX, "sv=Ja");
    for (const auto &each : cases) {
        Steps steps;
        add_opening(steps);
        add_select(steps, 0, true);
        steps.add([&] {
            if (std::string("OK") == each.button && each.edits)
                activate_line(find_window(title), 0);
            else
                return press_button(title, each.edits ? "Edit" : "Delete");
            return true;
        });
        if (each.edits) {
            steps.add([] { return enter("Edit checkbox", "Enter checkbox label: (Required)", "Nej"); });
            steps.add([] { return press_button("Edit checkbox", "OK"); });
        }
        steps.add([&] {
            EXPECT_EQ(each.edits ? ">Checkbox,Nej;" : "", get_list_lines(find_window(title)));
            return press_button(title, each.button);
        });
        EXPECT_EQ(std::string("OK") == each.button, run());
        EXPECT_EQ(each.row, text_from_row(row));
    }
}

} // namespace
