#include <string>
#include <utility>

#include "tests/app/components_sandbox.h"

namespace {

struct NewFileWindowTest : ComponentsSandboxTest {
    // The path that the window gives, or "none".
    std::string run() const
    {
        const z_utf8_ptr result = z_components_gui_get_new_file_path(&components);
        return result != nullptr ? result.get() : "none";
    }
    static bool press(guint keyval)
    {
        press_key(find_window("Add new"), keyval);
        return true;
    }
};

TEST_F(NewFileWindowTest, RefusesNamesThatAreNotPermittedOrTaken)
{
    write_file("workspace/templates/taken.template", print_template("Mine"));
    write_file("workspace/templates/broken.template", "");
    std::filesystem::create_directory(root / "workspace/templates/folder.template");
    const std::string too_short =
        "The file name must contain at least one character and then end with \".template\"";
    const struct {
        std::string name, message;
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
        {std::string(300, 'x') + ".template", "That file name is already taken."}, // Too long for any folder.
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
    steps.add_in("Add new", [](GtkWidget *window) {
        send_focus_change(window, true);
        for (const guint key :
             {GDK_KEY_b + 0u, GDK_KEY_Tab + 0u, GDK_KEY_Tab + 0u, GDK_KEY_Tab + 0u, GDK_KEY_a + 0u})
            press_key(window, key);
        return press(GDK_KEY_Return);
    });
    EXPECT_EQ(path("workspace/templates/ab.template"), run());
}

} // namespace
