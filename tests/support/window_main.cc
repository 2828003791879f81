#include <cstring>

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include "common/base/utf8.h"

// Every warning of the toolkit ends the tests, but for those with a text that ZANVEL_KNOWN_WARNINGS holds, with
// bars between them. Libraries log in one of two ways.

static gboolean is_fatal(const char *, GLogLevelFlags, const char *message, gpointer)
{
    const char *known_texts = g_getenv("ZANVEL_KNOWN_WARNINGS");
    const z_utf8_strv_ptr known(g_strsplit(known_texts != nullptr ? known_texts : "", "|", -1));
    for (char **text = known.get(); *text != nullptr; ++text)
        if (std::strstr(message, *text) != nullptr)
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
