#include "app/components_copy.h"

#include <string>

#include "common/base/fs_system.h"
#include "common/base/fs_utils.h"
#include "tests/app/components_sandbox.h"
#include "tests/support/fs_faults.h"

namespace {

struct ComponentsCopyTest : ComponentsSandboxTest {
    bool has_failed = false; // What was tried by hand.
};

// Each case starts with the workspace's file as given and is done with a source of its own.
TEST_F(ComponentsCopyTest, AddsAFileAndAsksBeforeOneIsLost)
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
        {"a.template", "Old", "New", question, nullptr, lost::nothing, "", old_file, "Old\n"},
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
                    std::filesystem::remove(to_path(c.gone == lost::ours ? chosen : target));
                return true;
            });
            add_answer(steps, c.question, c.button);
        }
        if (!c.message.empty())
            steps.add([&] { return dismiss_error(c.message); });
        add_check(steps, c.expected_rows, c.expected_rows.starts_with('!'));
        run(steps);
        EXPECT_EQ("Select a file to add", proposed);
        EXPECT_EQ(c.after, exists("workspace/templates/a.template")
                               ? read_file("workspace/templates/a.template")
                               : "");
    }
}

TEST_F(ComponentsCopyTest, AddsNothingWithoutTheFolder)
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
        {[](const std::string &folder) { std::ofstream(to_path(folder)) << "a file"; },
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
    run(steps);
}

TEST_F(ComponentsCopyTest, AddsABundledFile)
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
    steps.add([=] { return select(0, title) && press_button(title, "OK"); });
    add_check(steps, "!broken.template\nMine\n", true);
    add_opening();
    steps.add([=] { return activate(1, title); });
    add_answer(steps, "Really overwrite \"Mine\" with \"Bundled\"?", "Yes");
    add_check(steps, "!broken.template\nBundled\n", true);
    steps.add([this] { return std::filesystem::remove_all(root / "install/templates") > 0; });
    add_opening();
    steps.add([=] {
        if (find_window(title) == nullptr)
            return false;
        EXPECT_EQ("", rows(title));
        return close_window(title);
    });
    add_check(steps, "!broken.template\nBundled\n", true);
    run(steps);
}

TEST_F(ComponentsCopyTest, ClonesAndSavesCopiesOfWhatWasSelected)
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
    add_clone("OK", [=] { std::filesystem::remove(to_path(file)); });
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
    const std::string longest = std::string(255 - 9, 'x') + ".template";
    add_copy(path(longest));
    add_copy(path("none/copy.template"));
    steps.add([this] {
        EXPECT_EQ("taken.template", proposed);
        return dismiss_error("An error occured when saving the copy of the file.\n\n" +
                             path("none/copy.template"));
    });
    add_check(steps, "!a.template\n!b.template\nTaken\n", true);
    run(steps);
    EXPECT_EQ(print_template("Taken"), read_file(longest));
    EXPECT_EQ("broken", read_file("workspace/templates/b.template"));
}

TEST_F(ComponentsCopyTest, ACopyThatFailsAnywhereLeavesWhatWasThere)
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
            std::filesystem::remove(to_path(target));
            if (c.before != nullptr)
                write_file("workspace/templates/a.template", c.before);
            has_failed = false;
            const FsFaults faults(step);
            c.operation(&components, source, target);
            has_struck = faults.has_struck();
            EXPECT_TRUE(has_struck || !has_failed);
            EXPECT_EQ(has_failed ? std::string(c.before != nullptr ? c.before : "") : "new",
                      exists("workspace/templates/a.template") ? read_file("workspace/templates/a.template")
                                                               : "");
            EXPECT_EQ(size_t{!has_failed || c.before != nullptr},
                      SandboxTest::list("workspace/templates").size());
        }
    }
}

// A file can be spelled in two ways. What appears at the last moment is not replaced without having been
// asked about.
TEST_F(ComponentsCopyTest, CopiesReplaceNeitherThemselvesNorWhatJustAppeared)
{
    const std::string file = write_file("workspace/templates/a.template", print_template("A"));
    z_fs_identity before, after;
    ASSERT_TRUE(z_fs_utils_get_identity(file.c_str(), before));
    const std::string detour = path("workspace/templates/../templates/a.template");
    chosen = detour;
    Steps steps;
    components_add_file(&components, detour.c_str());
    add_answer(steps, "A file with that name already exists. Really overwrite?\n\n" + detour, "Yes");
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
