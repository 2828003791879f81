#include <cstring>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include "common/base/fs_path.h"

// Every warning of the toolkit ends the tests, but for those that are Wine's doing, which is not Windows in
// everything. Libraries log in one of two ways.

static gboolean is_fatal(const char *, GLogLevelFlags, const char *message, gpointer)
{
    if (z_fs_path_delimiter == '/')
        return TRUE;
    for (
        const char *known : {
            "Failed to get device node property", // of a monitor that no driver knows
            "pango_font_description_get_family: assertion 'desc != NULL' failed", // for unlisted fonts
            "Setting selection property with 0x0000000000000000 == NULL", // of a clipboard that changes hands
            "Unsupported generic selection NONE",                         // the same
        })
        if (std::strstr(message, known) != nullptr)
            return FALSE;
    return TRUE;
}

static GLogWriterOutput write_log(GLogLevelFlags level, const GLogField *fields, gsize count, gpointer)
{
    for (const GLogField *field = fields; field != fields + count; ++field) {
        if (std::strcmp(field->key, "MESSAGE") == 0 &&
            !is_fatal(nullptr, level, static_cast<const char *>(field->value), nullptr))
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
