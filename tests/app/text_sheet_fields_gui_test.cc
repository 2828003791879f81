#include "app/text_sheet_fields_gui.h"

#include <string>

#include "common/model/template.h"
#include "tests/support/lists.h"
#include "tests/support/template_text.h"
#include "tests/support/workspace_sandbox.h"

namespace {

const char title[] = "Set up fields";
const char label_label[] = "Enter checkbox label: (Required)";

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
    [[nodiscard]] std::string get_fields() const
    {
        const std::string text = text_from_template(tmpl.get());
        return text.substr(text.find("ROW sv=Row") + 10);
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
    static void add_press(Steps &steps, const char *window_title, const char *button)
    {
        steps.add([=] { return press_button(window_title, button); });
    }
    static void add_lines(Steps &steps, const std::string &lines)
    {
        steps.add([lines] {
            EXPECT_EQ(lines, get_list_lines(find_window(title)));
            return true;
        });
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
    static void add_label(Steps &steps, const char *window_title, const char *text, const char *button)
    {
        steps.add([=] { return enter(window_title, label_label, text); });
        add_press(steps, window_title, button);
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
    const std::string before = get_fields();
    Steps steps;
    add_opening(steps);
    add_lines(steps, "Text field,;Text field,two lines;Checkbox,J\u00e4;Checkbox," + letters.substr(0, 52) +
                         ";" + cut + cut);
    steps.add([] {
        GtkWidget *window = find_window(title);
        EXPECT_EQ(GTK_WIDGET(find_list(window)), gtk_window_get_focus(GTK_WINDOW(window)));
        for (const char *button : {"Edit", "Move up", "Move down", "Delete"})
            EXPECT_FALSE(gtk_widget_is_sensitive(find_button(window, button))) << button;
        return true;
    });
    add_select(steps, 1, false);
    add_select(steps, 2, true);
    add_press(steps, title, "OK");
    EXPECT_TRUE(run());
    EXPECT_EQ(before, get_fields());
}

TEST_F(FieldsWindowTest, OnlyOkTakesTheListOver)
{
    const std::string long_label(60, 'y');
    for (const char *end : {"Cancel", "OK"}) {
        SCOPED_TRACE(end);
        const bool is_ok = std::string(end) == "OK";
        while (z_text_sheet_field *field = row->fields.get_first())
            z_text_sheet_field_destroy(field);
        add_field(Z_TEXT_SHEET_TEXT_FIELD, "");
        add_field(Z_TEXT_SHEET_CHECKBOX, "sv=Ja");
        add_field(Z_TEXT_SHEET_CHECKBOX, "sv=Nej");
        Steps steps;
        add_opening(steps);
        add_press(steps, title, "Add text field");
        add_press(steps, title, "Move up");
        add_press(steps, title, "Add checkbox");
        add_label(steps, "Add checkbox", "In vain", "Cancel");
        add_press(steps, title, "Add checkbox");
        add_label(steps, "Add checkbox", long_label.c_str(), "OK");
        add_lines(steps, "Text field,;Checkbox,Ja;Text field,;Checkbox,Nej;>Checkbox," + long_label + ";");
        add_select(steps, 1, true);
        add_press(steps, title, "Edit");
        add_label(steps, "Edit checkbox", "In vain", "Cancel");
        add_press(steps, title, "Edit");
        add_label(steps, "Edit checkbox", "Kanske", "OK");
        add_lines(steps,
                  "Text field,;>Checkbox,Kanske;Text field,;Checkbox,Nej;Checkbox," + long_label + ";");
        add_select(steps, 0, false);
        add_press(steps, title, "Delete");
        add_select(steps, 1, false);
        add_press(steps, title, "Delete");
        add_press(steps, title, "Move down");
        add_lines(steps, "Checkbox,Kanske;Checkbox," + long_label + ";>Checkbox,Nej;");
        add_press(steps, title, end);
        EXPECT_EQ(is_ok, run());
        EXPECT_EQ(is_ok ? " [] sv=Kanske [] sv=" + long_label + " [] sv=Nej" : " __ [] sv=Ja [] sv=Nej",
                  get_fields());
    }
}

TEST_F(FieldsWindowTest, AnEmptyListLeavesTheRowWithoutFields)
{
    add_field(Z_TEXT_SHEET_CHECKBOX, "sv=Ja");
    Steps steps;
    add_opening(steps);
    add_select(steps, 0, true);
    add_press(steps, title, "Delete");
    add_press(steps, title, "OK");
    EXPECT_TRUE(run());
    EXPECT_EQ("", get_fields());
}

} // namespace
