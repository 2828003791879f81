#include "common/gui/window_stack.h"

#include "common/gui/gui.h"
#include "common/gui/message.h"
#include "tests/support/windows.h"

namespace {

struct WindowStackTest : testing::Test {
    ~WindowStackTest() override
    {
        if (main_window != nullptr)
            gtk_widget_destroy(main_window);
    }

    // The main window with a button and an entry, all shown.
    void push_main_window()
    {
        main_window = z_gui_create_window("Main");
        GtkWidget *vbox = z_gui_add_vbox(main_window, z_spacing::normal);
        z_gui_pack_button(vbox, z_default_button::no, "Press");
        entry = z_gui_pack_entry(vbox, z_expand::no, "text", z_activates_default::no);
        z_window_stack_push_window(stack.get(), main_window);
        show_and_wait_for_draw(main_window);
    }
    GtkWidget *push_window(const char *title)
    {
        GtkWidget *window = z_gui_create_window(title);
        z_window_stack_push_window(stack.get(), window);
        show_and_wait_for_draw(window);
        return window;
    }

    z_window_stack_ptr stack = z_window_stack_new();
    GtkWidget *main_window = nullptr;
    GtkWidget *entry = nullptr;
};

TEST_F(WindowStackTest, OnlyTheTopWindowTakesInputAndOneMayGoFromTheMiddle)
{
    push_main_window();
    EXPECT_FALSE(gtk_window_get_modal(GTK_WINDOW(main_window)));
    GtkWidget *second = push_window("Second");
    GtkWidget *third = push_window("Third");
    EXPECT_TRUE(gtk_window_get_modal(GTK_WINDOW(third)));
    EXPECT_EQ(GTK_WINDOW(second), gtk_window_get_transient_for(GTK_WINDOW(third)));
    EXPECT_FALSE(gtk_widget_get_sensitive(main_window));
    EXPECT_FALSE(gtk_widget_get_sensitive(second));

    gtk_window_set_destroy_with_parent(GTK_WINDOW(third), FALSE);
    gtk_widget_destroy(second);
    EXPECT_TRUE(gtk_widget_get_sensitive(third));
    EXPECT_FALSE(gtk_widget_get_sensitive(main_window));
    gtk_widget_destroy(third);
    EXPECT_TRUE(gtk_widget_get_sensitive(main_window));
}

TEST_F(WindowStackTest, CloseRequestsReachOnlyTheTopWindow)
{
    push_main_window();
    int main_requests = 0;
    g_signal_connect_swapped(main_window, "delete-event", G_CALLBACK(+[](int *count) -> gboolean {
                                 ++*count;
                                 return TRUE;
                             }),
                             &main_requests);
    GtkWidget *second = push_window("Second");
    // Without a grab nothing but the stack stands between the request and the window.
    gtk_window_set_modal(GTK_WINDOW(second), FALSE);
    send_close_request(main_window);
    EXPECT_EQ(0, main_requests);
    send_close_request(second);
    EXPECT_EQ(nullptr, find_window("Second"));
    send_close_request(main_window);
    EXPECT_EQ(1, main_requests);

    (void)z_window_stack_push_native_window(stack.get());
    send_close_request(main_window);
    z_window_stack_pop_window(stack.get());
    z_window_stack_busy_begin(stack.get(), z_busy_display::cursor);
    send_close_request(main_window);
    z_window_stack_busy_end(stack.get());
    EXPECT_EQ(1, main_requests);
}

TEST_F(WindowStackTest, TheFocusComesBackWithoutSelectingTheEntrysText)
{
    push_main_window();
    gtk_widget_grab_focus(entry);
    gtk_editable_select_region(GTK_EDITABLE(entry), 2, 2);
    gtk_widget_destroy(push_window("Second"));
    EXPECT_EQ(entry, gtk_window_get_focus(GTK_WINDOW(main_window)));
    EXPECT_FALSE(gtk_editable_get_selection_bounds(GTK_EDITABLE(entry), nullptr, nullptr));
    EXPECT_EQ(2, gtk_editable_get_position(GTK_EDITABLE(entry)));

    // Unless it has gone meanwhile.
    GtkWidget *second = push_window("Second");
    gtk_widget_destroy(entry);
    gtk_widget_destroy(second);
    EXPECT_TRUE(gtk_widget_get_sensitive(main_window));
}

TEST_F(WindowStackTest, ABusyWindowStaysUntilItIsEndedAndHidesBelowAMessage)
{
    push_main_window();
    gtk_widget_grab_focus(entry);
    z_window_stack_busy_begin(stack.get(), z_busy_display::window);
    z_window_stack_pop_window(stack.get());
    send_close_request(find_window("Please wait"));
    EXPECT_NE(nullptr, find_window("Please wait"));
    z_window_stack_set_busy_window_message_printf(stack.get(), "<%d & more>", 3);
    EXPECT_EQ("<3 & more>\n", get_label_texts(find_window("<3 & more>")));

    Steps steps;
    steps.add_in("Message", [this](GtkWidget *message) {
        EXPECT_EQ(nullptr, find_window("<3 & more>"));
        EXPECT_EQ(GTK_WINDOW(main_window), gtk_window_get_transient_for(GTK_WINDOW(message)));
        return press_button("Message", "OK");
    });
    z_message_show(stack.get(), "Text");
    EXPECT_NE(nullptr, find_window("<3 & more>"));
    EXPECT_FALSE(gtk_widget_get_sensitive(main_window));

    z_window_stack_busy_end(stack.get());
    EXPECT_EQ(nullptr, find_window("<3 & more>"));
    EXPECT_TRUE(gtk_widget_get_sensitive(main_window));
    EXPECT_EQ(entry, gtk_window_get_focus(GTK_WINDOW(main_window)));
}

TEST_F(WindowStackTest, OnlyLongAbsenceCountsAsLeavingTheProgram)
{
    push_main_window();
    std::vector<int64_t> returns;
    z_window_stack_set_focus_callback(
        stack.get(),
        [](z_window_stack *, int64_t seconds, gpointer data) {
            static_cast<std::vector<int64_t> *>(data)->push_back(seconds);
        },
        &returns);
    send_focus_change(main_window, true);
    // Short absences; the time of the first would run out within the second.
    for (int round = 0; round < 3; ++round) {
        send_focus_change(main_window, false);
        run_for(250);
        send_focus_change(main_window, true);
        run_for(100);
    }
    EXPECT_TRUE(returns.empty());

    send_focus_change(main_window, false);
    run_for(1100);
    send_focus_change(main_window, true);
    EXPECT_EQ(std::vector<int64_t>{1}, returns);
}

} // namespace
