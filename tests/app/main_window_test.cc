#include <string>

#include "common/base/fs_system.h"
#include "tests/app/components_sandbox.h"
#include "tests/support/fs_faults.h"

namespace {

using MainWindowTest = ComponentsSandboxTest;

TEST_F(MainWindowTest, ShowsTheFolderAsItIs)
{
    write_file("workspace/templates/a.template", print_template("Inspection 10"));
    write_file("workspace/templates/B.TEMPLATE", print_template("inspection 9"));
    write_file("workspace/templates/broken.template", "<template>");
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
    run(steps);
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
        EXPECT_TRUE(exists("workspace/templates/a.template"));
        z_fs.delete_file = delete_file;
        return true;
    });
    add_deletion(0, "broken.template", "Yes");
    add_deletion(0, "Name", "Yes");
    add_check(steps, "", false);
    run(steps);
    EXPECT_TRUE(std::filesystem::is_empty(root / "workspace/templates"));
}

// A window that the user has made larger keeps its size.
TEST_F(MainWindowTest, ShrinksWhenTheLabelGoesToTheSizeThatTheUserChose)
{
    const auto get_height = [] {
        int height_px;
        gtk_window_get_size(GTK_WINDOW(find_window("Main")), nullptr, &height_px);
        return height_px;
    };
    int chosen_px = 0;
    Steps steps;
    for (const int wanted_px : {1, 550}) { // The first is less than the contents need.
        steps.add([wanted_px] {
            GtkWidget *window = find_window("Main");
            if (window != nullptr)
                gtk_window_resize(GTK_WINDOW(window), 600, wanted_px);
            return window != nullptr;
        });
        steps.add([=] { return wanted_px == 1 ? get_height() < 400 : get_height() == wanted_px; });
        steps.add([&, this] {
            chosen_px = get_height();
            write_file("workspace/templates/broken.template", "");
            return press_button("Main", "Refresh list");
        });
        steps.add(
            [&, wanted_px] { return is_label_shown() && (get_height() > chosen_px) == (wanted_px == 1); });
        add_pause(steps);
        steps.add([&, this, wanted_px] {
            EXPECT_EQ(get_height() > chosen_px, wanted_px == 1);
            std::filesystem::remove(root / "workspace/templates/broken.template");
            return press_button("Main", "Refresh list");
        });
        steps.add([&] { return !is_label_shown() && get_height() == chosen_px; });
        add_pause(steps);
        steps.add([&] {
            EXPECT_EQ(get_height(), chosen_px);
            return true;
        });
    }
    run(steps);
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
        steps.add([] { return find_window("Please wait") == nullptr; });
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
    run(steps);
}

} // namespace
