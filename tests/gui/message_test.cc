#include "common/gui/message.h"

#include "tests/support/windows.h"

namespace {

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

} // namespace
