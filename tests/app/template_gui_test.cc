#include "app/template_gui.h"

#include <vector>

#include "common/model/template_io.h"
#include "tests/app/form_xml.h"
#include "tests/support/form_text.h"
#include "tests/support/lists.h"
#include "tests/support/workspace_sandbox.h"

namespace {

// A window of the chain that comes up, what it lists, and the line that is chosen there.
struct Meeting {
    std::string kind; // "nothing" for the message that there is nothing to choose.
    std::string lines;
    int choice = -1; // Or "Cancel".
};

struct TemplateGuiTest : WorkspaceSandboxTest {
    TemplateGuiTest()
    {
        write_source("Empty", "", print_report_type("None"));
        write_source("One", print_element("block", "OB", print_row("OW")),
                     print_report_type("OR", print_element("segment", "OS",
                                                           print_element("block", "OB", print_row("OX")))));
        const std::string blocks =
            print_element("block", "B1", print_row("W1") + print_row("W2")) + print_element("block", "");
        write_source(
            "Some", blocks,
            print_report_type("R1", print_element("segment", "S1", blocks) + print_element("segment", "")) +
                print_report_type("R2"));
    }
    void write_source(const std::string &name, const std::string &details,
                      const std::string &report_types) const
    {
        write_file(get_name(name), print_template(name, "<details>" + details + "</details>", report_types));
    }
    static std::string get_name(const std::string &template_name)
    {
        return "workspace/templates/" + template_name + ".template";
    }

