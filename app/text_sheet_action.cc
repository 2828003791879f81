#include "app/text_sheet_action.h"

#include "app/text_sheet_fields_gui.h"
#include "common/gui/langstr_window.h"
#include "common/gui/message.h"
#include "common/model/template.h"
#include "common/workspace/workspace.h"

using target_t = const z_text_sheet_target *;

static bool run_header_window(target_t target, const char *label, bool allow_empty, z_langstr_ptr &header)
{
    return z_langstr_window_run(target->window_stack, target->workspace->settings->preferred_languages,
                                header, {.label = label, .allow_empty = allow_empty});
}

static bool ask_question(target_t target, const char *question)
{
    return z_message_ask_yes_no_question(target->window_stack, z_answer_if_closed::no,
                                         z_question_icon::question, question);
}

static bool run_fields_window(target_t target)
{
    return z_text_sheet_fields_gui_run(target->window_stack, target->workspace->settings.get(), target->row);
}

static bool run_template_window(target_t target, z_template_gui_mode mode)
{
    return z_template_gui_apply_template_to_template(target->window_stack, target->workspace, mode,
                                                     target->tmpl, target->report_type, target->segment,
                                                     target->block);
}

z_text_sheet_dialogs z_text_sheet_action_dialogs = {run_header_window, ask_question, run_fields_window,
                                                    run_template_window};

// When an entry is shown or can be chosen.

static bool has_row_above(target_t target)
{
    return !z_link_is_first(target->row);
}

static bool has_row_below(target_t target)
{
    return !z_link_is_last(target->row);
}

static bool has_block_above(target_t target)
{
    return !z_link_is_first(target->block);
}

static bool has_block_below(target_t target)
{
    return !z_link_is_last(target->block);
}

static bool has_segment_above(target_t target)
{
    return !z_link_is_first(target->segment);
}

static bool has_segment_below(target_t target)
{
    return !z_link_is_last(target->segment);
}

static bool has_block_header(target_t target)
{
    return target->block->header != nullptr;
}

static bool has_no_block_header(target_t target)
{
    return target->block->header == nullptr;
}

static bool is_basic_data(target_t target)
{
    return target->report_type == nullptr;
}

static bool is_report_type(target_t target)
{
    return target->report_type != nullptr;
}

static bool is_titled_segment(target_t target)
{
    return is_report_type(target) && target->segment->header != nullptr;
}

static bool is_untitled_segment(target_t target)
{
    return is_report_type(target) && target->segment->header == nullptr;
}

using action = z_text_sheet_action;

// A separator's action is never run.
static constexpr z_text_sheet_menu_entry separator = {nullptr, action{}, nullptr, nullptr};
static constexpr z_text_sheet_menu_entry report_type_separator = {nullptr, action{}, is_report_type, nullptr};

static const z_text_sheet_menu_entry row_menu[] = {
    {"Edit row header", action::edit_row_header, nullptr, nullptr},
    {"Set up fields", action::set_up_fields, nullptr, nullptr},
    separator,
    {"Move row up", action::move_row_up, nullptr, has_row_above},
    {"Move row down", action::move_row_down, nullptr, has_row_below},
    {"Delete row", action::delete_row, nullptr, nullptr},
    separator,
    {"Add row above", action::add_row_above, nullptr, nullptr},
    {"Add row below", action::add_row_below, nullptr, nullptr},
};

static const z_text_sheet_menu_entry block_menu[] = {
    {"Edit block header", action::edit_block_header, has_block_header, nullptr},
    {"Delete block header", action::delete_block_header, has_block_header, nullptr},
    {"Set block header", action::edit_block_header, has_no_block_header, nullptr},
    {"Add row", action::add_row, nullptr, nullptr},
    separator,
    {"Read one row from a template", action::read_row, nullptr, nullptr},
    separator,
    {"Move block up", action::move_block_up, nullptr, has_block_above},
    {"Move block down", action::move_block_down, nullptr, has_block_below},
    {"Delete block", action::delete_block, nullptr, nullptr},
    separator,
    {"Add block above", action::add_block_above, nullptr, nullptr},
    {"Add block below", action::add_block_below, nullptr, nullptr},
};

