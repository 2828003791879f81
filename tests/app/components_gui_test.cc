#include "app/components_gui.h"

#include <string>

#include "app/components_copy.h"
#include "common/base/fs_utils.h"
#include "common/gui/file_dialog.h"
#include "common/gui/native_chooser.h"
#include "common/workspace/template_list.h"
#include "tests/support/fs_faults.h"
#include "tests/support/lists.h"
#include "tests/support/workspace_sandbox.h"

namespace {

// The window of the workspace's templates. The desktop's chooser of files gives what the test says.
struct ComponentsTest : WorkspaceSandboxTest {
    ComponentsTest()
    {
        components.window_stack = stack.get();
        components.workspace = workspace.get();
        components.title = "Main";
        components.sub_folder_name = "templates";
        components.file_type = Z_FILE_TYPE_TEMPLATE;
        components.get_item_text = [](const char *path, void *data) {
            return z_template_io_get_ui_text(static_cast<const z_settings *>(data), path);
        };
        components.item_text_context = "";
        components.user_data = context.settings;
        chosen.clear();
        z_native_chooser_run = [](const z_native_chooser_request &) {
            return z_native_chooser_answer{chosen.empty() ? std::vector<std::string>{} : std::vector{chosen}};
        };
    }
    ~ComponentsTest() override
    {
        z_native_chooser_run = real_chooser;
        z_file_dialog_clean_up();
    }

    // After the last step the window is closed.
    void run(Steps &steps) const
    {
        steps.add([] { return close_window("Main"); });
        z_components_gui_main_window_run(&components);
    }
    // What the rows show, the red ones with an exclamation mark.
    static std::string rows()
    {
        GtkTreeView *view = find_list(find_window("Main"));
        GtkTreeModel *model = gtk_tree_view_get_model(view);
        GtkTreeViewColumn *column = gtk_tree_view_get_column(view, 0);
        const z_ptr<GList, g_list_free> renderers(gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(column)));
        std::string shown;
        GtkTreeIter row;
        for (gboolean more = gtk_tree_model_get_iter_first(model, &row); more;
             more = gtk_tree_model_iter_next(model, &row)) {
            gtk_tree_view_column_cell_set_cell_data(column, model, &row, FALSE, FALSE);
            z_utf8_ptr text;
            gboolean is_red;
            g_object_get(renderers->data, "text", static_cast<char **>(z_out(text)), "foreground-set",
                         &is_red, nullptr);
            shown += (is_red ? "!" : "") + std::string(text.get()) + "\n";
        }
        return shown;
    }
    static int get_height()
    {
        return gtk_widget_get_allocated_height(find_window("Main"));
    }
    // After everything that has been started, the list shows these rows and none is selected.
    static void add_check(Steps &steps, const std::string &expected_rows)
    {
        steps.add_in("Main", [expected_rows](GtkWidget *window) {
            EXPECT_EQ(expected_rows, rows());
            EXPECT_EQ(GTK_WIDGET(find_list(window)), gtk_window_get_focus(GTK_WINDOW(window)));
            EXPECT_FALSE(gtk_widget_is_sensitive(find_button(window, "Delete")));
            return true;
        });
    }

    z_components_gui components = {};
    z_native_chooser_answer (*const real_chooser)(const z_native_chooser_request &) = z_native_chooser_run;
    static inline std::string chosen; // Empty cancels the chooser.
};

