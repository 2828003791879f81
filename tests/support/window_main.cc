#include <cstring>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include "tests/support/known_warnings.h"

// Every warning of the toolkit ends the tests, but for those that are not the program's doing. Libraries log
// in one of two ways.

static gboolean is_fatal(const char *, GLogLevelFlags, const char *message, gpointer)
{
    return !is_known_warning(message);
}

static GLogWriterOutput write_log(GLogLevelFlags level, const GLogField *fields, gsize count, gpointer)
{
    for (const GLogField *field = fields; field != fields + count; ++field) {
        if (std::strcmp(field->key, "MESSAGE") == 0 &&
            is_known_warning(static_cast<const char *>(field->value)))
            return G_LOG_WRITER_HANDLED;
    }
    return g_log_writer_default(level, fields, count, nullptr);
}

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    g_test_log_set_fatal_handler(is_fatal, nullptr);
    g_log_set_writer_func(write_log, nullptr, nullptr);
    gtk_test_init(&argc, &argv, nullptr);
    return RUN_ALL_TESTS();
}
