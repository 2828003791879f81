#include "app/template_gui.h"

#include <vector>

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

const char block[] = "<block><header lang='sv'>B</header><row><header lang='sv'>W</header></row></block>";
const std::string segment = std::string("<segment><header lang='sv'>S</header>") + block + "</segment>";

struct TemplateGuiTest : WorkspaceSandboxTest {
    TemplateGuiTest()
    {
        write_source("Empty", "", print_report_type("None"));
        write_source("One", std::string(block) + "<block></block>", print_report_type("R", segment));
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
        EXPECT_EQ(meeting.lines.find('>') != std::string::npos,
                  gtk_widget_is_sensitive(find_button(window, "OK")) != 0);
        if (meeting.choice < 0)
            return press_button(title, "Cancel");
        activate_line(window, meeting.choice);
        return true;
    }
    // Works on a new template each time.
    bool run(z_template_gui_mode mode, const std::vector<Meeting> &meetings)
    {
        tmpl = z_template_new();
        z_text_sheet_segment_add_block(&tmpl->details, z_text_sheet_block_new(nullptr));
        z_template_add_report_type(tmpl.get(), z_template_report_type_new(nullptr));
        z_template_report_type *report_type = tmpl->report_types.get_first();

        Steps steps;
        for (const Meeting &meeting : meetings)
            steps.add([meeting] { return meet(meeting); });
        return z_template_gui_apply_template_to_template(stack.get(), workspace.get(), mode, tmpl.get(),
                                                         report_type, &tmpl->details,
                                                         tmpl->details.blocks.get_first());
    }
    z_template_ptr tmpl;
};

const Meeting empty = {"template", "Empty;One;", 0};
const Meeting one = {"template", "Empty;One;", 1};
const Meeting nothing = {"nothing", ""};

TEST_F(TemplateGuiTest, WhatIsAloneIsAskedForOnlyWhereTheChoiceEnds)
{
    const struct {
        z_template_gui_mode mode;
        Meeting last;
        const char *text;
    } cases[] = {
        {Z_TEMPLATE_GUI_ALL_SEGMENTS, {"report type", "R;", 0}, "{}/:sv=S{sv=B(sv=W)}"},
        {Z_TEMPLATE_GUI_BASIC_DATA_BLOCK, {"block", "B;Untitled block;", 0}, "{}{sv=B(sv=W)}/"},
        {Z_TEMPLATE_GUI_REPORT_TYPE_ROW, {"row", "W;", 0}, "{(sv=W)}/"},
        {Z_TEMPLATE_GUI_SEGMENT, {"segment", "S;", 0}, "{}/:sv=S{sv=B(sv=W)}"},
    };
    for (const auto &[mode, last, text] : cases) {
        EXPECT_TRUE(run(mode, {one, last}));
        EXPECT_EQ(text, text_from_template(tmpl.get()));
    }
}

TEST_F(TemplateGuiTest, CancelAndAnEmptyPartLeadBackOneWindow)
{
    const std::pair<z_template_gui_mode, std::vector<Meeting>> ways[] = {
        {Z_TEMPLATE_GUI_BASIC_DATA_ROW,
         {one,
          {"block", "B;Untitled block;", 0},
          {"row", "W;"},
          {"block", ">B;Untitled block;", 1},
          nothing,
          {"block", "B;>Untitled block;"},
          {"template", "Empty;>One;"}}},
        // Where everything is taken, nothing at all is as little.
        {Z_TEMPLATE_GUI_ALL_BASIC_DATA, {empty, nothing, {"template", ">Empty;One;"}}},
        {Z_TEMPLATE_GUI_ALL_SEGMENTS,
         {empty, {"report type", "None;", 0}, nothing, {"template", ">Empty;One;"}}},
    };
    for (const auto &[mode, meetings] : ways) {
        EXPECT_FALSE(run(mode, meetings));
        EXPECT_EQ("{}/", text_from_template(tmpl.get()));
    }
}

TEST_F(TemplateGuiTest, TheFileIsReadWhenItIsChosen)
{
    const std::string file = path(get_name("One"));
    Steps steps;
    steps.add_in("Choose template", [=](GtkWidget *window) {
        std::filesystem::remove(to_path(file));
        activate_line(window, 1);
        return true;
    });
    steps.add([=] {
        return dismiss_error("Error when loading template file:\n" + file +
                             "\n\nError loading template "
                             "file.\n\nCannot open file.\n\nError 2: No such file or directory");
    });
    steps.add_in("Choose template", [this](GtkWidget *window) {
        write_source("One", "<block></block>", print_report_type("R"));
        activate_line(window, 1);
        return true;
    });
    EXPECT_TRUE(run(Z_TEMPLATE_GUI_ALL_BASIC_DATA, {}));
    EXPECT_EQ("{}{}/", text_from_template(tmpl.get()));
}

} // namespace