// A window that a line about broken files has made higher goes back to its size.
TEST_F(ComponentsTest, ShowsTheFolderAsItIs)
{
    write_file("workspace/templates/a.template", print_template("Inspection 10"));
    write_file("workspace/templates/B.TEMPLATE", print_template("inspection 9"));
    const FsFaults calls;
    int height_px = 0;
    Steps steps;
    add_check(steps, "inspection 9\nInspection 10\n");
    steps.add_in("Main", [&](GtkWidget *window) {
        gtk_window_resize(GTK_WINDOW(window), 600, 1); // less than the contents need
        select_line(window, 0);
        EXPECT_STREQ("B.TEMPLATE",
                     gtk_entry_get_text(GTK_ENTRY(find_input(window, "File name of selected item:"))));
        return true;
    });
    steps.add([&] { return (height_px = get_height()) < 400; });
    steps.add([this] {
        write_file("workspace/templates/B.TEMPLATE", "<template>");
        return press_button("Main", "Refresh list");
    });
    steps.add([&] { return get_height() > height_px; });
    add_check(steps, "!B.TEMPLATE\nInspection 10\n");
    steps.add_in("Main", [](GtkWidget *window) {
        z_fs.delete_file = [](const char *) { return -1; };
        select_line(window, 0);
        return press_button("Main", "Delete");
    });
    steps.add([] {
        return answer("Question", "Do you really want to delete \"B.TEMPLATE\" from your workspace?", "Yes");
    });
    steps.add([this] {
        return dismiss_error("Couldn't delete the file.\n\n" + path("workspace/templates/B.TEMPLATE"));
    });
    steps.add([this] {
        std::filesystem::remove_all(root / "workspace/templates");
        return press_button("Main", "Refresh list");
    });
    steps.add([&] { return get_height() == height_px; });
    add_check(steps, "");
    run(steps);
}

