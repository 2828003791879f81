#include "app/workspace_gui.h"

#include "app/user_session.h"
#include "common/base/fs_path.h"
#include "common/gui/native_chooser.h"
#include "tests/support/workspace_sandbox.h"

namespace {

const char title[] = "Zanvel";
const std::string filesystem_root = SandboxTest::to_text(std::filesystem::temp_directory_path().root_path());

struct WorkspaceGuiTest : UserSandboxTest {
    void add_press(const char *button)
    {
        steps.add([button] { return press_button(title, button); });
    }
    const z_window_stack_ptr stack = z_window_stack_new();
    Steps steps;
};

TEST_F(WorkspaceGuiTest, ARefusedPlaceLeadsBackToTheFirstPage)
{
    const std::string taken =
        "There is already a folder or a file with that name.\n\nPlease choose a new location.";
    const std::string nowhere = "Cannot access the specified location.";
    write_file("home/file", "");
    write_file("install/codesets", "a file where a folder belongs");
    const std::pair<std::string, std::string> cases[] = {
        {"relative/place", nowhere},
        {path(std::string(300, 'x')), nowhere + "\n\n"},
        {" " + path("home/file") + std::string(2, z_fs_path_delimiter) + " ", taken},
        {filesystem_root, taken},
        {path("home/new/place"), "Creating a workspace at the chosen location failed."},
    };
    for (const auto &[place, message] : cases) {
        add_press("Next");
        steps.add([place = place] { return enter(title, "Workspace location", place); });
        add_press("Apply");
        steps.add_in("Error", [message = message](GtkWidget *dialog) {
            const std::string text = get_label_texts(dialog);
            EXPECT_TRUE(text.starts_with(message.ends_with("\n") ? message : message + "\nClose")) << text;
            return press_button("Error", "Close");
        });
    }
    add_press("Next");
    steps.add([] { return close_window(title); });
    EXPECT_FALSE(z_workspace_gui_create_workspace(stack.get()));
    EXPECT_EQ("none", saved_path());
}

TEST_F(WorkspaceGuiTest, BrowsingProposesAPlaceInTheChosenFolder)
{
    const auto real = z_native_chooser_run;
    z_native_chooser_run = [](const z_native_chooser_request &request) {
        EXPECT_STREQ("Select a parent folder for your workspace", request.title);
        return z_native_chooser_answer{.paths = {filesystem_root}};
    };
    add_press("Next");
    add_press("Browse...");
    steps.add_in(title, [](GtkWidget *window) {
        EXPECT_EQ(filesystem_root + "Zanvel Workspace",
                  gtk_entry_get_text(GTK_ENTRY(find_input(window, "Workspace location"))));
        return true;
    });
    steps.add([this] {
        return enter(title, "Workspace location", "\t" + path("home/a b") + z_fs_path_delimiter + " ");
    });
    add_press("Apply");
    // Escape on the last page ends it just as well.
    steps.add_in(title, [](GtkWidget *window) {
        if (!gtk_widget_get_mapped(find_button(window, "Close")))
            return false;
        press_key(window, GDK_KEY_Escape);
        return true;
    });
    EXPECT_TRUE(z_workspace_gui_create_workspace(stack.get()));
    EXPECT_EQ(path("home/a b"), saved_path());
    z_native_chooser_run = real;
}

// Going on past the reason would lose the way to a workspace that is there; cancelling must not.
TEST_F(WorkspaceGuiTest, TheSessionTellsAnObstacleFirstAndNothingOfAWorkspaceThatHasGone)
{
    write_file("own/templates", "");
    for (const char *saved : {"own", "gone"}) {
        ASSERT_TRUE(z_workspace_save_folder_path(path(saved).c_str()));
        if (saved == std::string("own"))
            steps.add([] { return dismiss_error("Cannot open folder.\n\nError 20: Not a directory"); });
        add_press("Cancel");
        EXPECT_EQ(nullptr, z_user_session_start(stack.get()));
        EXPECT_EQ(path(saved), saved_path());
    }
    for (const char *button : {"Next", "Apply", "Close"})
        add_press(button);
    const z_workspace_ptr workspace = z_user_session_start(stack.get());
    ASSERT_NE(nullptr, workspace);
    EXPECT_EQ(path("home/Documents/Zanvel Workspace"), workspace->folder_path.get());
}

} // namespace
