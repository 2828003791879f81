#pragma once

// Works windows from within the test process as their user would, and looks at what they show.
//
// A window of the program runs a main loop of its own until it closes, so a test lays out beforehand what
// will be done in it:
//
//     Steps steps;
//     steps.add([] { return press_button("Question", "Yes"); });
//     EXPECT_TRUE(z_message_ask_yes_no_question(...));

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include "common/base/handles.h"
#include "common/gui/cairo_handles.h"

// Runs the main loop until the condition holds; false when it does not within the time.
[[nodiscard]] bool run_until(const std::function<bool()> &condition, int timeout_ms = 5000);
void run_for(int milliseconds);

// Things to do while the code under test runs main loops that have nothing else to do. A step is tried again
// and again until it returns true; then comes the next one. If a step's time runs out, or a loop goes on for
// as long after the last one, the program ends as failed. All steps must be done when the object's life ends.
class Steps {
public:
    Steps();
    Steps(const Steps &) = delete;
    Steps &operator=(const Steps &) = delete;
    ~Steps();
    void add(std::function<bool()> step);
    // A step in a window or menu, once it is there.
    void add_in(std::string title, std::function<bool(GtkWidget *window)> step);
    void add_in_menu(std::function<bool(GtkWidget *menu)> step);

private:
    void wait_for_turn();
    void take_turn();

    std::vector<std::function<bool()>> steps;
    size_t next = 0;
    int64_t last_done_us = 0;
    z_source timer;
};

// A test in a window, which goes at its end.
struct WindowTest : testing::Test {
    explicit WindowTest(GtkWidget *shown = gtk_window_new(GTK_WINDOW_TOPLEVEL)) : window(shown) {}
    ~WindowTest() override
    {
        gtk_widget_destroy(window);
    }
    GtkWidget *const window;
};

// Shows the window with what is in it and returns when it has been drawn.
void show_and_wait_for_draw(GtkWidget *window);

// What is on the screen now, or null. Windows are told by their titles, menus need none.
[[nodiscard]] GtkWidget *find_window(std::string_view title);
[[nodiscard]] GtkWidget *find_menu();

// Walks the widget and all in it, the toolkit's internal children included; the first that fits, or null.
[[nodiscard]] GtkWidget *find_widget(GtkWidget *root, const std::function<bool(GtkWidget *)> &fits);
[[nodiscard]] GtkWidget *find_button(GtkWidget *root, std::string_view label);
// All texts of labels in the widget, in order, one per line.
[[nodiscard]] std::string get_label_texts(GtkWidget *root);

// Steps: false while there is nothing to press. Insensitive buttons and items cannot be pressed.
[[nodiscard]] bool press_button(std::string_view window_title, std::string_view label);
// Presses the button of a dialog that begins with exactly this text.
[[nodiscard]] bool answer(std::string_view title, const std::string &text, std::string_view button);
[[nodiscard]] bool choose_menu_item(std::string_view label);
// A close request as the window manager sends it.
[[nodiscard]] bool close_window(std::string_view title);
void send_close_request(GtkWidget *window);

// Presses and releases a mouse button at a point of the widget, or the widget's middle.
void click_at(GtkWidget *widget, int x, int y, guint button = GDK_BUTTON_PRIMARY);
void click(GtkWidget *widget);
void press_key(GtkWidget *window, guint keyval);
// What the user's change to another program and back brings a window.
void send_focus_change(GtkWidget *window, bool has_focus);

// A widget's picture as it would be drawn now.
class Picture {
public:
    explicit Picture(GtkWidget *widget);
    // 0xRRGGBB.
    [[nodiscard]] uint32_t get_rgb(int x, int y) const;

private:
    z_cairo_surface_ptr surface;
};