    static bool meet(const Meeting &meeting)
    {
        if (meeting.kind == "nothing")
            return answer("Message", "No available content.", "OK");
        const std::string title = "Choose " + meeting.kind;
        GtkWidget *window = find_window(title);
        if (window == nullptr || !gtk_widget_is_sensitive(window))
            return false;
        EXPECT_EQ(meeting.lines, get_list_lines(window)) << title;
        EXPECT_TRUE(get_label_texts(window).starts_with("Select a " + meeting.kind + ":\n"));
        EXPECT_EQ(GTK_WIDGET(find_list(window)), gtk_window_get_focus(GTK_WINDOW(window)));
        EXPECT_EQ(meeting.lines.find('>') != std::string::npos,
                  gtk_widget_is_sensitive(find_button(window, "OK")) != 0);
        if (meeting.choice < 0)
            return press_button(title, "Cancel");
        if (meeting.kind == "template") {
            activate_line(window, meeting.choice);
        } else {
            select_line(window, meeting.choice);
            press_key(window, GDK_KEY_Return);
        }
        return true;
    }
    // Works on a new template each time.
    bool run(int mode, const std::vector<Meeting> &meetings)
    {
        tmpl = z_template_new();
        z_text_sheet_segment_add_block(&tmpl->details, z_text_sheet_block_new(nullptr));
        z_template_add_report_type(tmpl.get(), z_template_report_type_new(nullptr));
        z_template_report_type *report_type = tmpl->report_types.get_first();
        z_template_report_type_add_segment(report_type, z_text_sheet_segment_new(nullptr));
        z_text_sheet_segment *segment = report_type->segments.get_first();
        z_text_sheet_segment_add_block(segment, z_text_sheet_block_new(nullptr));
        const bool is_basic_data = mode == 1 || mode == 3 || mode == 4;
        if (is_basic_data)
            segment = &tmpl->details;

        Steps steps;
        for (const Meeting &meeting : meetings) {
            steps.add([meeting] {
                return meeting.kind == "nothing" || find_window("Choose " + meeting.kind) != nullptr;
            });
            add_pause(steps); // Until nothing is selected.
            steps.add([meeting] { return meet(meeting); });
        }
        return z_template_gui_apply_template_to_template(
            stack.get(), workspace.get(), static_cast<z_template_gui_mode>(mode), tmpl.get(),
            is_basic_data || mode == 8 ? nullptr : report_type, mode >= 3 && mode <= 6 ? segment : nullptr,
            mode == 4 || mode == 6 ? segment->blocks.get_first() : nullptr);
    }
    z_template_ptr tmpl;
};

const Meeting one = {"template", "Empty;One;Some;", 1};
const Meeting some = {"template", "Empty;One;Some;", 2};
const Meeting reports = {"report type", "R1;R2;", 0};
const Meeting segments = {"segment", "S1;Untitled segment;", 0};
const Meeting blocks = {"block", "B1;Untitled block;", 0};
const Meeting nothing = {"nothing", ""};

TEST_F(TemplateGuiTest, EveryModeCopiesWhatIsChosen)
{
    const struct {
        int mode;
        std::vector<Meeting> meetings;
        const char *text;
    } cases[] = {
        {4, {some, blocks, {"row", "W1;W2;", 1}}, "{(sv=W2 _)}/:{}"},
        {7, {some, reports, {"segment", "S1;Untitled segment;", 1}}, "{}/:{}:"},
        // What is alone is asked for where the choice ends, and nowhere else.
        {2, {one, {"report type", "OR;", 0}}, "{}/:{}:sv=OS{sv=OB(sv=OX _)}"},
        {4, {one, {"row", "OW;", 0}}, "{(sv=OW _)}/:{}"},
        {5, {one, {"block", "OB;", 0}}, "{}/:{}{sv=OB(sv=OX _)}"},
        {7, {one, {"segment", "OS;", 0}}, "{}/:{}:sv=OS{sv=OB(sv=OX _)}"},
        {8, {one, {"report type", "OR;", 0}}, "{}/:{}/sv=OR:sv=OS{sv=OB(sv=OX _)}"},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        EXPECT_TRUE(run(each.mode, each.meetings));
        EXPECT_EQ(each.text, text_from_template(tmpl.get()));
    }
}

TEST_F(TemplateGuiTest, CancelAndAnEmptyPartLeadBackOneWindow)
{
    const struct {
        int mode;
        std::vector<Meeting> meetings;
    } ways[] = {{6,
                 {some,
                  reports,
                  segments,
                  blocks,
                  {"row", "W1;W2;"},
                  {"block", ">B1;Untitled block;", 1},
                  nothing,
                  {"block", "B1;>Untitled block;"},
                  {"segment", ">S1;Untitled segment;", 1},
                  nothing,
                  {"segment", "S1;>Untitled segment;"},
                  {"report type", ">R1;R2;", 1},
                  nothing,
                  {"report type", "R1;>R2;"},
                  {"template", "Empty;One;>Some;"}}},
                {6,
                 {one,
                  {"row", "OX;"},
                  {"template", "Empty;>One;Some;", 0},
                  nothing,
                  {"template", ">Empty;One;Some;"}}},
                // Where everything is taken, nothing at all is as little.
                {1, {{"template", "Empty;One;Some;", 0}, nothing, {"template", ">Empty;One;Some;"}}},
                {2, {some, {"report type", "R1;R2;", 1}, nothing, {"template", "Empty;One;>Some;"}}}};
    for (const auto &[mode, meetings] : ways) {
        EXPECT_FALSE(run(mode, meetings));
        EXPECT_EQ("{}/:{}", text_from_template(tmpl.get()));
    }
}

TEST_F(TemplateGuiTest, TheFileIsReadWhenItIsChosen)
{
    const std::string file = path(get_name("Some"));
    Steps steps;
    steps.add([] { return find_window("Choose template") != nullptr; });
    add_pause(steps);
    const auto add_error = [&](const std::string &reason) {
        steps.add([] { return choose_line("Choose template", 2); });
        steps.add(
            [=] { return dismiss_error("Error when loading template file:\n" + file + "\n\n" + reason); });
    };
    steps.add([=] { return std::filesystem::remove(to_path(file)); });
    add_error("Error loading template file.\n\nCannot open file.\n\nError 2: No such file or directory");
    const std::pair<const char *, const char *> contents[] = {
        {"<template><name lang='sv'>N</name></template>",
         "Error parsing template file.\n\nMissing report types."},
        {"<codeset/>", "Not a template file."},
        {"", "Error loading template file."},
    };
    for (const auto &[content, reason] : contents) {
        steps.add([this, content = content] { return !write_file(get_name("Some"), content).empty(); });
        add_error(reason);
    }
    steps.add([this] {
        write_source("Some", print_element("block", "New"), print_report_type("R"));
        return choose_line("Choose template", 2);
    });
    EXPECT_TRUE(run(1, {}));
    EXPECT_EQ("{}{sv=New}/:{}", text_from_template(tmpl.get()));
}

} // namespace
