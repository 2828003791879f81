#include "app/editing_window.h"

#include <cerrno>
#include <memory>

#include "app/text_sheet_editor.h"
#include "common/base/fs_system.h"
#include "common/gui/gui_window.h"
#include "common/model/supported_languages.h"
#include "common/model/template.h"
#include "tests/support/fs_faults.h"
#include "tests/support/workspace_sandbox.h"

namespace {

const char file_name[] = "workspace/templates/a.template";
const char title[] = "Edit template - a.template";
const char name_label[] = "Template name: (Required)";
const char codesets_label[] = "Codeset file name(s), comma-separated:";
const char closing_question[] = "Are you sure you want to close the template without saving?";

struct EditingWindowTest : WorkspaceSandboxTest {
    bool run()
    {
        return run_editing_window(&context, path(file_name).c_str());
    }
    static bool save()
    {
        return press_button(title, "Save template");
    }
    static GtkWidget *page(int number)
    {
        return gtk_notebook_get_nth_page(find_notebook(title), number);
    }
    static void add_report_type(Steps &steps, const std::string &name)
    {
        steps.add([] { return press_button(title, "New"); });
        steps.add([name] { return enter("Name the new report type", "Report type: (Required)", name); });
        steps.add([] { return press_button("Name the new report type", "OK"); });
    }
};

// Not even the codesets' file names, which the input cannot hold as they are.
TEST_F(EditingWindowTest, WhatIsRefusedChangesNothingAndCanBeMended)
{
    const std::string codesets = "\n\t<codesets>\n\t\t<codeset filename=\"a,b.codeset\"/>\n"
                                 "\t\t<codeset filename=\" c  d\xA0.codeset\"/>\n\t</codesets>\n";
    const std::string report_types = print_report_type("R", "\t\t<segment>\n\t\t</segment>\n");
    const std::string file = print_template("N", "\t<version>1</version>\n" + codesets, report_types);
    write_file(file_name, file);
    const FsFaults calls;
    const auto check_replaceable = z_fs.check_replaceable;
    std::string codesets_text;
    z_text_sheet_block *block = nullptr;
    Steps steps;
    const auto add_refusal = [&](const char *message) {
        steps.add(save);
        steps.add([this, message, file] {
            EXPECT_EQ(file, read_file(file_name));
            return dismiss_error(message);
        });
    };
    steps.add([] { return enter(title, name_label, " "); });
    add_refusal("The template must have a name.");
    steps.add([&] {
        codesets_text = gtk_entry_get_text(GTK_ENTRY(find_input(find_window(title), codesets_label)));
        auto *editor = TEXT_SHEET_EDITOR(gtk_bin_get_child(GTK_BIN(page(1))));
        z_text_sheet_segment *segment = text_sheet_editor_get_report_type(editor)->segments.get_first();
        z_text_sheet_segment_add_block(segment, z_text_sheet_block_new(nullptr));
        block = segment->blocks.get_first();
        z_text_sheet_block_add_row(block, z_text_sheet_row_new(nullptr));
        return enter(title, name_label, "New name") && enter(title, codesets_label, "other.codeset");
    });
    add_refusal("Error parsing template file.\n\nMissing XML node: header");
    steps.add([&] {
        z_text_sheet_block_destroy(block);
        z_fs.check_replaceable = [](const char *, int *) { return errno = EACCES, -1; };
        return true;
    });
    add_refusal("Cannot access file.\n\nCannot unlink file.\n\nError 13: Permission denied");
    steps.add([&] {
        z_fs.check_replaceable = check_replaceable;
        return enter(title, codesets_label, codesets_text) && enter(title, "Version:", " ") && save();
    });
    EXPECT_TRUE(run());
    EXPECT_EQ(print_template("New name", codesets, report_types), read_file(file_name));
}

TEST_F(EditingWindowTest, AWriteThatFailsAnywhereLosesNothingAndCanBeTriedAgain)
{
    const std::string old_file = print_template("Old");
    const std::string new_file = print_template("New");
    bool has_struck = true;
    for (int step = 0; has_struck; ++step) {
        SCOPED_TRACE(step);
        write_file(file_name, old_file);
        std::unique_ptr<FsFaults> faults;
        bool is_over = false;
        Steps steps;
        steps.add([&] {
            if (!enter(title, name_label, "New"))
                return false;
            faults = std::make_unique<FsFaults>(step);
            return save();
        });
        steps.add([&] { // Refused with the window left open, or saved.
            const bool is_refused = find_window("Error") != nullptr;
            if (!is_refused && find_window(title) != nullptr)
                return false;
            is_over = true;
            has_struck = faults->has_struck();
            faults.reset();
            EXPECT_EQ(is_refused ? old_file : new_file, read_file(file_name));
            EXPECT_EQ(size_t{1}, list("workspace/templates").size());
            if (is_refused)
                steps.add(save);
            return !is_refused || press_button("Error", "Close");
        });
        EXPECT_TRUE(run());
        EXPECT_TRUE(run_until([&] { return is_over; }));
        EXPECT_EQ(new_file, read_file(file_name));
    }
}

TEST_F(EditingWindowTest, AFileThatCannotBeOpenedIsExplained)
{
    write_file(file_name, "<template><name lang='sv'>N</name></template>");
    Steps steps;
    steps.add([this] {
        return dismiss_error("Error when loading the template file:\n\n" + path(file_name) +
                             "\n\nError parsing template file.\n\nMissing report types.");
    });
    EXPECT_FALSE(run());

    const FsFaults no_access(0, EACCES);
    steps.add([this] {
        return dismiss_error("Something went wrong when accessing the template file:\n\n" + path(file_name));
    });
    EXPECT_FALSE(run());
}

// Another window, or another program, may make, change or delete the file while this one has it open.
TEST_F(EditingWindowTest, AsksBeforeAForeignChangeIsLost)
{
    const std::string ours = print_template("Ours");
    const std::string theirs = print_template("Theirs");
    const std::string question =
        "A file with that name already exists. Really overwrite?\n\n" + path(file_name);
    for (const char *before : {"Old", ""}) {
        std::filesystem::remove(root / to_path(file_name));
        if (*before != '\0')
            write_file(file_name, print_template(before));
        Steps steps;
        steps.add([] { return enter(title, name_label, "Ours"); });
        if (*before == '\0')
            add_report_type(steps, "R");
        for (const char *button : {"No", "Yes"}) {
            steps.add([&] { return write_file(file_name, theirs) != "" && save(); });
            steps.add([&, button] {
                EXPECT_EQ(theirs, read_file(file_name));
                return answer("Question", question, button);
            });
        }
        EXPECT_TRUE(run());
        EXPECT_EQ(ours, read_file(file_name));
    }
    Steps steps;
    steps.add([this] {
        return find_window(title) != nullptr && std::filesystem::remove(root / to_path(file_name)) && save();
    });
    EXPECT_TRUE(run());
    EXPECT_EQ(ours, read_file(file_name));
}

TEST_F(EditingWindowTest, DeletedRowsGiveBackTheRoomThatTheyForced)
{
    const char text_title[] = "Name the new report type";
    const auto get_height = [](const char *window_title) {
        int height_px;
        gtk_window_get_size(GTK_WINDOW(find_window(window_title)), nullptr, &height_px);
        return height_px;
    };
    int height_px = 0;
    Steps steps;
    for (const char *each : {title, text_title}) {
        steps.add([each] { return find_window(each) != nullptr; });
        add_pause(steps);
        steps.add([&, each] { return (height_px = get_height(each)) > 0; });
        for (const char *button : {" + ", "\u2212"}) {
            for (int i = 0; i < 8; ++i)
                steps.add([each, button] { return press_button(each, button); });
            steps.add([&, each, is_grown = *button == ' '] {
                int least_px;
                gtk_widget_get_preferred_height(find_window(each), &least_px, nullptr);
                const int now_px = get_height(each);
                return is_grown ? now_px > height_px + 50 && now_px >= least_px : now_px == height_px;
            });
        }
        if (each == title) {
            steps.add([&] {
                EXPECT_EQ(700, height_px);
                return press_button(title, "New");
            });
        }
    }
    steps.add([&] { return press_button(text_title, "Cancel"); });
    steps.add([] { return press_button(title, "Close"); });
    steps.add([] { return answer("Really close?", closing_question, "Close"); });
    EXPECT_FALSE(run());
}

// A name in every language leaves the form its room, and the window fits into a narrow screen.
TEST_F(EditingWindowTest, NamesScrollBeforeTheyTakeTheFormsRoom)
{
    std::string names;
    for (int index = 0; index < z_supported_languages_get_count(); ++index)
        names += std::string("<name lang='") + z_supported_languages_get_tag(index) + "'>" +
                 std::to_string(index) + "</name>";
    write_file(file_name, "<template>" + names + "<details/>" + print_report_type("A") + "</template>");
    Steps steps;
    steps.add([] { return find_window(title) != nullptr; });
    add_pause(steps);
    steps.add([] {
        GtkWidget *window = find_window(title);
        EXPECT_EQ(name_label, get_input_label(gtk_window_get_focus(GTK_WINDOW(window))));
        GtkRequisition least;
        gtk_widget_get_preferred_size(window, &least, nullptr);
        EXPECT_LE(least.width, 638);
        EXPECT_LE(least.height, z_gui_get_room_for_window(window).height_px - 180);
        EXPECT_GE(gtk_widget_get_allocated_height(page(0)), 280);
        return press_button(title, "Close");
    });
    steps.add([] { return answer("Really close?", closing_question, "Close"); });
    EXPECT_FALSE(run());
}

} // namespace
