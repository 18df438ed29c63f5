// Gestures where no form of the control leads: the scenarios show all others.
#include "widgets/Gestures.h"

#include <gtest/gtest.h>

namespace vorandine::widgets {
namespace {

TEST(Gestures, ALeavingRuleThatDisablesWhatIsPressedLeavesItUnpressed) {
    Form form;
    TextBox field;
    CommandButton button;
    for (Control* const control : {static_cast<Control*>(&field), static_cast<Control*>(&button)}) {
        control->place({control == &field ? 0 : 1000, 0, 900, 300});
        form.add(*control);
    }
    form.place({0, 0, 2000, 300});
    form.focusFirst();
    ASSERT_EQ(form.focus(), &field);
    field.LostFocus = [&] { button.Enabled(false); };
    button.Click = [] { ADD_FAILURE() << "pressed"; };
    EXPECT_EQ(click(button), Outcome::Done);
    EXPECT_EQ(form.focus(), nullptr);
}

} // namespace
} // namespace vorandine::widgets
