#include <gtest/gtest.h>
#include <gtk/gtk.h>

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    gtk_test_init(&argc, &argv, nullptr);
    return RUN_ALL_TESTS();
}
