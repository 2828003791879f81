#include <string>

#include "app/components_gui.h"
#include "common/base/fs_system.h"
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
    }

    void run() const
    {
        z_components_gui_main_window_run(&components);
    }
    static GtkTreeView *list()
    {
        return GTK_TREE_VIEW(find_widget(find_window("Main"),
                                         [](GtkWidget *widget) { return GTK_IS_TREE_VIEW(widget) != 0; }));
    }
    // What the rows show, the red ones with an exclamation mark.
    static std::string rows()
    {
        GtkTreeModel *model = gtk_tree_view_get_model(list());
        GtkTreeViewColumn *column = gtk_tree_view_get_column(list(), 0);
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
    static bool select(int index)
    {
        if (find_window("Main") == nullptr)
            return false;
        const z_ptr<GtkTreePath, gtk_tree_path_free> path(gtk_tree_path_new_from_indices(index, -1));
        gtk_tree_selection_select_path(gtk_tree_view_get_selection(list()), path.get());
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

    z_components_gui components;
    std::string edited;
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
        steps.add([shown, button] {
            const std::string question =
                "Do you really want to delete \"" + shown + "\" from your workspace?";
            return button != nullptr ? answer("Question", question, button) : close_window("Question");
        });
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
    steps.add([] { // As a double click or Return does.
        const z_ptr<GtkTreePath, gtk_tree_path_free> path(gtk_tree_path_new_from_indices(1, -1));
        gtk_tree_view_row_activated(list(), path.get(), nullptr);
        return true;
    });
    steps.add([] { return close_window("Main"); });
    run();
    EXPECT_EQ(bundled + "\n" + changed + "\n", edited);
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

} // namespace