static const z_text_sheet_menu_entry segment_menu[] = {
    {"Edit segment header", action::edit_segment_header, is_titled_segment, nullptr},
    {"Delete segment header", action::delete_segment_header, is_titled_segment, nullptr},
    {"Set segment header", action::edit_segment_header, is_untitled_segment, nullptr},
    {"Add block", action::add_block, nullptr, nullptr},
    separator,
    {"Read one block from a template", action::read_block, nullptr, nullptr},
    {"Read all basic data blocks from a template", action::read_everything, is_basic_data, nullptr},
    report_type_separator,
    {"Move segment up", action::move_segment_up, is_report_type, has_segment_above},
    {"Move segment down", action::move_segment_down, is_report_type, has_segment_below},
    {"Delete segment", action::delete_segment, is_report_type, nullptr},
    report_type_separator,
    {"Add segment above", action::add_segment_above, is_report_type, nullptr},
    {"Add segment below", action::add_segment_below, is_report_type, nullptr},
};

static const z_text_sheet_menu_entry add_segments_menu[] = {
    {"Add segment", action::add_segment, nullptr, nullptr},
    separator,
    {"Read one segment from a template", action::read_segment, nullptr, nullptr},
    {"Read all segments of one report type from a template", action::read_everything, nullptr, nullptr},
};

std::span<const z_text_sheet_menu_entry> z_text_sheet_action_get_menu(target_t target)
{
    if (target->row != nullptr)
        return row_menu;
    if (target->block != nullptr)
        return block_menu;
    if (target->segment != nullptr)
        return segment_menu;
    return add_segments_menu;
}

enum class header_kind { segment, block, row };

// Only a row must have a header; the form shows a substitute for the others.
static bool ask_for_header(target_t target, header_kind kind, z_langstr_ptr &header)
{
    const char *label = kind == header_kind::segment ? "Segment header"
                        : kind == header_kind::block ? "Block header"
                                                     : "Row header";
    return z_text_sheet_action_dialogs.edit_header(target, label, kind != header_kind::row, header);
}

static bool add_segment(target_t target, action place)
{
    z_langstr_ptr header;
    if (!ask_for_header(target, header_kind::segment, header))
        return false;
    z_text_sheet_segment_ptr segment = z_text_sheet_segment_new(header.get());
    if (place == action::add_segment_above)
        z_text_sheet_segment_add_before(std::move(segment), target->segment);
    else if (place == action::add_segment_below)
        z_text_sheet_segment_add_after(std::move(segment), target->segment);
    else
        z_template_report_type_add_segment(target->report_type, std::move(segment));
    return true;
}

static bool add_block(target_t target, action place)
{
    z_langstr_ptr header;
    if (!ask_for_header(target, header_kind::block, header))
        return false;
    z_text_sheet_block_ptr block = z_text_sheet_block_new(header.get());
    if (place == action::add_block_above)
        z_text_sheet_block_add_before(std::move(block), target->block);
    else if (place == action::add_block_below)
        z_text_sheet_block_add_after(std::move(block), target->block);
    else
        z_text_sheet_segment_add_block(target->segment, std::move(block));
    return true;
}

// A new row can be written into at once.
static bool add_row(target_t target, action place)
{
    z_langstr_ptr header;
    if (!ask_for_header(target, header_kind::row, header))
        return false;
    z_text_sheet_row_ptr row = z_text_sheet_row_new(header.get());
    z_text_sheet_row_add_field(row.get(), z_text_sheet_field_new(Z_TEXT_SHEET_TEXT_FIELD));
    if (place == action::add_row_above)
        z_text_sheet_row_add_before(std::move(row), target->row);
    else if (place == action::add_row_below)
        z_text_sheet_row_add_after(std::move(row), target->row);
    else
        z_text_sheet_block_add_row(target->block, std::move(row));
    return true;
}

