#include "common/gui/native_chooser.h"

#include "common/gui/file_dialog.h"
#include "common/gui/window_stack.h"
#include "tests/support/user_sandbox.h"
#include "tests/support/windows.h"

namespace {

// The toolkit's own chooser, as it is without a desktop.
struct NativeChooserTest : UserSandboxTest {};

TEST_F(NativeChooserTest, ShowsMatchingFilesAndIsModal)
{
    const z_window_stack_ptr stack = z_window_stack_new();
    GtkWidget *window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    z_window_stack_push_window(stack.get(), window);
    show_and_wait_for_draw(window);
    const std::string file = write_file("a/x.TEMPLATE", "");
    Steps steps;
    steps.add_in("Open", [&](GtkWidget *chooser) {
        EXPECT_TRUE(gtk_window_get_modal(GTK_WINDOW(chooser)));
        EXPECT_EQ(GTK_WINDOW(window), gtk_window_get_transient_for(GTK_WINDOW(chooser)));
        GtkFileFilter *filter = gtk_file_chooser_get_filter(GTK_FILE_CHOOSER(chooser));
        EXPECT_STREQ("Template files (.template)", gtk_file_filter_get_name(filter));
        for (const bool fits : {false, true}) {
            const GtkFileFilterInfo info = {GTK_FILE_FILTER_DISPLAY_NAME, nullptr, nullptr,
                                            fits ? "x.TEMPLATE" : "x.xml", nullptr};
            EXPECT_EQ(fits, gtk_file_filter_filter(filter, &info) != FALSE);
        }
        return gtk_file_chooser_set_filename(GTK_FILE_CHOOSER(chooser), file.c_str()) != FALSE;
    });
    steps.add_in("Open", [&](GtkWidget *chooser) {
        const z_utf8_ptr name(gtk_file_chooser_get_filename(GTK_FILE_CHOOSER(chooser)));
        if (name == nullptr || name.get() != file)
            return false;
        gtk_dialog_response(GTK_DIALOG(chooser), GTK_RESPONSE_ACCEPT);
        return true;
    });
    const z_file_type type = Z_FILE_TYPE_TEMPLATE;
    EXPECT_EQ(file, z_file_dialog_get_file_path_for_reading(stack.get(), "Open", nullptr, {&type, 1}).get());
    z_file_dialog_clean_up();
    gtk_widget_destroy(window);
}

} // namespace
