#include "common/gui/langstr_display.h"

#include "tests/support/langstr_text.h"
#include "tests/support/windows.h"

namespace {

TEST(LangstrDisplay, ShowsEachTextBelowTheNameOfItsLanguage)
{
    const z_ref<GtkWidget> display = z_sink(z_langstr_display_new());
    for (const char *langstr : {"sv=Replaced", "en=Door|sv=D\xf6rr|qq=x"})
        z_langstr_display_set_text(Z_LANGSTR_DISPLAY(display.get()), langstr_from_text(langstr).get());
    z_utf8_ptr text;
    g_object_get(gtk_text_view_get_buffer(GTK_TEXT_VIEW(display.get())), "text",
                 static_cast<char **>(z_out(text)), nullptr);
    EXPECT_STREQ("English [en]\n\nDoor\n\nSwedish [sv]\n\nDörr\n\nUnknown language [qq]\n\nx", text.get());
    gtk_widget_destroy(display.get());
}

} // namespace
