#include <string>

#include "app/components_copy.h"
#include "app/components_gui.h"
#include "common/base/fs_system.h"
#include "common/base/fs_utils.h"
#include "common/gui/file_dialog.h"
#include "common/gui/native_chooser.h"
#include "common/workspace/template_list.h"
#include "tests/support/fs_faults.h"
#include "tests/support/workspace_sandbox.h"

namespace {

struct MainWindowTest : WorkspaceSandboxTest {
    MainWindowTest()
    {
        components = {
            .window_stack = stack.get(),
            .workspace = workspace.get(),
            .title = "Main",
            .sub_folder_name = "templates",
            .file_type = Z_FILE_TYPE_TEMPLATE,
            .has_bundled_items = true,
            .get_item_text =
                [](const char *path, void *data) {
                    return z_template_io_get_ui_text(static_cast<MainWindowTest *>(data)->context.settings,
                                                     path);
                },
            .item_text_context = "",
            .edit =
                [](const char *path, void *data) {
                    static_cast<MainWindowTest *>(data)->edited += path + std::string("\n");
                },
            .is_editable = nullptr,
            .user_data = this,
        };
        chosen.clear();
        proposed.clear();
        z_native_chooser_run = [](const z_native_chooser_request &request) {
            proposed = request.file_name != nullptr ? request.file_name : request.title;
            return z_native_chooser_answer{chosen.empty() ? std::vector<std::string>{} : std::vector{chosen}};
        };
    }
    ~MainWindowTest() override
    {
        z_native_chooser_run = real_chooser;
        z_file_dialog_clean_up();
    }