TEST_F(ComponentsTest, ALongListingShowsThatTheProgramIsBusy)
{
    write_file("workspace/templates/a.template", "");
    write_file("workspace/templates/b.template", "");
    components.get_item_text = [](const char *, void *) {
        g_usleep(600'000);
        return z_utf8_ptr(g_strdup(find_window("Please wait") != nullptr ? "Busy" : "-"));
    };
    Steps steps;
    add_check(steps, "-\nBusy\n");
    run(steps);
}

TEST_F(ComponentsTest, ANewFilesNameMustBePermittedAndFree)
{
    write_file("workspace/templates/taken.template", print_template("Mine"));
    const std::string too_short =
        "The file name must contain at least one character and then end with \".template\"";
    const std::pair<std::string, std::string> cases[] = {
        {" .template ", too_short},
        {"a\U0001f600.template", "The character \"\U0001f600\" is not permitted."},
        {"taken.template", "That file name is already taken for \"Mine\""},
        {std::string(300, 'x') + ".template", "That file name is already taken."}, // Too long for any folder.
    };
    Steps steps;
    for (const auto &[name, message] : cases) {
        steps.add([name = name] { return enter("Add new", "Enter new file name", name); });
        steps.add([] { return press_button("Add new", "OK"); });
        steps.add([message = message] { return dismiss_error(message); });
    }
    steps.add([] { return enter("Add new", "Enter new file name", "\t0_z.TEMPLATE\u00a0 "); });
    steps.add([] { return press_button("Add new", "OK"); });
    EXPECT_EQ(path("workspace/templates/0_z.TEMPLATE"),
              z_components_gui_get_new_file_path(&components).get());
}

TEST_F(ComponentsTest, TypingGoesInFrontOfTheExtension)
{
    Steps steps;
    steps.add_in("Add new", [](GtkWidget *window) {
        send_focus_change(window, true);
        for (const int key : {GDK_KEY_b, GDK_KEY_Tab, GDK_KEY_Tab, GDK_KEY_Tab, GDK_KEY_a, GDK_KEY_Return})
            press_key(window, static_cast<guint>(key));
        return true;
    });
    EXPECT_EQ(path("workspace/templates/ab.template"), z_components_gui_get_new_file_path(&components).get());
}

TEST_F(ComponentsTest, ACopyHasAnyNameThatTheFolderTakes)
{
    const std::string file = write_file("new/a.template", "anything");
    std::filesystem::remove(root / "workspace/templates");
    components_add_file(&components, file.c_str());
    EXPECT_EQ("anything", read_file("workspace/templates/a.template"));
    const std::string longest = std::string(255 - 9, 'x') + ".template";
    chosen = path(longest);
    components_save_copy_of_file(&components, file.c_str());
    EXPECT_EQ("anything", read_file(longest));
    chosen = path("none/copy.template");
    Steps steps;
    steps.add([] {
        return dismiss_error("An error occured when saving the copy of the file.\n\n" +
                             std::exchange(chosen, ""));
    });
    components_save_copy_of_file(&components, file.c_str());
}

TEST_F(ComponentsTest, ACopyThatFailsAnywhereLeavesWhatWasThere)
{
    using copy = void (*)(const z_components_gui *, const char *source, const char *target);
    const std::pair<const char *, copy> cases[] = {
        {"old",
         [](const z_components_gui *c, const char *from, const char *) { components_add_file(c, from); }},
        {"old",
         [](const z_components_gui *c, const char *from, const char *to) {
             chosen = to;
             components_save_copy_of_file(c, from);
         }},
        {"", components_clone_file},
    };
    const std::string source = write_file("new/a.template", "new");
    const std::string target = path("workspace/templates/a.template");
    static bool has_failed;
    const auto press = +[](gpointer) -> gboolean {
        (void)press_button("Question", "Yes");
        if (press_button("Error", "Close")) {
            chosen.clear();
            has_failed = true;
        }
        return G_SOURCE_CONTINUE;
    };
    const z_source presser(g_timeout_add(2, press, nullptr));
    for (const auto &each : cases) {
        const auto &[before, operation] = each;
        bool has_struck = true;
        for (int step = 0; has_struck; ++step) {
            SCOPED_TRACE(testing::Message() << "case " << &each - cases << ", step " << step);
            std::filesystem::remove(to_path(target));
            if (*before != '\0')
                write_file("workspace/templates/a.template", before);
            has_failed = false;
            const FsFaults faults(step);
            operation(&components, source.c_str(), target.c_str());
            has_struck = faults.has_struck();
            EXPECT_TRUE(has_struck || !has_failed);
            const std::string expected = has_failed ? before : "new";
            EXPECT_EQ(expected, exists("workspace/templates/a.template")
                                    ? read_file("workspace/templates/a.template")
                                    : "");
            EXPECT_EQ(size_t{!expected.empty()}, list("workspace/templates").size());
        }
    }
}

// A file can be spelled in two ways. What appears at the last moment is not replaced without having been
// asked about.
TEST_F(ComponentsTest, CopiesReplaceNeitherThemselvesNorWhatJustAppeared)
{
    const std::string file = write_file("workspace/templates/a.template", print_template("A"));
    z_fs_identity before, after;
    ASSERT_TRUE(z_fs_utils_get_identity(file.c_str(), before));
    const std::string detour = path("workspace/templates/../templates/a.template");
    chosen = detour;
    Steps steps;
    steps.add([&] {
        return answer("Question", "A file with that name already exists. Really overwrite?\n\n" + detour,
                      "Yes");
    });
    components_add_file(&components, detour.c_str());
    components_save_copy_of_file(&components, file.c_str());
    ASSERT_TRUE(z_fs_utils_get_identity(file.c_str(), after));
    EXPECT_EQ(before, after);

    const FsFaults calls;
    static int (*real_rename)(const char *, const char *);
    real_rename = z_fs.rename;
    z_fs.rename = [](const char *old_path, const char *new_path) {
        std::ofstream(to_path(new_path)) << "theirs";
        return real_rename(old_path, new_path);
    };
    const std::string source = write_file("new/b.template", "ours");
    const std::string target = path("workspace/templates/b.template");
    steps.add([&] { return dismiss_error("An error occured when writing file.\n\n" + target); });
    components_add_file(&components, source.c_str());
    EXPECT_EQ("theirs", read_file("workspace/templates/b.template"));
    std::filesystem::remove(to_path(target));
    steps.add([] { return dismiss_error("An error occured when copying the file."); });
    components_clone_file(&components, source.c_str(), target.c_str());
    EXPECT_EQ("theirs", read_file("workspace/templates/b.template"));
}

} // namespace
