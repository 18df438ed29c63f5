// Gestures where no form of the control leads: the scenarios show all others.
#include "widgets/Gestures.h"

#include <gtest/gtest.h>

namespace vorandine::widgets {
namespace {

struct Gestures : testing::Test {
    Form form;
    TextBox field;
    CommandButton button;
    CommandButton cancel;
    ListBox list;
    std::string log;

    Gestures() {
        form.place({0, 0, 4000, 300});
        for (Control* const control :
             std::initializer_list<Control*>{&field, &button, &cancel, &list}) {
            control->place({1000 * static_cast<int>(form.children().size()), 0, 900, 300});
            form.add(*control);
        }
        button.Click = [this] { log += "button "; };
        cancel.Click = [this] { log += "cancel "; };
        list.DblClick = [this] { log += "open" + std::to_string(list.ListIndex()) + " "; };
        form.focusFirst();
    }
};

TEST_F(Gestures, ALeavingRuleThatDisablesWhatIsPressedLeavesItUnpressed) {
    field.LostFocus = [&] { button.Enabled(false); };
    EXPECT_EQ(click(button), Outcome::Done);
    EXPECT_EQ(log, "");
    EXPECT_EQ(form.focus(), nullptr);
}

TEST_F(Gestures, EscapePressesTheFirstButtonThatCanBePressed) {
    cancel.cancelRank(1);
    button.cancelRank(2);
    pressKey(form, Key::Escape);
    cancel.Enabled(false);
    pressKey(form, Key::Escape);
    EXPECT_EQ(log, "cancel button ");
}

TEST_F(Gestures, SeveralLinesAreSelectedAsInEverySuchList) {
    list.multiSelect(true);
    for (const char* const line : {"a", "b", "c", "d"})
        list.AddItem(line);
    const auto selected = [&] {
        std::string all;
        for (int i = 0; i < list.ListCount(); ++i)
            all += list.Selected(i) ? list.List(i) : "";
        return all + " ";
    };
    std::string told;
    for (const auto& [line, with] : {std::pair(1, Modifiers{}),
                                     {3, {.control = false, .shift = true}},
                                     {2, {.control = true, .shift = false}},
                                     {0, {}}}) {
        clickLine(list, line, with);
        told += selected();
    }
    EXPECT_EQ(told, "b bcd bd a ");
    EXPECT_EQ(mark(list, {1, 3}), Outcome::Done);
    EXPECT_EQ(mark(list, {1, 4}), Outcome::Refused);
    pressKey(form, Key::Enter);
    EXPECT_EQ(log + selected(), "open3 bd ");
    list.RemoveItem(0);
    EXPECT_EQ(selected(), "bd ");
    EXPECT_EQ(mark(list, {}), Outcome::Done);
    pressKey(form, Key::Enter); // opens no line that is not selected
    EXPECT_EQ(log, "open3 ");
}

} // namespace
} // namespace vorandine::widgets