// The element keeps its header until the new one is accepted.
template <typename Element>
static bool edit_header(target_t target, header_kind kind, Element *element,
                        void (*set_header)(Element *element, z_langstr_ptr header))
{
    z_langstr_ptr header = z_langstr_clone(element->header.get());
    if (!ask_for_header(target, kind, header))
        return false;
    set_header(element, std::move(header));
    return true;
}

template <typename Element>
static bool destroy_if_wanted(target_t target, const char *question, Element *element,
                              void (*destroy)(Element *))
{
    if (!z_text_sheet_action_dialogs.ask(target, question))
        return false;
    destroy(element);
    return true;
}

template <typename Element>
static bool clear_header_if_wanted(target_t target, const char *question, Element *element,
                                   void (*set_header)(Element *element, z_langstr_ptr header))
{
    if (!z_text_sheet_action_dialogs.ask(target, question))
        return false;
    set_header(element, nullptr);
    return true;
}

static bool read_from_template(target_t target, z_template_gui_mode basic_data_mode,
                               z_template_gui_mode report_type_mode)
{
    const z_template_gui_mode mode = is_basic_data(target) ? basic_data_mode : report_type_mode;
    return z_text_sheet_action_dialogs.read_from_template(target, mode);
}

bool z_text_sheet_action_run(target_t target, action chosen)
{
    switch (chosen) {
    case action::add_block:
    case action::add_block_above:
    case action::add_block_below:
        return add_block(target, chosen);
    case action::add_row:
    case action::add_row_above:
    case action::add_row_below:
        return add_row(target, chosen);
    case action::add_segment:
    case action::add_segment_above:
    case action::add_segment_below:
        return add_segment(target, chosen);
    case action::delete_block:
        return destroy_if_wanted(target, "Do you really want to delete this entire block?", target->block,
                                 z_text_sheet_block_destroy);
    case action::delete_block_header:
        return clear_header_if_wanted(target, "Do you really want to delete the block header?", target->block,
                                      z_text_sheet_block_set_header);
    case action::delete_row:
        return destroy_if_wanted(target, "Do you really want to delete this row?", target->row,
                                 z_text_sheet_row_destroy);
    case action::delete_segment:
        return destroy_if_wanted(target, "Do you really want to delete this entire segment?", target->segment,
                                 z_text_sheet_segment_destroy);
    case action::delete_segment_header:
        return clear_header_if_wanted(target, "Do you really want to delete the segment header?",
                                      target->segment, z_text_sheet_segment_set_header);
    case action::edit_block_header:
        return edit_header(target, header_kind::block, target->block, z_text_sheet_block_set_header);
    case action::edit_row_header:
        return edit_header(target, header_kind::row, target->row, z_text_sheet_row_set_header);
    case action::edit_segment_header:
        return edit_header(target, header_kind::segment, target->segment, z_text_sheet_segment_set_header);
    case action::move_block_down:
        return z_text_sheet_block_move_down(target->block);
    case action::move_block_up:
        return z_text_sheet_block_move_up(target->block);
    case action::move_row_down:
        return z_text_sheet_row_move_down(target->row);
    case action::move_row_up:
        return z_text_sheet_row_move_up(target->row);
    case action::move_segment_down:
        return z_text_sheet_segment_move_down(target->segment);
    case action::move_segment_up:
        return z_text_sheet_segment_move_up(target->segment);
    case action::read_everything:
        return read_from_template(target, Z_TEMPLATE_GUI_ALL_BASIC_DATA, Z_TEMPLATE_GUI_ALL_SEGMENTS);
    case action::read_block:
        return read_from_template(target, Z_TEMPLATE_GUI_BASIC_DATA_BLOCK, Z_TEMPLATE_GUI_REPORT_TYPE_BLOCK);
    case action::read_row:
        return read_from_template(target, Z_TEMPLATE_GUI_BASIC_DATA_ROW, Z_TEMPLATE_GUI_REPORT_TYPE_ROW);
    case action::read_segment:
        return z_text_sheet_action_dialogs.read_from_template(target, Z_TEMPLATE_GUI_SEGMENT);
    case action::set_up_fields:
        return z_text_sheet_action_dialogs.set_up_fields(target);
    }
    return false;
}
