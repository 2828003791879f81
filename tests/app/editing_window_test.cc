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

struct EditingWindowTest : WorkspaceSandboxTest {
    bool run()
    {
        return run_editing_window(&context, path(file_name).c_str());
    }
    static bool save()
    {
        return press_button(title, "Save template");
    }
};

// Not even the codesets' file names, which the input cannot hold as they are.
TEST_F(EditingWindowTest, WhatIsRefusedChangesNothingAndCanBeMended)
{
    const std::string codesets = "\n\t<codesets>\n\t\t<codeset filename=\"a,b.codeset\"/>\n"
                                 "\t\t<codeset filename=\" c  d\xA0.codeset\"/>\n\t</codesets>\n";
    const std::string report_types = print_report_type("R", "\t\t<segment>\n\t\t</segment>\n");
    const std::string file = print_template("N", codesets, report_types);
    write_file(file_name, file);
    const FsFaults calls;
    const auto check_replaceable = z_fs.check_replaceable;
    std::string codesets_text;
    z_text_sheet_block *block = nullptr;
    Steps steps;
    steps.add([&] {
        if (!enter(title, name_label, "New name"))
            return false;
        codesets_text = gtk_entry_get_text(GTK_ENTRY(find_input(find_window(title), codesets_label)));
        GtkWidget *page = gtk_notebook_get_nth_page(find_notebook(title), 1);
        auto *editor = TEXT_SHEET_EDITOR(gtk_bin_get_child(GTK_BIN(page)));
        z_text_sheet_segment *segment = text_sheet_editor_get_report_type(editor)->segments.get_first();
        z_text_sheet_segment_add_block(segment, z_text_sheet_block_new(nullptr));
        block = segment->blocks.get_first();
        z_text_sheet_block_add_row(block, z_text_sheet_row_new(nullptr));
        return enter(title, codesets_label, "other.codeset") && save();
    });
    steps.add([] { return dismiss_error("Error parsing template file.\n\nMissing XML node: header"); });
    steps.add([&] {
        z_text_sheet_block_destroy(block);
        z_fs.check_replaceable = [](const char *, int *) { return errno = EACCES, -1; };
        return save();
    });
    steps.add([&, file] {
        EXPECT_EQ(file, read_file(file_name));
        z_fs.check_replaceable = check_replaceable;
        return dismiss_error("Cannot access file.\n\nCannot unlink file.\n\nError 13: Permission denied");
    });
    steps.add([&] { return enter(title, codesets_label, codesets_text) && save(); });
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

// Another window, or another program, may make, change or delete the file while this one has it open.
TEST_F(EditingWindowTest, AsksBeforeAForeignChangeIsLost)
{
    const std::string ours = print_template("Ours");
    const std::string theirs = print_template("Theirs");
    const std::string question =
        "A file with that name already exists. Really overwrite?\n\n" + path(file_name);
    write_file(file_name, print_template("Old"));
    Steps steps;
    steps.add([] { return enter(title, name_label, "Ours"); });
    for (const char *button : {"No", "Yes"}) {
        steps.add([&] { return write_file(file_name, theirs) != "" && save(); });
        steps.add([&, button] {
            EXPECT_EQ(theirs, read_file(file_name));
            return answer("Question", question, button);
        });
    }
    EXPECT_TRUE(run());
    EXPECT_EQ(ours, read_file(file_name));

    steps.add([this] {
        return find_window(title) != nullptr && std::filesystem::remove(root / to_path(file_name)) && save();
    });
    EXPECT_TRUE(run());
    EXPECT_EQ(ours, read_file(file_name));
}

TEST_F(EditingWindowTest, DeletedRowsGiveBackTheRoomThatTheyForced)
{
    write_file(file_name, print_template("A"));
    int height_px = 0;
    Steps steps;
    const auto add_rows_and_delete_them = [&](const char *window_title) {
        const auto get_height = [](GtkWidget *window) { return gtk_widget_get_allocated_height(window); };
        steps.add_in(window_title, [=, &height_px](GtkWidget *window) {
            height_px = get_height(window);
            return true;
        });
        for (const char *button : {" + ", "\u2212"}) {
            for (int i = 0; i < 8; ++i)
                steps.add([=] { return press_button(window_title, button); });
            steps.add_in(window_title, [=, &height_px](GtkWidget *window) {
                return (get_height(window) > height_px) == (*button == ' ');
            });
        }
    };
    add_rows_and_delete_them(title);
    steps.add([] { return press_button(title, "New"); });
    add_rows_and_delete_them("Name the new report type");
    steps.add([] { return press_button("Name the new report type", "Cancel"); });
    steps.add([] { return press_button(title, "Close"); });
    steps.add([] { return press_button("Really close?", "Close"); });
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
    steps.add_in(title, [](GtkWidget *window) {
        EXPECT_EQ(name_label, get_input_label(gtk_window_get_focus(GTK_WINDOW(window))));
        GtkRequisition least;
        gtk_widget_get_preferred_size(window, &least, nullptr);
        EXPECT_LE(least.width, 638);
        EXPECT_LE(least.height, z_gui_get_room_for_window(window).height_px - 180);
        EXPECT_GE(gtk_widget_get_allocated_height(gtk_notebook_get_nth_page(find_notebook(title), 0)), 280);
        return press_button(title, "Close");
    });
    steps.add([] { return press_button("Really close?", "Close"); });
    EXPECT_FALSE(run());
}

} // namespace
