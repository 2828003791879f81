#pragma once

// An open workspace of one test's own, with what the program's windows need; and how a test reads and fills
// them in.

#include <string>

#include "app/application.h"
#include "common/gui/resources.h"
#include "common/gui/window_stack.h"
#include "common/workspace/workspace.h"
#include "tests/support/user_sandbox.h"
#include "tests/support/windows.h"

[[nodiscard]] inline std::string print_report_type(const std::string &name, const std::string &segments = "")
{
    return "\n\t<report-type>\n\t\t<name lang=\"sv\">" + name + "</name>\n" + segments + "\t</report-type>\n";
}

// A whole template file as the program writes it. `body` stands between the name and the report types.
[[nodiscard]] inline std::string print_template(const std::string &name, const std::string &body = "",
                                                const std::string &report_types = print_report_type("R"))
{
    return "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\n\n<template>\n\n\t<name lang=\"sv\">" + name +
           "</name>\n" + body + report_types + "\n</template>\n";
}

struct WorkspaceSandboxTest : UserSandboxTest {
    WorkspaceSandboxTest()
    {
        std::filesystem::create_directories(root / "workspace");
        EXPECT_TRUE(z_workspace_save_folder_path(path("workspace").c_str()));
        workspace = z_workspace_open();
        context = {stack.get(), workspace.get(), workspace->settings.get()};
        EXPECT_TRUE(z_resources_open() && z_resources_load_shared_images());
    }
    ~WorkspaceSandboxTest() override
    {
        z_resources_clean_up();
    }

    const z_window_stack_ptr stack = z_window_stack_new();
    z_workspace_ptr workspace;
    z_application_context context;
};

[[nodiscard]] inline bool dismiss_error(const std::string &text)
{
    return answer("Error", text, "Close");
}

// As a screen reader would tell.
[[nodiscard]] inline std::string get_input_label(GtkWidget *input)
{
    const z_ref<AtkRelationSet> relations =
        z_take(atk_object_ref_relation_set(gtk_widget_get_accessible(input)));
    AtkRelation *relation = atk_relation_set_get_relation_by_type(relations.get(), ATK_RELATION_LABELLED_BY);
    if (relation == nullptr)
        return "";
    const gpointer label = g_ptr_array_index(atk_relation_get_target(relation), 0);
    return gtk_label_get_text(GTK_LABEL(gtk_accessible_get_widget(GTK_ACCESSIBLE(label))));
}

[[nodiscard]] inline GtkWidget *find_input(GtkWidget *root, std::string_view label)
{
    return find_widget(root, [label](GtkWidget *widget) {
        return GTK_IS_ENTRY(widget) && get_input_label(widget) == label;
    });
}

[[nodiscard]] inline GtkNotebook *find_notebook(std::string_view title)
{
    return GTK_NOTEBOOK(
        find_widget(find_window(title), [](GtkWidget *widget) { return GTK_IS_NOTEBOOK(widget) != 0; }));
}

// A step: false while there is no such input.
[[nodiscard]] inline bool enter(std::string_view title, std::string_view label, const std::string &text)
{
    GtkWidget *window = find_window(title);
    GtkWidget *input = window != nullptr ? find_input(window, label) : nullptr;
    if (input != nullptr)
        gtk_entry_set_text(GTK_ENTRY(input), text.c_str());
    return input != nullptr;
}
