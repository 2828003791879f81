#include <string>

#include "common/base/handles.h"
#include "common/gui/input_bell.h"
#include "common/gui/spacifying_entry.h"
#include "common/gui/spacifying_text_view.h"
#include "tests/support/windows.h"

namespace {

int bell_count;

struct SpacifyingInputs : WindowTest {
    SpacifyingInputs()
    {
        bell_count = 0;
        z_input_bell_replace([](GtkWidget *) { ++bell_count; });
    }
    ~SpacifyingInputs() override
    {
        z_input_bell_replace(nullptr);
    }
    void show(GtkWidget *input)
    {
        gtk_container_add(GTK_CONTAINER(box), input);
        gtk_container_add(GTK_CONTAINER(box), gtk_entry_new());
        gtk_widget_show_all(box);
        show_and_wait_for_draw(window);
        gtk_widget_grab_focus(input);
    }
    ZSpacifyingEntry *show_entry(const char *latin1, z_entry_runs runs = z_entry_runs::kept)
    {
        GtkWidget *entry = z_gui_create_spacifying_entry(runs, latin1, z_activates_default::no);
        show(entry);
        return Z_SPACIFYING_ENTRY(entry);
    }
    ZSpacifyingTextView *show_view(const char *latin1)
    {
        GtkWidget *view = z_gui_create_spacifying_text_view();
        z_spacifying_text_view_set_text(Z_SPACIFYING_TEXT_VIEW(view), latin1);
        show(view);
        return Z_SPACIFYING_TEXT_VIEW(view);
    }
    void paste(gpointer input, const char *utf8)
    {
        gtk_clipboard_set_text(gtk_clipboard_get(GDK_SELECTION_CLIPBOARD), utf8, -1);
        g_signal_emit_by_name(input, "paste-clipboard");
        run_for(50);
    }

    GtkWidget *box = z_gui_form<z_gui_create_vbox>::add(window, z_spacing::none);
};

// What an input method commits is typed as well: here it composes letters from accents.
TEST_F(SpacifyingInputs, TypedKeysGoInTheSameWay)
{
    GtkWidget *const inputs[] = {GTK_WIDGET(show_entry("")), GTK_WIDGET(show_view(""))};
    for (GtkWidget *input : inputs) {
        g_object_set(input, "im-module", "gtk-im-context-simple", nullptr);
        gtk_widget_grab_focus(input);
        bell_count = 0;
        for (const int key : {GDK_KEY_a, GDK_KEY_space, GDK_KEY_adiaeresis, GDK_KEY_EuroSign,
                              GDK_KEY_dead_diaeresis, GDK_KEY_o, GDK_KEY_dead_caron, GDK_KEY_z,
                              GDK_KEY_Cyrillic_zhe, GDK_KEY_nobreakspace, GDK_KEY_b})
            press_key(window, static_cast<guint>(key));
        const z_latin1_ptr text = GTK_IS_ENTRY(input)
                                      ? z_spacifying_entry_get_text(Z_SPACIFYING_ENTRY(input))
                                      : z_spacifying_text_view_get_text(Z_SPACIFYING_TEXT_VIEW(input));
        EXPECT_STREQ(text.get(), "a \xe4\xf6 b");
        EXPECT_EQ(bell_count, 4);
    }
}

TEST_F(SpacifyingInputs, EntryNormalisesWhatIsSetAndRead)
{
    auto *kept = show_entry(" a\xa0\t b ");
    EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(kept)), "a   b");
    auto *compacted = show_entry(" a\xa0\t b ", z_entry_runs::compacted);
    EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(compacted)), "a b");
    EXPECT_EQ(bell_count, 0);
    for (ZSpacifyingEntry *entry : {kept, compacted})
        gtk_entry_set_text(GTK_ENTRY(entry), "  D\u00f6rr   1 ");
    EXPECT_STREQ(z_spacifying_entry_get_text(kept).get(), "D\xf6rr   1");
    EXPECT_STREQ(z_spacifying_entry_get_text(compacted).get(), "D\xf6rr 1");
    // Past the signal, as an input method's or a theme's own code might.
    gtk_entry_buffer_set_text(gtk_entry_get_buffer(GTK_ENTRY(kept)), "a\tb\u20ac", -1);
    EXPECT_STREQ(z_spacifying_entry_get_text(kept).get(), "a b");
}

TEST_F(SpacifyingInputs, WhatIsPastedIsRepairedAndOnlyTheViewKeepsLines)
{
    auto *entry = show_entry("one two three");
    gtk_editable_select_region(GTK_EDITABLE(entry), 4, 7);
    paste(entry, "2\u00a0\u20ac\n2");
    EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(entry)), "one 2  2 three");
    EXPECT_EQ(gtk_editable_get_position(GTK_EDITABLE(entry)), 8);
    EXPECT_EQ(bell_count, 1);

    auto *view = show_view(" a\t\n b\xa0 \n");
    EXPECT_STREQ(z_spacifying_text_view_get_text(view).get(), "a \n b");
    EXPECT_EQ(bell_count, 1);
    paste(view, " \u20acp\n\tq ");
    EXPECT_STREQ(z_spacifying_text_view_get_text(view).get(), "a \n b p\n q");
    EXPECT_EQ(bell_count, 2);
}

TEST_F(SpacifyingInputs, TabLeavesTheTextView)
{
    auto *view = show_view("a");
    for (const guint key : {guint(GDK_KEY_Tab), guint(GDK_KEY_ISO_Left_Tab)}) {
        gtk_widget_grab_focus(GTK_WIDGET(view));
        press_key(window, key);
        EXPECT_NE(gtk_window_get_focus(GTK_WINDOW(window)), GTK_WIDGET(view)) << key;
    }
    EXPECT_STREQ(z_spacifying_text_view_get_text(view).get(), "a");
}

} // namespace