    void run() const
    {
        z_components_gui_main_window_run(&components);
    }
    static GtkTreeView *list(std::string_view title = "Main")
    {
        return GTK_TREE_VIEW(
            find_widget(find_window(title), [](GtkWidget *widget) { return GTK_IS_TREE_VIEW(widget) != 0; }));
    }
    // What the rows show, the red ones with an exclamation mark.
    static std::string rows(std::string_view title = "Main")
    {
        GtkTreeModel *model = gtk_tree_view_get_model(list(title));
        GtkTreeViewColumn *column = gtk_tree_view_get_column(list(title), 0);
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
    static bool select(int index, std::string_view title = "Main")
    {
        if (find_window(title) == nullptr)
            return false;
        const z_ptr<GtkTreePath, gtk_tree_path_free> path(gtk_tree_path_new_from_indices(index, -1));
        gtk_tree_selection_select_path(gtk_tree_view_get_selection(list(title)), path.get());
        return true;
    }
    // As a double click or Return does.
    static bool activate(int index, std::string_view title = "Main")
    {
        if (!select(index, title))
            return false;
        const z_ptr<GtkTreePath, gtk_tree_path_free> path(gtk_tree_path_new_from_indices(index, -1));
        gtk_tree_view_row_activated(list(title), path.get(), nullptr);
        return true;
    }
    static bool is_label_shown()
    {
        return find_widget(find_window("Main"), [](GtkWidget *widget) {
                   return GTK_IS_LABEL(widget) && gtk_widget_get_mapped(widget) &&
                          std::string_view(gtk_label_get_text(GTK_LABEL(widget))) ==
                              "Some incompatible files found. They are marked with red in the list:";
               }) != nullptr;
    }
    // What depends on the selection, which can be nothing.
    static void expect_selected(const std::string &file_name)
    {
        GtkWidget *window = find_window("Main");
        EXPECT_EQ(!file_name.empty(), gtk_tree_selection_get_selected(gtk_tree_view_get_selection(list()),
                                                                      nullptr, nullptr) != 0);
        for (const char *label : {"Add new", "Edit", "Delete", "Refresh list"})
            EXPECT_EQ(!file_name.empty() || *label == 'A' || *label == 'R',
                      gtk_widget_is_sensitive(find_button(window, label)) != FALSE);
        EXPECT_EQ(file_name,
                  gtk_entry_get_text(GTK_ENTRY(find_input(window, "File name of selected item:"))));
    }
    // After everything that has been started, the list shows these rows and none is selected.
    static void add_check(Steps &steps, const std::string &expected_rows, bool label_shown)
    {
        steps.add([] { return find_window("Main") != nullptr; });
        add_pause(steps);
        steps.add([expected_rows, label_shown] {
            EXPECT_EQ(expected_rows, rows());
            EXPECT_EQ(label_shown, is_label_shown());
            EXPECT_EQ(GTK_WIDGET(list()), gtk_window_get_focus(GTK_WINDOW(find_window("Main"))));
            expect_selected("");
            return true;
        });
    }

    // Steps: a yes/no question is answered, or just closed.
    static void add_answer(Steps &steps, const std::string &question, const char *button)
    {
        steps.add([question, button] {
            return button != nullptr ? answer("Question", question, button) : close_window("Question");
        });
    }

    z_components_gui components;
    std::string edited;
    bool has_failed = false; // What was tried by hand.
    z_native_chooser_answer (*const real_chooser)(const z_native_chooser_request &) = z_native_chooser_run;
    static inline std::string chosen;   // What the chooser of files gives; empty cancels it.
    static inline std::string proposed; // What it was opened with: a file's name, or else its title.
};

TEST_F(MainWindowTest, ShowsTheFolderAsItIs)
{
    write_file("workspace/templates/a.template", print_template("Inspection 10"));
    write_file("workspace/templates/B.TEMPLATE", print_template("inspection 9"));
    write_file("workspace/templates/broken.template", "<template>");
    write_file("workspace/templates/notes.txt", "no template");
    std::filesystem::create_directory(root / "workspace/templates/folder.template");
    Steps steps;
    add_check(steps, "!broken.template\ninspection 9\nInspection 10\n", true);
    steps.add([] {
        EXPECT_TRUE(select(1));
        expect_selected("B.TEMPLATE");
        return true;
    });
    steps.add([this] {
        write_file("workspace/templates/broken.template", print_template("Mended"));
        write_file("workspace/templates/B.TEMPLATE", print_template("Renamed"));
        return press_button("Main", "Refresh list");
    });
    add_check(steps, "Inspection 10\nMended\nRenamed\n", false);
    steps.add([this] {
        std::filesystem::remove_all(root / "workspace/templates");
        return press_button("Main", "Refresh list");
    });
    add_check(steps, "", false);
    steps.add([] { return close_window("Main"); });
    run();
}

TEST_F(MainWindowTest, DeletesWhatTheUserConfirms)
{
    const std::string file = write_file("workspace/templates/a.template", print_template("Name"));
    write_file("workspace/templates/broken.template", "");
    const FsFaults calls;
    const auto delete_file = z_fs.delete_file;
    Steps steps;
    const auto add_deletion = [&steps](int row, const std::string &shown, const char *button) {
        steps.add([row] { return select(row) && press_button("Main", "Delete"); });
        add_answer(steps, "Do you really want to delete \"" + shown + "\" from your workspace?", button);
    };
    add_deletion(1, "Name", "No");
    add_deletion(1, "Name", nullptr);
    steps.add([] {
        z_fs.delete_file = [](const char *) { return -1; };
        return true;
    });
    add_deletion(1, "Name", "Yes");
    steps.add([&] { return dismiss_error("Couldn't delete the file.\n\n" + file); });
    add_check(steps, "!broken.template\nName\n", true);
    steps.add([&] {
        EXPECT_TRUE(std::filesystem::exists(file));
        z_fs.delete_file = delete_file;
        return true;
    });
    add_deletion(0, "broken.template", "Yes");
    add_deletion(0, "Name", "Yes");
    add_check(steps, "", false);
    steps.add([] { return close_window("Main"); });
    run();
    EXPECT_TRUE(std::filesystem::is_empty(root / "workspace/templates"));
}

TEST_F(MainWindowTest, AsksBeforeABundledItemIsEdited)
{
    const char *question = "This item was bundled with Zanvel. You might want to clone it first, to make "
                           "your own independent copy.\n\nProceed anyway?";
    const std::string bundled = write_file("workspace/templates/a.template", print_template("A"));
    write_file("install/templates/a.template", print_template("A"));
    const std::string changed = write_file("workspace/templates/b.template", print_template("B"));
    write_file("install/templates/b.template", print_template("b"));
    Steps steps;
    for (const char *button : {"No", "Yes"}) {
        steps.add([] { return select(0) && press_button("Main", "Edit"); });
        steps.add([=] { return answer("Question", question, button); });
        add_check(steps, "A\nB\n", false);
    }
    steps.add([&] {
        EXPECT_EQ(bundled + "\n", edited);
        return select(1) && press_button("Main", "Edit");
    });
    add_check(steps, "A\nB\n", false);
    steps.add([] { return activate(1); });
    steps.add([] { return close_window("Main"); });
    run();
    EXPECT_EQ(bundled + "\n" + changed + "\n" + changed + "\n", edited);
}

TEST_F(MainWindowTest, AddNewEditsAFileThatIsNotThereYet)
{
    Steps steps;
    steps.add([] { return press_button("Main", "Add new"); });
    steps.add([] { return enter("Add new", "Enter new file name", "new.template"); });
    steps.add([] { return press_button("Add new", "OK"); });
    steps.add([] { return press_button("Main", "Add new"); });
    steps.add([] { return press_button("Add new", "Cancel"); });
    add_check(steps, "", false);
    steps.add([] { return close_window("Main"); });
    run();
    EXPECT_EQ(path("workspace/templates/new.template") + "\n", edited);
}

// Each case starts with the workspace's file as given and is done with a source of its own.
TEST_F(MainWindowTest, AddsAFileAndAsksBeforeOneIsLost)
{
    const std::string old_file = print_template("Old");
    const std::string new_file = print_template("New");
    const std::string target = path("workspace/templates/a.template");
    const std::string question = "Really overwrite \"Old\" with \"New\"?";
    const std::string failure = "An error occured when writing file.\n\n" + target;
    enum class lost { nothing, ours, theirs }; // While the question waits.
    const struct {
        const char *source_name, *before, *source;
        std::string question;
        const char *button;
        lost gone;
        std::string message, after, expected_rows;
    } cases[] = {
        {"a.template", nullptr, nullptr, "", "", lost::nothing, "", "", ""}, // Cancelled.
        {"a.txt", nullptr, "New", "", "", lost::nothing, "The file name must end with \".template\".", "",
         ""},
        {"a.template", nullptr, "New", "", "", lost::nothing, "", new_file, "New\n"},
        {"a.template", "Old", "New", question, "No", lost::nothing, "", old_file, "Old\n"},
        {"a.template", "Old", "New", question, nullptr, lost::nothing, "", old_file, "Old\n"},
        {"a.template", "Old", "New", question, "Yes", lost::nothing, "", new_file, "New\n"},
        {"a.template", "Old", "New", question, "Yes", lost::theirs, "", new_file, "New\n"},
        {"a.template", "Old", "New", question, "Yes", lost::ours, failure, old_file, "Old\n"},
        {"a.template", "", "New", "Really overwrite \"" + target + "\" with \"New\"?", "Yes", lost::nothing,
         "", new_file, "New\n"},
        {"a.template", nullptr, "", "", "", lost::nothing, "", "", "!a.template\n"},
    };
    const auto print = [](const std::string &name) { return name.empty() ? "" : print_template(name); };
    for (const auto &c : cases) {
        SCOPED_TRACE(&c - cases);
        std::filesystem::remove_all(root / "workspace/templates");
        if (c.before != nullptr)
            write_file("workspace/templates/a.template", print(c.before));
        chosen = c.source != nullptr ? write_file(std::string("new/") + c.source_name, print(c.source)) : "";
        Steps steps;
        steps.add([] { return press_button("Main", "Add from file"); });
        if (!c.question.empty()) {
            steps.add([&] {
                if (find_window("Question") == nullptr)
                    return false;
                if (c.gone != lost::nothing)
                    std::filesystem::remove(c.gone == lost::ours ? chosen : target);
                return true;
            });
            add_answer(steps, c.question, c.button);
        }
        if (!c.message.empty())
            steps.add([&] { return dismiss_error(c.message); });
        add_check(steps, c.expected_rows, c.expected_rows.starts_with('!'));
        steps.add([] { return close_window("Main"); });
        run();
        EXPECT_EQ("Select a file to add", proposed);
        EXPECT_EQ(c.after,
                  std::filesystem::exists(target) ? read_file("workspace/templates/a.template") : "");
    }
}

TEST_F(MainWindowTest, AddsNothingWithoutTheFolder)
{
    chosen = write_file("new/a.template", print_template("New"));
    std::filesystem::remove_all(root / "workspace/templates");
    const FsFaults calls;
    const auto real = z_fs;
    const struct {
        void (*set_up)(const std::string &folder);
        const char *message;
    } cases[] = {
        {[](const std::string &) {
             z_fs.get_status = [](const char *, z_fs_status *) { return errno = EACCES, -1; };
         },
         "Can not access the workspace fonts folder.\n\nCannot get file status.\n\nError 13: Permission "
         "denied"},
        {[](const std::string &) { z_fs.create_folder = [](const char *) { return errno = EACCES, -1; }; },
         "The workspace fonts folder does not exist and could not be created."},
        {[](const std::string &folder) { std::ofstream(folder) << "a file"; },
         "The workspace fonts folder does not exist and could not be created."},
    };
    Steps steps;
    for (const auto &c : cases) {
        steps.add([&, c] {
            c.set_up(path("workspace/templates"));
            return press_button("Main", "Add from file");
        });
        steps.add([&, c] {
            if (find_window("Error") == nullptr)
                return false;
            z_fs = real;
            return dismiss_error(c.message);
        });
        add_check(steps, "", false);
    }
    steps.add([] { return close_window("Main"); });
    run();
}

TEST_F(MainWindowTest, AddsABundledFile)
{
    write_file("install/templates/a.template", print_template("Bundled"));
    write_file("install/templates/broken.template", "");
    write_file("workspace/templates/a.template", print_template("Mine"));
    const char *title = "Select one to add";
    Steps steps;
    const auto add_opening = [&steps] { steps.add([] { return press_button("Main", "Add bundled"); }); };
    add_opening();
    steps.add([=] { return find_window(title) != nullptr; });
    add_pause(steps);
    steps.add([=] {
        EXPECT_EQ("!broken.template\nBundled\n", rows(title));
        return press_button(title, "OK");
    });
    steps.add([] { return dismiss_error("None selected."); });
    steps.add([=] { return select(1, title) && press_button(title, "Cancel"); });
    add_check(steps, "Mine\n", false);
    add_opening();
    steps.add([=] { return select(0, title) && press_button(title, "OK"); });
    add_check(steps, "!broken.template\nMine\n", true);
    add_opening();
    steps.add([=] { return activate(1, title); });
    add_answer(steps, "Really overwrite \"Mine\" with \"Bundled\"?", "Yes");
    add_check(steps, "!broken.template\nBundled\n", true);
    add_opening();
    steps.add([=] { return close_window(title); });
    steps.add([] { return close_window("Main"); });
    run();
}

TEST_F(MainWindowTest, ClonesAndSavesCopiesOfWhatWasSelected)
{
    const std::string file = write_file("workspace/templates/a.template", print_template("A"));
    const std::string taken = write_file("workspace/templates/taken.template", print_template("Taken"));
    Steps steps;
    const auto add_clone = [&](const char *button, const std::function<void()> &meanwhile) {
        steps.add([] { return select(0) && press_button("Main", "Clone"); });
        steps.add([] { return enter("Add new", "Enter new file name", "b.template"); });
        steps.add([=] {
            meanwhile();
            return press_button("Add new", button);
        });
    };
    add_clone("Cancel", [] {});
    add_check(steps, "A\nTaken\n", false);
    add_clone("OK", [=] { std::filesystem::remove(file); });
    steps.add([] { return dismiss_error("An error occured when copying the file."); });
    add_check(steps, "Taken\n", false);
    steps.add([this] {
        return !write_file("workspace/templates/a.template", "broken").empty() &&
               press_button("Main", "Refresh list");
    });
    add_clone("OK", [] {});
    add_check(steps, "!a.template\n!b.template\nTaken\n", true);
    const auto add_copy = [&](const std::string &place) {
        steps.add([=] {
            chosen = place;
            return select(2) && press_button("Main", "Save a copy");
        });
    };
    add_copy("");
    add_check(steps, "!a.template\n!b.template\nTaken\n", true);
    add_copy(path("copy"));
    add_copy(path("none/copy.template"));
    steps.add([this] {
        EXPECT_EQ("taken.template", proposed);
        return dismiss_error("An error occured when saving the copy of the file.\n\n" +
                             path("none/copy.template"));
    });
    add_check(steps, "!a.template\n!b.template\nTaken\n", true);
    steps.add([] { return close_window("Main"); });
    run();
    EXPECT_EQ(print_template("Taken"), read_file("copy.template"));
    EXPECT_EQ("broken", read_file("workspace/templates/b.template"));
}

TEST_F(MainWindowTest, ACopyThatFailsAnywhereLeavesWhatWasThere)
{
    using copy = void (*)(const z_components_gui *, const std::string &source, const std::string &target);
    const struct {
        const char *before;
        copy operation;
    } cases[] = {
        {"old", [](const z_components_gui *c, const std::string &source,
                   const std::string &) { components_add_file(c, source.c_str()); }},
        {"old",
         [](const z_components_gui *c, const std::string &source, const std::string &target) {
             chosen = target;
             components_save_copy_of_file(c, source.c_str());
         }},
        {nullptr,
         [](const z_components_gui *c, const std::string &source, const std::string &target) {
             components_clone_file(c, source.c_str(), target.c_str());
         }},
    };
    const std::string source = write_file("new/a.template", "new");
    const std::string target = path("workspace/templates/a.template");
    const z_source presser(g_timeout_add(
        2,
        +[](gpointer failed) -> gboolean {
            (void)press_button("Question", "Yes");
            if (press_button("Error", "Close")) {
                chosen.clear();
                *static_cast<bool *>(failed) = true;
            }
            return G_SOURCE_CONTINUE;
        },
        &has_failed));
    for (const auto &c : cases) {
        bool has_struck = true;
        for (int step = 0; has_struck; ++step) {
            SCOPED_TRACE("case " + std::to_string(&c - cases) + ", step " + std::to_string(step));
            std::filesystem::remove(target);
            if (c.before != nullptr)
                write_file("workspace/templates/a.template", c.before);
            has_failed = false;
            const FsFaults faults(step);
            c.operation(&components, source, target);
            has_struck = faults.has_struck();
            EXPECT_TRUE(has_struck || !has_failed);
            EXPECT_EQ(has_failed ? std::string(c.before != nullptr ? c.before : "") : "new",
                      std::filesystem::exists(target) ? read_file("workspace/templates/a.template") : "");
            EXPECT_EQ(size_t{!has_failed || c.before != nullptr},
                      SandboxTest::list("workspace/templates").size());
        }
    }
}

// A documents folder that is a link is enough to spell a file in two ways. What appears at the last moment is not
// replaced without having been asked about.
TEST_F(MainWindowTest, CopiesReplaceNeitherThemselvesNorWhatJustAppeared)
{
    const std::string file = write_file("workspace/templates/a.template", print_template("A"));
    std::filesystem::create_directory_symlink(root / "workspace/templates", root / "link");
    z_fs_identity before, after;
    ASSERT_TRUE(z_fs_utils_get_identity(file.c_str(), before));
    const std::string link = path("link/a.template");
    chosen = link;
    Steps steps;
    add_answer(steps, "Really overwrite \"A\" with \"A\"?", "Yes");
    components_add_file(&components, link.c_str());
    add_answer(steps, "A file with that name already exists. Really overwrite?\n\n" + link, "Yes");
    components_save_copy_of_file(&components, file.c_str());
    ASSERT_TRUE(z_fs_utils_get_identity(file.c_str(), after));
    EXPECT_EQ(before, after);

    const FsFaults calls;
    static int (*real_rename)(const char *, const char *);
    real_rename = z_fs.rename;
    z_fs.rename = [](const char *old_path, const char *new_path) {
        std::ofstream(new_path) << "theirs";
        return real_rename(old_path, new_path);
    };
    const std::string source = write_file("new/b.template", "ours");
    const std::string target = path("workspace/templates/b.template");
    steps.add([&] { return dismiss_error("An error occured when writing file.\n\n" + target); });
    components_add_file(&components, source.c_str());
    EXPECT_EQ("theirs", read_file("workspace/templates/b.template"));
    std::filesystem::remove(target);
    steps.add([] { return dismiss_error("An error occured when copying the file."); });
    components_clone_file(&components, source.c_str(), target.c_str());
    EXPECT_EQ("theirs", read_file("workspace/templates/b.template"));
}

TEST_F(MainWindowTest, ALongListingShowsThatTheProgramIsBusy)
{
    static std::string seen;
    seen.clear();
    for (const char *name : {"a", "b", "c"})
        write_file("workspace/templates/" + std::string(name) + ".template", "");
    components.get_item_text = [](const char *, void *) {
        seen += find_window("Please wait") != nullptr ? "busy " : "- ";
        g_usleep(300'000);
        return z_utf8_ptr(g_strdup("Slow"));
    };
    Steps steps;
    const auto add_listing_check = [&](const std::string &expected) {
        add_check(steps, "Slow\nSlow\nSlow\n", false);
        steps.add([=] {
            EXPECT_EQ(expected, seen);
            EXPECT_EQ(nullptr, find_window("Please wait"));
            EXPECT_TRUE(gtk_widget_is_sensitive(find_window("Main")));
            return press_button("Main", "Refresh list");
        });
    };
    add_listing_check("- - busy ");
    add_listing_check("- - busy - - busy ");
    add_check(steps, "Slow\nSlow\nSlow\n", false);
    steps.add([] { return close_window("Main"); });
    run();
}

} // namespace
