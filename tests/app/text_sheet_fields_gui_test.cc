#include "app/text_sheet_fields_gui.h"

#include "tests/support/form_text.h"
#include "tests/support/lists.h"
#include "tests/support/workspace_sandbox.h"

namespace {

using FieldsWindowTest = WorkspaceSandboxTest;

TEST_F(FieldsWindowTest, ListsTheFieldsInShortAndKeepsThemAfterCancel)
{
    const char title[] = "Set up fields";
    const z_text_sheet_row_ptr row = z_text_sheet_row_new(langstr_from_text("sv=Row").get());
    const std::string letters(53, 'x');
    const std::pair<uint32_t, std::string> fields[] = {{Z_TEXT_SHEET_TEXT_FIELD, "sv= two \n lines "},
                                                       {Z_TEXT_SHEET_CHECKBOX, "en=Yes|sv=J\xe4"},
                                                       {Z_TEXT_SHEET_CHECKBOX, "sv=" + letters.substr(1)},
                                                       {Z_TEXT_SHEET_CHECKBOX, "sv=" + letters}};
    for (const auto &[kind, text] : fields) {
        z_text_sheet_row_add_field(row.get(), z_text_sheet_field_new(kind));
        z_text_sheet_field_set_text(row->fields.get_last(), langstr_from_text(text));
    }
    const std::string before = text_from_row(row.get());
    const std::string others =
        "Checkbox," + letters.substr(1) + ";Checkbox," + letters.substr(0, 50) + "...;";
    Steps steps;
    steps.add_in(title, [&](GtkWidget *window) {
        EXPECT_EQ("Text field,two lines;Checkbox,J\u00e4;" + others, get_list_lines(window));
        for (const bool is_editable : {false, true}) {
            select_line(window, is_editable);
            EXPECT_EQ(is_editable, gtk_widget_is_sensitive(find_button(window, "Edit")));
        }
        activate_line(window, 1);
        return true;
    });
    steps.add([] { return enter("Edit checkbox", "Enter checkbox label: (Required)", "Nej"); });
    steps.add([] { return press_button("Edit checkbox", "OK"); });
    steps.add_in(title, [&](GtkWidget *window) {
        EXPECT_EQ("Text field,two lines;>Checkbox,Nej;" + others, get_list_lines(window));
        return press_button(title, "Delete");
    });
    steps.add([=] { return press_button(title, "Cancel"); });
    EXPECT_FALSE(z_text_sheet_fields_gui_run(stack.get(), context.settings, row.get()));
    EXPECT_EQ(before, text_from_row(row.get()));
}

} // namespace
