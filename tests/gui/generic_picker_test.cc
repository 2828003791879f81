#include "common/gui/generic_picker.h"

#include <vector>

#include "common/gui/gui.h"
#include "common/gui/string_picker.h"
#include "tests/support/windows.h"

namespace {

// Options: "One", a separator, "Three".
struct PickerTest : testing::Test {
    PickerTest()
    {
        window = z_gui_create_window("Picker");
        GtkWidget *box = z_gui_add_hbox(window, z_spacing::normal);
        GtkWidget *widget = z_gui_pack_string_picker(box, z_expand::no);
        picker = Z_GENERIC_PICKER(widget);
        button = find_widget(widget, [](GtkWidget *found) { return GTK_IS_TOGGLE_BUTTON(found) != FALSE; });
        g_signal_connect(picker, "picked", G_CALLBACK(picked_callback), this);
    }
    ~PickerTest() override
    {
        if (window != nullptr)
            gtk_widget_destroy(window);
    }

    static void picked_callback(ZGenericPicker *from, int index, gpointer data)
    {
        auto *self = static_cast<PickerTest *>(data);
        EXPECT_EQ(index, z_generic_picker_get_current_option_index(from));
        self->picked.push_back(index);
    }
    void fill()
    {
        EXPECT_EQ(0, z_string_picker_add_option(Z_STRING_PICKER(picker), "One"));
        z_generic_picker_add_separator(picker);
        EXPECT_EQ(2, z_string_picker_add_option(Z_STRING_PICKER(picker), "Three"));
    }
    std::string shown()
    {
        return get_label_texts(button);
    }

    GtkWidget *window;
    ZGenericPicker *picker;
    GtkWidget *button;
    std::vector<int> picked;
};

TEST_F(PickerTest, ShowsTheOptionOfItsIndexAndCannotBePressedWithoutAny)
{
    z_generic_picker_set_no_options_text(picker, "Nothing here");
    EXPECT_EQ("Nothing here\n", shown());
    EXPECT_FALSE(gtk_widget_get_sensitive(button));
    EXPECT_FALSE(z_generic_picker_set_current_option(picker, nullptr));
    fill();
    EXPECT_EQ("\n", shown());
    EXPECT_TRUE(gtk_widget_get_sensitive(button));
    const struct {
        int index;
        const char *text;
    } cases[] = {{2, "Three"}, {1, nullptr}, {0, "One"}, {3, nullptr}, {-1, nullptr}};
    for (const auto &[index, text] : cases) {
        z_generic_picker_set_current_option_index(picker, index);
        EXPECT_EQ(index, z_generic_picker_get_current_option_index(picker));
        EXPECT_EQ(std::string(text == nullptr ? "" : text) + "\n", shown());
        EXPECT_STREQ(text, z_string_picker_get_option_at_index(Z_STRING_PICKER(picker), index).get());
    }
    const gpointer option = z_generic_picker_get_option_at_index(picker, 2);
    EXPECT_TRUE(z_generic_picker_set_current_option(picker, option));
    EXPECT_EQ("Three\n", shown());
    EXPECT_TRUE(picked.empty());
}

TEST_F(PickerTest, TheMenuPicksTheChosenOptionOnce)
{
    fill();
    show_and_wait_for_draw(window);
    Steps steps;
    steps.add(close_menu);
    click(button);
    EXPECT_TRUE(picked.empty());
    steps.add_in_menu([](GtkWidget *menu) {
        EXPECT_EQ("One\nThree\n", get_label_texts(menu));
        EXPECT_TRUE(find_widget(menu, [](GtkWidget *item) { return GTK_IS_SEPARATOR_MENU_ITEM(item); }));
        return choose_menu_item("Three");
    });
    click(button);
    EXPECT_EQ(std::vector{2}, picked);
    EXPECT_EQ("Three\n", shown());
    EXPECT_FALSE(gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(button)));

    // Whoever hears of the choice may close the window.
    g_signal_connect_swapped(picker, "picked", G_CALLBACK(gtk_widget_destroy), window);
    g_signal_connect(window, "destroy", G_CALLBACK(gtk_widget_destroyed), &window);
    steps.add([] { return choose_menu_item("One"); });
    click(button);
    EXPECT_EQ((std::vector{2, 0}), picked);
    EXPECT_EQ(nullptr, window);
}

} // namespace
