#include "app/template_gui.h"

#include "app/list_window.h"
#include "common/base/convert.h"
#include "common/base/error.h"
#include "common/gui/message.h"
#include "common/model/template.h"
#include "common/model/template_io.h"
#include "common/workspace/template_list.h"
#include "common/workspace/workspace.h"

using choice = z_template_gui_choice;

static bool is_chosen(const choice &chosen)
{
    return chosen.report_type != nullptr || chosen.segment != nullptr || chosen.block != nullptr ||
           chosen.row != nullptr;
}

// What one window of the chain shows, and where it leads.
template <typename Element>
struct chain_link {
    z_list_window_options options;
    z_langstr_ptr Element::*header;
    const char *untitled; // Stands for an element without a header.
    bool ends_here;       // The choice ends at this level, so that even a single element is asked for.
    std::function<choice(const Element *element)> go_on;
};

static z_utf8_ptr get_line(const z_settings *settings, const z_langstr *header, const char *untitled)
{
    const char *text = z_util_get_langstr_string(settings, header);
    return z_convert_latin1_to_utf8(text != nullptr ? text : untitled);
}

template <typename Element>
static choice run_link(z_window_stack *window_stack, const z_settings *settings,
                       const z_list<Element> &source, const chain_link<Element> &link)
{
    if (source.is_empty()) {
        z_message_show(window_stack, "No available content.");
        return {};
    }
    if (!link.ends_here && source.get_first() == source.get_last())
        return link.go_on(source.get_first());
    std::vector<const Element *> elements;
    std::vector<z_utf8_ptr> lines;
    for (const Element *element : source) {
        elements.push_back(element);
        lines.push_back(get_line(settings, (element->*link.header).get(), link.untitled));
    }
    choice result = {};
    const auto accept = [&](int index) {
        result = link.go_on(elements[static_cast<size_t>(index)]);
        return is_chosen(result);
    };
    return z_list_window_run(window_stack, link.options, lines, accept) ? result : choice{};
}

choice z_template_gui_report_type_window_run(z_window_stack *window_stack, const z_settings *settings,
                                             const z_template *source, z_template_gui_mode mode)
{
    const bool ends_here = mode == Z_TEMPLATE_GUI_ALL_SEGMENTS || mode == Z_TEMPLATE_GUI_REPORT_TYPE;
    const auto go_on = [&](const z_template_report_type *report_type) {
        return ends_here ? choice{.report_type = report_type}
                         : z_template_gui_segment_window_run(window_stack, settings, report_type, mode);
    };
    return run_link<z_template_report_type>(
        window_stack, settings, source->report_types,
        {{"Choose report type", "Select a report type:", "Name", 300, 300},
         &z_template_report_type::name,
         "",
         ends_here,
         go_on});
}

choice z_template_gui_segment_window_run(z_window_stack *window_stack, const z_settings *settings,
                                         const z_template_report_type *source, z_template_gui_mode mode)
{
    const bool ends_here = mode == Z_TEMPLATE_GUI_SEGMENT;
    const auto go_on = [&](const z_text_sheet_segment *segment) {
        return ends_here ? choice{.segment = segment}
                         : z_template_gui_block_window_run(window_stack, settings, segment, mode);
    };
    return run_link<z_text_sheet_segment>(window_stack, settings, source->segments,
                                          {{"Choose segment", "Select a segment:", "Header", 300, 300},
                                           &z_text_sheet_segment::header,
                                           "Untitled segment",
                                           ends_here,
                                           go_on});
}

choice z_template_gui_block_window_run(z_window_stack *window_stack, const z_settings *settings,
                                       const z_text_sheet_segment *source, z_template_gui_mode mode)
{
    const bool ends_here =
        mode == Z_TEMPLATE_GUI_BASIC_DATA_BLOCK || mode == Z_TEMPLATE_GUI_REPORT_TYPE_BLOCK;
    const auto go_on = [&](const z_text_sheet_block *block) {
        return ends_here ? choice{.block = block}
                         : z_template_gui_row_window_run(window_stack, settings, block);
    };
    return run_link<z_text_sheet_block>(window_stack, settings, source->blocks,
                                        {{"Choose block", "Select a block:", "Header", 300, 300},
                                         &z_text_sheet_block::header,
                                         "Untitled block",
                                         ends_here,
                                         go_on});
}

