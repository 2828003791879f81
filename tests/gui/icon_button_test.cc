#include "common/gui/icon_button.h"

#include "common/gui/gui.h"
#include "common/gui/resources.h"
#include "tests/support/windows.h"

namespace {

TEST(IconButton, GivesSmallImagesRoomAndLeavesOutThoseThatDoNotLoad)
{
    ASSERT_TRUE(z_resources_open());
    const struct {
        const char *member_name;
        const char *label;
        int image_width; // 0 without an image
        int image_height;
    } cases[] = {
        {"save.png", "Save", 16 + 4, 24},
        {"save.png", nullptr, 16 + 8, 24},
        {"text_tab_menu.png", "Tab", 11, 9},
        {"no_such.png", "Label alone", 0, 0},
    };
    GtkWidget *window = z_gui_create_window("Buttons");
    GtkWidget *box = z_gui_add_vbox(window, z_spacing::normal);
    for (const auto &[member_name, label, image_width, image_height] : cases) {
        GtkWidget *button = z_gui_pack_icon_button(box, z_default_button::no, member_name, label);
        GtkWidget *image = gtk_button_get_image(GTK_BUTTON(button));
        EXPECT_STREQ(label, gtk_button_get_label(GTK_BUTTON(button)));
        ASSERT_EQ(image_width != 0, image != nullptr);
        if (image == nullptr)
            continue;
        GtkRequisition size;
        gtk_widget_get_preferred_size(image, &size, nullptr);
        EXPECT_EQ(image_width, size.width);
        EXPECT_EQ(image_height, size.height);
    }
    gtk_widget_destroy(window);
    z_resources_clean_up();
}

} // namespace
