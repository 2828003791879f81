#include "common/gui/generic_picker.h"

#include <vector>

#include "common/gui/gui.h"
#include "common/gui/string_picker.h"
#include "tests/support/windows.h"

namespace {

TEST(GenericPicker, TheMenuPicksTheChosenOptionOnce)
{
    GtkWidget *window = z_gui_create_window("Picker");
    GtkWidget *widget = z_gui_pack_string_picker(z_gui_add_hbox(window, z_spacing::normal), z_expand::no);
    auto *picker = Z_GENERIC_PICKER(widget);
    GtkWidget *button =
        find_widget(widget, [](GtkWidget *found) { return GTK_IS_TOGGLE_BUTTON(found) != FALSE; });
    std::vector<int> picked;
    g_signal_connect(picker, "picked", G_CALLBACK(+[](ZGenericPicker *, int index, gpointer data) {
                         static_cast<std::vector<int> *>(data)->push_back(index);
                     }),
                     &picked);
    z_generic_picker_set_no_options_text(picker, "Nothing here");
    EXPECT_EQ("Nothing here\n", get_label_texts(button));
    EXPECT_FALSE(gtk_widget_get_sensitive(button));
    EXPECT_EQ(0, z_string_picker_add_option(Z_STRING_PICKER(picker), "One"));
    z_generic_picker_add_separator(picker);
    EXPECT_EQ(2, z_string_picker_add_option(Z_STRING_PICKER(picker), "Three"));
    z_generic_picker_set_current_option_index(picker, 0);
    EXPECT_EQ("One\n", get_label_texts(button));

    show_and_wait_for_draw(window);
    Steps steps;
    steps.add_in_menu([](GtkWidget *menu) {
        gtk_menu_shell_deactivate(GTK_MENU_SHELL(menu));
        return true;
    });
    gtk_button_clicked(GTK_BUTTON(button));
    EXPECT_TRUE(picked.empty());
    steps.add_in_menu([](GtkWidget *menu) {
        EXPECT_EQ("One\nThree\n", get_label_texts(menu));
        return choose_menu_item("Three");
    });
    gtk_button_clicked(GTK_BUTTON(button));
    EXPECT_EQ(std::vector{2}, picked);
    EXPECT_EQ("Three\n", get_label_texts(button));
    EXPECT_FALSE(gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(button)));
    gtk_widget_destroy(window);
}

} // namespace
