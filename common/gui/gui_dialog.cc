// Dialogs of gui_create.h.

#include "common/base/handles.h"
#include "common/gui/css.h"
#include "common/gui/gui_create.h"

static bool prefers_yes_before_no()
{
    gboolean result = FALSE;
    g_object_get(gtk_settings_get_default(), "gtk-alternative-button-order", &result, nullptr);
    return result;
}

static void add_buttons(GtkDialog *dialog, z_dialog_buttons buttons)
{
    switch (buttons) {
    case z_dialog_buttons::none:
        break;
    case z_dialog_buttons::ok:
        gtk_dialog_add_button(dialog, "OK", GTK_RESPONSE_OK);
        break;
    case z_dialog_buttons::close:
        gtk_dialog_add_button(dialog, "Close", GTK_RESPONSE_CLOSE);
        break;
    case z_dialog_buttons::yes_no:
        if (prefers_yes_before_no())
            gtk_dialog_add_buttons(dialog, "Yes", GTK_RESPONSE_YES, "No", GTK_RESPONSE_NO, nullptr);
        else
            gtk_dialog_add_buttons(dialog, "No", GTK_RESPONSE_NO, "Yes", GTK_RESPONSE_YES, nullptr);
        break;
    }
}

GtkWidget *z_gui_create_dialog(const char *title, z_dialog_buttons buttons)
{
    GtkWidget *dialog = gtk_dialog_new();
    gtk_window_set_modal(GTK_WINDOW(dialog), TRUE);
    gtk_window_set_destroy_with_parent(GTK_WINDOW(dialog), TRUE);
    if (title != nullptr)
        gtk_window_set_title(GTK_WINDOW(dialog), title);
    add_buttons(GTK_DIALOG(dialog), buttons);

    // The toolkit's own accessor of the action area is deprecated.
    const z_ref<GtkBuilder> builder = z_take(gtk_builder_new());
    GObject *action_area =
        gtk_buildable_get_internal_child(GTK_BUILDABLE(dialog), builder.get(), "action_area");
    gtk_button_box_set_layout(GTK_BUTTON_BOX(action_area), GTK_BUTTONBOX_EXPAND);
    z_css_style_widget(dialog,
                       "dialog { -GtkDialog-action-area-border: 0px; -GtkDialog-content-area-border: 0px }");
    return dialog;
}
