#pragma once

// Copying parts of another template of the workspace into the one that is being edited: a chain of modal
// windows in which a template is chosen and then, as far as the mode goes down, a report type, a segment, a
// block and a row.
//
//     template -> report type -> segment -> block -> row
//
// A window with only one thing to choose is left out unless the choice ends there. Cancelling a window leads
// back to the one before it.

struct z_settings;
struct z_template;
struct z_template_report_type;
struct z_text_sheet_block;
struct z_text_sheet_row;
struct z_text_sheet_segment;
struct z_window_stack;
struct z_workspace;

// What is copied. The target is what the name says it goes to.
enum z_template_gui_mode {
    Z_TEMPLATE_GUI_ALL_BASIC_DATA = 1,    // all blocks of the basic data, to the template's
    Z_TEMPLATE_GUI_ALL_SEGMENTS = 2,      // all segments of a report type, to the report type
    Z_TEMPLATE_GUI_BASIC_DATA_BLOCK = 3,  // to the segment
    Z_TEMPLATE_GUI_BASIC_DATA_ROW = 4,    // to the block
    Z_TEMPLATE_GUI_REPORT_TYPE_BLOCK = 5, // to the segment
    Z_TEMPLATE_GUI_REPORT_TYPE_ROW = 6,   // to the block
    Z_TEMPLATE_GUI_SEGMENT = 7,           // to the report type
    Z_TEMPLATE_GUI_REPORT_TYPE = 8,       // to the template
};

// Runs the chain. The target gets copies, after what it has already. Returns whether something was added;
// targets that the mode does not use may be null.
[[nodiscard]] bool z_template_gui_apply_template_to_template(z_window_stack *window_stack,
                                                             const z_workspace *workspace,
                                                             z_template_gui_mode mode, z_template *target,
                                                             z_template_report_type *target_report_type,
                                                             z_text_sheet_segment *target_segment,
                                                             z_text_sheet_block *target_block);

// The one element that a chain has ended at, borrowed from its source; all null when nothing was chosen.
struct z_template_gui_choice {
    const z_template_report_type *report_type = nullptr;
    const z_text_sheet_segment *segment = nullptr;
    const z_text_sheet_block *block = nullptr;
    const z_text_sheet_row *row = nullptr;
};

// The rest of the chain from one window on. A source without anything to choose shows a message instead.
[[nodiscard]] z_template_gui_choice z_template_gui_report_type_window_run(z_window_stack *window_stack,
                                                                          const z_settings *settings,
                                                                          const z_template *source,
                                                                          z_template_gui_mode mode);
[[nodiscard]] z_template_gui_choice z_template_gui_segment_window_run(z_window_stack *window_stack,
                                                                      const z_settings *settings,
                                                                      const z_template_report_type *source,
                                                                      z_template_gui_mode mode);
[[nodiscard]] z_template_gui_choice z_template_gui_block_window_run(z_window_stack *window_stack,
                                                                    const z_settings *settings,
                                                                    const z_text_sheet_segment *source,
                                                                    z_template_gui_mode mode);
[[nodiscard]] z_template_gui_choice z_template_gui_row_window_run(z_window_stack *window_stack,
                                                                  const z_settings *settings,
                                                                  const z_text_sheet_block *source);
