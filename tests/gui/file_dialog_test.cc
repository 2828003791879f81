#include "common/gui/file_dialog.h"

#include <deque>

#include "common/gui/native_chooser.h"
#include "common/gui/window_stack.h"
#include "tests/support/user_sandbox.h"
#include "tests/support/windows.h"

namespace {

// Where the chooser was opened, what was typed in it, and whether the window below could be used meanwhile.
struct Round {
    std::string folder, name;
    bool owner_is_sensitive;
};

struct FileDialogTest : UserSandboxTest {
    FileDialogTest() : window(gtk_window_new(GTK_WINDOW_TOPLEVEL))
    {
        rounds.clear();
        answers.clear();
        gtk_window_set_title(GTK_WINDOW(window), "Main");
        z_window_stack_push_window(stack.get(), window);
        show_and_wait_for_draw(window);
    }
    ~FileDialogTest() override
    {
        EXPECT_TRUE(answers.empty());
        EXPECT_TRUE(gtk_widget_is_sensitive(window));
        z_native_chooser_run = real;
        z_file_dialog_clean_up();
        gtk_widget_destroy(window);
    }

    // Stands in for the desktop's chooser and gives these answers, one a round; none is a cancelled one.
    void answer_with(std::deque<z_native_chooser_answer> new_answers)
    {
        answers = std::move(new_answers);
        z_native_chooser_run = [](const z_native_chooser_request &request) {
            const auto text = [](const char *or_null) { return std::string(or_null ? or_null : ""); };
            rounds.push_back({text(request.folder_path), text(request.file_name),
                              gtk_widget_is_sensitive(request.owner) != FALSE});
            z_native_chooser_answer given = std::move(answers.front());
            answers.pop_front();
            return given;
        };
    }
    std::string open(std::initializer_list<z_file_type> types)
    {
        const z_utf8_ptr chosen = z_file_dialog_get_file_path_for_reading(stack.get(), "Open", nullptr,
                                                                          {types.begin(), types.size()});
        return chosen != nullptr ? chosen.get() : "none";
    }
    std::string save(const char *suggested_name)
    {
        const z_utf8_ptr chosen =
            z_file_dialog_get_file_path_for_writing(stack.get(), suggested_name, Z_FILE_TYPE_TEMPLATE);
        return chosen != nullptr ? chosen.get() : "none";
    }

    z_native_chooser_answer (*const real)(const z_native_chooser_request &) = z_native_chooser_run;
    const z_window_stack_ptr stack = z_window_stack_new();
    GtkWidget *const window;
    static inline std::vector<Round> rounds;
    static inline std::deque<z_native_chooser_answer> answers;
};

TEST_F(FileDialogTest, OpensWhereTheSameTypesWereUsedLast)
{
    const std::string file = write_file("a/x.template", "");
    const std::string documents = path("home/Documents");
    write_file("home/Documents/y", "");
    answer_with({{{file}}, {}, {}, {}, {}});
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), file);
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), "none");
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE, Z_FILE_TYPE_XML}), "none");
    EXPECT_EQ(save(nullptr), "none");
    std::filesystem::remove_all(root / "a");
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), "none");
    const std::string expected[] = {documents, path("a"), documents, path("a"), documents};
    for (size_t i = 0; i < rounds.size(); ++i) {
        EXPECT_EQ(rounds[i].folder, expected[i]) << i;
        EXPECT_FALSE(rounds[i].owner_is_sensitive) << i;
    }
    EXPECT_EQ(rounds[3].name, "untitled.template");
}

TEST_F(FileDialogTest, GivesOnlyFilesThatExist)
{
    const std::string file = write_file("b/1.template", "");
    answer_with({{{path("missing")}}, {{file}}});
    Steps steps;
    steps.add([this] {
        return answer("Error", "There is no file with that name.\n\n" + path("missing"), "Close");
    });
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), file);
}

TEST_F(FileDialogTest, SavingGoesOnUntilThePlaceIsAccepted)
{
    write_file("a/there.template", "");
    std::filesystem::create_directories(root / "a/folder.template");
    answer_with({{{path("a/folder")}}, {{path("a/there")}}, {{path("a/there.template")}}});
    Steps steps;
    steps.add([this] {
        const std::string text = "The file name represents an existing directory. Cannot overwrite that.\n\n";
        return answer("Error", text + path("a/folder.template"), "Close");
    });
    for (const char *button : {"No", "Yes"})
        steps.add([this, button] {
            const std::string text = "A file with that name already exists. Really overwrite?\n\n";
            return answer("Question", text + path("a/there.template"), button);
        });
    EXPECT_EQ(save("name.template"), path("a/there.template"));
    EXPECT_EQ(rounds[0].name, "name.template");
    EXPECT_EQ(rounds[2].name, "there.template");
    EXPECT_EQ(rounds[2].folder, path("a"));

    answer_with({{{path("a/new.txt")}, 1}});
    EXPECT_EQ(save("name.template"), path("a/new.txt")) << "All files were shown.";
}

TEST_F(FileDialogTest, WhatCannotBeChosenIsToldAndCountsAsCancelled)
{
    answer_with({{{"/a/\xe5.template"}}, {{}, 0, "No room."}});
    Steps steps;
    steps.add([] { return press_button("Error", "Close"); });
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), "none");
    steps.add([] { return answer("Error", "No room.", "Close"); });
    EXPECT_EQ(open({Z_FILE_TYPE_TEMPLATE}), "none");
}

} // namespace
