#pragma once

// What the entries of a form's context menu do. The menu shows the entries that the table of its case lists;
// choosing one runs its action on the elements that were clicked.

#include <span>

#include "app/template_gui.h"
#include "common/model/langstr.h"

// The numbers are the menu items' own.
enum class z_text_sheet_action : int {
    add_block = 0,
    add_block_above = 1,
    add_block_below = 2,
    add_row = 3,
    add_row_above = 4,
    add_row_below = 5,
    add_segment = 6,
    add_segment_above = 7,
    add_segment_below = 8,
    delete_block = 9,
    delete_block_header = 10,
    delete_row = 11,
    delete_segment = 12,
    delete_segment_header = 13,
    edit_block_header = 14,
    edit_row_header = 15,
    edit_segment_header = 16,
    move_block_down = 17,
    move_block_up = 18,
    move_row_down = 19,
    move_row_up = 20,
    move_segment_down = 21,
    move_segment_up = 22,
    read_everything = 23,
    read_block = 24,
    read_row = 25,
    read_segment = 26,
    set_up_fields = 27,
};

// What was clicked, and where it belongs. The report type is null in the basic data; of segment, block and
// row the clicked one is the innermost that is set, and none is set for the "Add segments" label.
struct z_text_sheet_target {
    z_window_stack *window_stack;
    z_workspace *workspace;
    z_template *tmpl;
    z_template_report_type *report_type;
    z_text_sheet_segment *segment;
    z_text_sheet_block *block;
    z_text_sheet_row *row;
};

// One line of a menu; without a label it is a separator.
struct z_text_sheet_menu_entry {
    const char *label;
    z_text_sheet_action action;
    // Whether the line belongs into this menu, and whether it can be chosen; null for always.
    bool (*is_shown)(const z_text_sheet_target *target);
    bool (*is_sensitive)(const z_text_sheet_target *target);
};

[[nodiscard]] std::span<const z_text_sheet_menu_entry>
z_text_sheet_action_get_menu(const z_text_sheet_target *target);

// The windows that actions open. Tests put others in their place.
struct z_text_sheet_dialogs {
    // Edits a header in place; true if it was accepted.
    bool (*edit_header)(const z_text_sheet_target *target, const char *label, bool allow_empty,
                        z_langstr_ptr &header);
    bool (*ask)(const z_text_sheet_target *target, const char *question);
    bool (*set_up_fields)(const z_text_sheet_target *target);
    bool (*read_from_template)(const z_text_sheet_target *target, z_template_gui_mode mode);
};
extern z_text_sheet_dialogs z_text_sheet_action_dialogs;

// Returns whether the form was changed; the target's elements may be gone then.
[[nodiscard]] bool z_text_sheet_action_run(const z_text_sheet_target *target, z_text_sheet_action action);
