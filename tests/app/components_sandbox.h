#pragma once

// The window of the workspace's templates, and how a test uses it. Choosing a file in the desktop's chooser,
// and editing one, are only noted down.

#include <string>

#include "app/components_gui.h"
#include "common/gui/file_dialog.h"
#include "common/gui/native_chooser.h"
#include "common/workspace/template_list.h"
#include "tests/support/lists.h"
#include "tests/support/workspace_sandbox.h"

struct ComponentsSandboxTest : WorkspaceSandboxTest {
    ComponentsSandboxTest()
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
                    return z_template_io_get_ui_text(
                        static_cast<ComponentsSandboxTest *>(data)->context.settings, path);
                },
            .item_text_context = "",
            .edit =
                [](const char *path, void *data) {
                    static_cast<ComponentsSandboxTest *>(data)->edited += path + std::string("\n");
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
    ~ComponentsSandboxTest() override
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
    static GtkTreeView *list(std::string_view title = "Main")
    {
        return find_list(find_window(title));
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
    z_native_chooser_answer (*const real_chooser)(const z_native_chooser_request &) = z_native_chooser_run;
    static inline std::string chosen;   // What the chooser of files gives; empty cancels it.
    static inline std::string proposed; // What it was opened with: a file's name, or else its title.
};
