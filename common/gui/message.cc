#include "common/gui/message.h"

#include <algorithm>
#include <cstdarg>

#include "common/gui/cairo_handles.h"
#include "common/gui/gui.h"
#include "common/gui/gui_font.h"
#include "common/gui/window_stack.h"

struct z_message_kind {
    const char *title;
    const char *icon_name;
    z_dialog_buttons buttons;
};

static constexpr z_message_kind message_kind = {"Message", nullptr, z_dialog_buttons::ok};
static constexpr z_message_kind warning_kind = {"Warning", "dialog-warning", z_dialog_buttons::close};
static constexpr z_message_kind error_kind = {"Error", "dialog-error", z_dialog_buttons::close};
static constexpr z_message_kind question_kind = {"Question", "dialog-question", z_dialog_buttons::none};

static constexpr int icon_spacing_px = 20;
static constexpr int plain_spacing_px = 25;
static constexpr int max_width_chars = 80;
static constexpr int room_for_buttons_px = 200;

static z_utf8_ptr format_text(const char *format, va_list arguments) G_GNUC_PRINTF(1, 0);
static z_utf8_ptr format_text(const char *format, va_list arguments)
{
    return z_utf8_ptr(g_strdup_vprintf(format, arguments));
}

// Where a long path has to be broken, no hyphen may look like a part of it.
static z_attr_list_ptr create_text_attributes()
{
    z_attr_list_ptr attributes(pango_attr_list_new());
    pango_attr_list_insert(attributes.get(), pango_attr_insert_hyphens_new(FALSE));
    return attributes;
}

// How many characters fit on a line of the screen, beside what the row holds already.
static int get_max_width_chars(GtkWidget *row)
{
    int taken_px = 0;
    gtk_widget_get_preferred_width(row, nullptr, &taken_px);
    const int room_px =
        z_gui_get_room_for_window(row).width_px - taken_px - gtk_box_get_spacing(GTK_BOX(row));
    return std::clamp(room_px / z_gui_get_char_width(row), 1, max_width_chars);
}

// A text that leaves no room on the screen for the buttons is scrolled.
static void pack_text(GtkWidget *row, const char *text)
{
    GtkWidget *label = z_gui_create_label(text, 0, 0);
    gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
    gtk_label_set_line_wrap_mode(GTK_LABEL(label), PANGO_WRAP_WORD_CHAR);
    gtk_label_set_max_width_chars(GTK_LABEL(label), get_max_width_chars(row));
    gtk_label_set_attributes(GTK_LABEL(label), create_text_attributes().get());

    GtkRequisition natural;
    gtk_widget_get_preferred_size(label, nullptr, &natural);
    const int max_height_px = z_gui_get_room_for_window(row).height_px - room_for_buttons_px;
    if (natural.height <= max_height_px) {
        z_gui_place_in_box(row, z_expand::yes, label);
        return;
    }
    GtkWidget *scrolled_window = z_gui_pack_scrolled_window(
        row, z_expand::yes, -1, max_height_px, GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC, GTK_SHADOW_NONE);
    gtk_widget_set_size_request(label, natural.width, -1);
    gtk_widget_set_margin_end(label, z_gui_get_default_margin());
    z_gui_place_in_container(scrolled_window, label);
}

static GtkWidget *create_dialog(const z_message_kind &kind, const char *text)
{
    GtkWidget *dialog = z_gui_create_dialog(kind.title, kind.buttons);
    gtk_window_set_resizable(GTK_WINDOW(dialog), FALSE);
    atk_object_set_role(gtk_widget_get_accessible(dialog), ATK_ROLE_ALERT);

    const bool has_icon = kind.icon_name != nullptr;
    const int spacing_px = has_icon ? icon_spacing_px : plain_spacing_px;
    GtkWidget *row =
        z_gui_pack_hbox(gtk_dialog_get_content_area(GTK_DIALOG(dialog)), z_expand::yes, z_spacing::none);
    gtk_box_set_spacing(GTK_BOX(row), spacing_px);
    z_gui_set_margins(row, 20, 25, 20, spacing_px);
    if (has_icon) {
        GtkWidget *column = z_gui_pack_vbox(row, z_expand::no, z_spacing::none);
        z_gui_pack_image_from_icon_name(column, kind.icon_name, GTK_ICON_SIZE_DIALOG);
    }
    pack_text(row, text);
    return dialog;
}

static void show_message(z_window_stack *stack, const z_message_kind &kind, const char *text)
{
    z_message_run_and_destroy_dialog(stack, create_dialog(kind, text));
}

void z_message_show(z_window_stack *stack, const char *text)
{
    show_message(stack, message_kind, text);
}

void z_message_show_printf(z_window_stack *stack, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const z_utf8_ptr text = format_text(format, arguments);
    va_end(arguments);
    show_message(stack, message_kind, text.get());
}

void z_message_show_warning(z_window_stack *stack, const char *text)
{
    show_message(stack, warning_kind, text);
}

void z_message_show_warning_printf(z_window_stack *stack, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const z_utf8_ptr text = format_text(format, arguments);
    va_end(arguments);
    show_message(stack, warning_kind, text.get());
}

void z_message_show_error(z_window_stack *stack, const char *text)
{
    show_message(stack, error_kind, text);
}

void z_message_show_error_printf(z_window_stack *stack, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const z_utf8_ptr text = format_text(format, arguments);
    va_end(arguments);
    show_message(stack, error_kind, text.get());
}

void z_message_show_unknown_error(z_window_stack *stack)
{
    show_message(stack, error_kind, "An unknown program error has occured.");
}

bool z_message_ask_yes_no_question(z_window_stack *stack, z_answer_if_closed answer_if_closed,
                                   z_question_icon icon, const char *text)
{
    z_message_kind kind = question_kind;
    kind.buttons = z_dialog_buttons::yes_no;
    if (icon == z_question_icon::warning)
        kind.icon_name = "dialog-warning";
    GtkWidget *dialog = create_dialog(kind, text);
    const bool yes_if_closed = answer_if_closed == z_answer_if_closed::yes;
    gtk_widget_grab_focus(gtk_dialog_get_widget_for_response(
        GTK_DIALOG(dialog), yes_if_closed ? GTK_RESPONSE_YES : GTK_RESPONSE_NO));

    const int response = z_message_run_and_destroy_dialog(stack, dialog);
    return response == GTK_RESPONSE_YES || (response != GTK_RESPONSE_NO && yes_if_closed);
}

bool z_message_ask_yes_no_question_printf(z_window_stack *stack, z_answer_if_closed answer_if_closed,
                                          z_question_icon icon, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const z_utf8_ptr text = format_text(format, arguments);
    va_end(arguments);
    return z_message_ask_yes_no_question(stack, answer_if_closed, icon, text.get());
}

GtkWidget *z_message_create_question_dialog(const char *title, const char *text)
{
    z_message_kind kind = question_kind;
    if (title != nullptr)
        kind.title = title;
    return create_dialog(kind, text);
}

GtkWidget *z_message_create_question_dialog_printf(const char *title, const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const z_utf8_ptr text = format_text(format, arguments);
    va_end(arguments);
    return z_message_create_question_dialog(title, text.get());
}

int z_message_run_and_destroy_dialog(z_window_stack *stack, GtkWidget *dialog)
{
    const z_ref<GtkWidget> held = z_share(dialog);
    if (stack != nullptr)
        z_window_stack_push_window(stack, dialog);
    const int response = gtk_dialog_run(GTK_DIALOG(dialog));
    // Which also takes it off the stack.
    gtk_widget_destroy(dialog);
    return response;
}