choice z_template_gui_row_window_run(z_window_stack *window_stack, const z_settings *settings,
                                     const z_text_sheet_block *source)
{
    return run_link<z_text_sheet_row>(window_stack, settings, source->rows,
                                      {{"Choose row", "Select a row:", "Header", 300, 300},
                                       &z_text_sheet_row::header,
                                       "",
                                       true,
                                       [](const z_text_sheet_row *row) { return choice{.row = row}; }});
}

// One run of the chain: where the copies go.
struct application {
    z_window_stack *window_stack;
    const z_settings *settings;
    z_template_gui_mode mode;
    z_template *tmpl;
    z_template_report_type *report_type;
    z_text_sheet_segment *segment;
    z_text_sheet_block *block;
};

// Both return false, with the message, when there is nothing to copy.

static bool copy_all_basic_data(const application *self, const z_template *source)
{
    if (!z_text_sheet_segment_has_contents(&source->details)) {
        z_message_show(self->window_stack, "No available content.");
        return false;
    }
    z_text_sheet_segment_copy_contents(&self->tmpl->details, &source->details);
    return true;
}

static bool copy_all_segments(const application *self, const z_template_report_type *source)
{
    if (source->segments.is_empty()) {
        z_message_show(self->window_stack, "No available content.");
        return false;
    }
    for (const z_text_sheet_segment *segment : source->segments)
        z_template_report_type_add_segment(self->report_type, z_text_sheet_segment_clone(segment));
    return true;
}

static choice choose(const application *self, const z_template *source)
{
    if (self->mode == Z_TEMPLATE_GUI_BASIC_DATA_BLOCK || self->mode == Z_TEMPLATE_GUI_BASIC_DATA_ROW)
        return z_template_gui_block_window_run(self->window_stack, self->settings, &source->details,
                                               self->mode);
    return z_template_gui_report_type_window_run(self->window_stack, self->settings, source, self->mode);
}

static bool copy_from(const application *self, const z_template *source)
{
    if (self->mode == Z_TEMPLATE_GUI_ALL_BASIC_DATA)
        return copy_all_basic_data(self, source);
    const choice chosen = choose(self, source);
    if (!is_chosen(chosen))
        return false;
    if (self->mode == Z_TEMPLATE_GUI_ALL_SEGMENTS)
        return copy_all_segments(self, chosen.report_type);
    if (chosen.report_type != nullptr)
        z_template_add_report_type(self->tmpl, z_template_report_type_clone(chosen.report_type));
    else if (chosen.segment != nullptr)
        z_template_report_type_add_segment(self->report_type, z_text_sheet_segment_clone(chosen.segment));
    else if (chosen.block != nullptr)
        z_text_sheet_segment_add_block(self->segment, z_text_sheet_block_clone(chosen.block));
    else
        z_text_sheet_block_add_row(self->block, z_text_sheet_row_clone(chosen.row));
    return true;
}

// The file is read from disk at this moment: changes that are not saved yet are not offered.
static bool copy_from_file(const application *self, const char *path)
{
    const z_template_ptr source = z_template_io_read_from_file(path);
    if (source == nullptr) {
        z_error_append_utf8_printf("Error when loading template file:\n%s", path);
        z_message_show_error(self->window_stack, z_error_get());
        return false;
    }
    return copy_from(self, source.get());
}

bool z_template_gui_apply_template_to_template(z_window_stack *window_stack, const z_workspace *workspace,
                                               z_template_gui_mode mode, z_template *target,
                                               z_template_report_type *target_report_type,
                                               z_text_sheet_segment *target_segment,
                                               z_text_sheet_block *target_block)
{
    const application self = {window_stack, workspace->settings.get(), mode,
                              target,       target_report_type,        target_segment,
                              target_block};
    std::vector<z_utf8_ptr> paths;
    std::vector<z_utf8_ptr> lines;
    const z_template_list_ptr list = z_template_list_load(workspace);
    for (z_template_list_entry *entry : list->entries) {
        paths.push_back(std::move(entry->path));
        lines.push_back(std::move(entry->text));
    }
    const auto accept = [&](int index) {
        return copy_from_file(&self, paths[static_cast<size_t>(index)].get());
    };
    return z_list_window_run(window_stack, {"Choose template", "Select a template:", "Description", 400, 300},
                             lines, accept);
}
