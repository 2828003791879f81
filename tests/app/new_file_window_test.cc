#include <string>
#include <utility>

#include "app/components_gui.h"
#include "tests/support/workspace_sandbox.h"

namespace {

struct NewFileWindowTest : WorkspaceSandboxTest {
    // The path that the window gives, or "none".
    std::string run() const
    {
        const z_components_gui components = {
            .window_stack = stack.get(),
            .workspace = workspace.get(),
            .title = "Main",
            .sub_folder_name = "templates",
            .file_type = Z_FILE_TYPE_TEMPLATE,
            .has_bundled_items = true,
            .get_item_text =
                [](const char *path, void *) {
                    return z_utf8_ptr(std::string_view(path).ends_with("taken.template") ? g_strdup("Mine")
                                                                                         : nullptr);
                },
            .item_text_context = "",
            .edit = nullptr,
            .is_editable = nullptr,
            .user_data = nullptr,
        };
        const z_utf8_ptr result = z_components_gui_get_new_file_path(&components);
        return result != nullptr ? result.get() : "none";
    }
    static bool press(guint keyval)
    {
        if (find_window("Add new") == nullptr)
            return false;
        press_key(find_window("Add new"), keyval);
        return true;
    }
};

TEST_F(NewFileWindowTest, RefusesNamesThatAreNotPermittedOrTaken)
{
    write_file("workspace/templates/taken.template", "");
    write_file("workspace/templates/broken.template", "");
    std::filesystem::create_directory(root / "workspace/templates/folder.template");
    const std::string too_short =
        "The file name must contain at least one character and then end with \".template\"";
    const struct {
        const char *name;
        std::string message;
    } cases[] = {
        {"", too_short},
        {" .template ", too_short},
        {"name.templates", too_short},
        {"My_Report.template", "The character \"M\" is not permitted."},
        {"a\U0001f600.template", "The character \"\U0001f600\" is not permitted."},
        {"a/b.template", "The character \"/\" is not permitted."},
        {"taken.template", "That file name is already taken for \"Mine\""},
        {"broken.template", "That file name is already taken."},
        {"folder.template", "That file name is already taken."},
    };
    Steps steps;
    for (const auto &[name, message] : cases) {
        steps.add([name = name] { return enter("Add new", "Enter new file name", name); });
        steps.add([] { return press_button("Add new", "OK"); });
        steps.add([message = message] { return dismiss_error(message); });
    }
    steps.add([] { return press(GDK_KEY_Escape); });
    EXPECT_EQ("none", run());
}

TEST_F(NewFileWindowTest, AcceptsAFreeNameInTheFolderOfTheWorkspace)
{
    for (const auto &[typed, name] :
         {std::pair{"x.template\u00a0", "x.template"}, {"\t0_z.TEMPLATE  ", "0_z.TEMPLATE"}}) {
        Steps steps;
        steps.add([text = std::string(typed)] { return enter("Add new", "Enter new file name", text); });
        steps.add([] { return press(GDK_KEY_Return); });
        EXPECT_EQ(path("workspace/templates/") + name, run());
    }
}

TEST_F(NewFileWindowTest, TypingGoesInFrontOfTheExtension)
{
    Steps steps;
    steps.add([] {
        if (find_window("Add new") == nullptr)
            return false;
        send_focus_change(find_window("Add new"), true);
        for (const guint key :
             {GDK_KEY_b + 0u, GDK_KEY_Tab + 0u, GDK_KEY_Tab + 0u, GDK_KEY_Tab + 0u, GDK_KEY_a + 0u})
            press_key(find_window("Add new"), key);
        return press(GDK_KEY_Return);
    });
    EXPECT_EQ(path("workspace/templates/ab.template"), run());
}

} // namespace
