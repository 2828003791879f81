#include "common/gui/langstr_display.h"

#include "tests/support/langstr_text.h"
#include "tests/support/windows.h"

namespace {

TEST(LangstrDisplay, ShowsEachTextBelowTheNameOfItsLanguage)
{
    const struct {
        const char *langstr;
        const char *shown;
    } cases[] = {
        {"en=Door|sv=D\xf6rr", "English [en]\n\nDoor\n\nSwedish [sv]\n\nDörr"},
        {"=Door", "Undefined\n\nDoor"},
        {"qq=Door", "Unknown language [qq]\n\nDoor"},
        {"", ""},
    };
    const z_ref<GtkWidget> display = z_sink(z_langstr_display_new());
    GtkTextBuffer *buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(display.get()));
    GtkTextTag *bold = gtk_text_tag_table_lookup(gtk_text_buffer_get_tag_table(buffer), "bold");
    for (const auto &[langstr, shown] : cases) {
        z_langstr_display_set_text(Z_LANGSTR_DISPLAY(display.get()), langstr_from_text(langstr).get());
        GtkTextIter start;
        GtkTextIter end;
        gtk_text_buffer_get_bounds(buffer, &start, &end);
        const z_utf8_ptr text(gtk_text_buffer_get_text(buffer, &start, &end, FALSE));
        EXPECT_STREQ(shown, text.get());
        // The name alone is bold.
        if (*shown == '\0')
            continue;
        EXPECT_TRUE(gtk_text_iter_starts_tag(&start, bold));
        EXPECT_TRUE(gtk_text_iter_forward_to_tag_toggle(&start, bold) && gtk_text_iter_ends_line(&start));
        EXPECT_FALSE(gtk_text_iter_ends_tag(&end, bold));
    }
    gtk_widget_destroy(display.get());
}

} // namespace
