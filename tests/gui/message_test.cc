#include "common/gui/message.h"

#include "common/gui/gui.h"
#include "common/gui/window_stack.h"
#include "tests/support/windows.h"

namespace {

TEST(Message, KindsHaveTheirTitlesIconsAndButtons)
{
    const z_window_stack_ptr stack = z_window_stack_new();
    const struct {
        void (*show)(z_window_stack *stack, const char *text);
        const char *title;
        const char *icon_name;
        const char *button;
    } cases[] = {
        {z_message_show, "Message", nullptr, "OK"},
        {z_message_show_warning, "Warning", "dialog-warning", "Close"},
        {z_message_show_error, "Error", "dialog-error", "Close"},
    };
    for (const auto &[show, title, icon_name, button] : cases) {
        SCOPED_TRACE(title);
        Steps steps;
        steps.add_in(title, [title = title, icon_name = icon_name, button = button](GtkWidget *dialog) {
            GtkWidget *image = find_widget(dialog, [](GtkWidget *widget) { return GTK_IS_IMAGE(widget); });
            const char *shown_icon_name = nullptr;
            if (image != nullptr)
                gtk_image_get_icon_name(GTK_IMAGE(image), &shown_icon_name, nullptr);
            EXPECT_STREQ(icon_name, shown_icon_name);
            return answer(title, std::string("<b>50% & more</b>\n") + button, button);
        });
        show(stack.get(), "<b>50% & more</b>");
    }
}

TEST(Message, ClosingAQuestionGivesTheAnswerOfTheButtonThatHasTheFocus)
{
    for (const bool if_closed : {false, true}) {
        const auto press_escape = [if_closed] {
            GtkWidget *dialog = find_window("Question");
            if (dialog == nullptr)
                return false;
            EXPECT_EQ(find_button(dialog, if_closed ? "Yes" : "No"),
                      gtk_window_get_focus(GTK_WINDOW(dialog)));
            press_key(dialog, GDK_KEY_Escape);
            return true;
        };
        const struct {
            std::function<bool()> step;
            bool expected;
        } cases[] = {
            {[] { return answer("Question", "Really?", "Yes"); }, true},
            {[] { return press_button("Question", "No"); }, false},
            {[] { return close_window("Question"); }, if_closed},
            {press_escape, if_closed},
        };
        for (const auto &[step, expected] : cases) {
            Steps steps;
            steps.add(step);
            EXPECT_EQ(expected, z_message_ask_yes_no_question_printf(
                                    nullptr, if_closed ? z_answer_if_closed::yes : z_answer_if_closed::no,
                                    z_question_icon::warning, "%s?", "Really"));
        }
    }
}

TEST(Message, LongTextsWrapAndStayOnTheScreen)
{
    Steps steps;
    steps.add_in("Error", [](GtkWidget *dialog) {
        EXPECT_GT(1000, gtk_widget_get_allocated_width(dialog));
        return press_button("Error", "Close");
    });
    z_message_show_error(nullptr, std::string(1000, 'x').c_str());
}

TEST(Message, ADialogDestroyedFromElsewhereCountsAsClosed)
{
    const z_window_stack_ptr stack = z_window_stack_new();
    GtkWidget *window = z_gui_create_window("Main");
    z_window_stack_push_window(stack.get(), window);
    show_and_wait_for_draw(window);
    Steps steps;
    steps.add_in("Question", [window](GtkWidget *) {
        gtk_widget_destroy(window);
        return true;
    });
    EXPECT_TRUE(z_message_ask_yes_no_question(stack.get(), z_answer_if_closed::yes, z_question_icon::question,
                                              "Really?"));
}

} // namespace
