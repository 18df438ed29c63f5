// Where the focus goes, what the leaving rule stops, and what a user can reach at all.
#include "gestures_support.h"

#include <gtest/gtest.h>

namespace vorandine::widgets {
namespace {

using gestures_test::TestForm;

struct GesturesFocus : testing::Test, TestForm {
    // The first field keeps the focus until it holds "ok".
    void ruleOnFirst() {
        first.LostFocus = [this] {
            log += "rule ";
            if (first.Text() != "ok")
                first.SetFocus();
        };
    }
};

TEST_F(GesturesFocus, FieldThatGivesTheFocusBackEndsTheGestureThere) {
    ruleOnFirst();
    second.Text("before");
    EXPECT_EQ(click(button), Outcome::FocusKept);
    EXPECT_EQ(typeText(second, "x"), Outcome::FocusKept);
    EXPECT_EQ(erase(second), Outcome::FocusKept);
    EXPECT_EQ(clickLine(list, 1), Outcome::FocusKept);
    EXPECT_EQ(pressKey(form, Key::Tab), Outcome::FocusKept);
    EXPECT_EQ(taken(), "rule rule rule rule rule ");
    EXPECT_EQ(focus(), "Txt_Premier");
    EXPECT_EQ(second.Text(), "before");
    EXPECT_EQ(list.ListIndex(), -1);

    EXPECT_EQ(typeText(first, "ok"), Outcome::Done);
    EXPECT_EQ(click(button), Outcome::Done);
    EXPECT_EQ(taken(), "rule click ");
    EXPECT_EQ(focus(), "Cmd_Valider");
}

TEST_F(GesturesFocus, LeavingRuleRunsOnlyWhenTheUserMovesTheFocus) {
    ruleOnFirst();
    EXPECT_EQ(rightClick(list), Outcome::Done);
    EXPECT_EQ(typeText(first, "ab"), Outcome::Done);
    second.Enabled(false);
    EXPECT_EQ(typeText(second, "x"), Outcome::Refused);
    second.Enabled(true);
    second.SetFocus();
    EXPECT_EQ(focus(), "Txt_Second");
    EXPECT_EQ(taken(), "");

    // A field disabled while it has the focus has lost it without a rule.
    first.SetFocus();
    first.Enabled(false);
    EXPECT_EQ(focus(), "");
    EXPECT_EQ(click(button), Outcome::Done);
    EXPECT_EQ(taken(), "click ");
}

TEST_F(GesturesFocus, LeavingRuleThatDisablesTheTargetLeavesItUnpressed) {
    first.LostFocus = [this] { button.Enabled(false); };
    EXPECT_EQ(click(button), Outcome::Done);
    EXPECT_EQ(taken(), "");
    EXPECT_EQ(focus(), "");
}

TEST_F(GesturesFocus, ErrorOfARuleOrAHandlerIsToldOnce) {
    first.LostFocus = [] { throw Error(errors::Unexpected, "rule"); };
    EXPECT_EQ(click(button), Outcome::Done);
    EXPECT_EQ(taken(), "rule ");
    EXPECT_EQ(focus(), "Txt_Premier");

    first.LostFocus = nullptr;
    button.Click = [] { throw std::out_of_range("handler"); };
    // One gesture within another, as where a window's close button presses a button.
    form.CloseButton = [this] { return click(button) != Outcome::Refused; };
    EXPECT_EQ(closeForm(form), Outcome::Done);
    EXPECT_EQ(taken(), "handler ");
}

TEST_F(GesturesFocus, TabGoesRoundPastWhatCannotHaveTheFocus) {
    Label label;
    add(label, "Etq_Texte");
    button.Enabled(false);
    second.Visible(false);
    std::string order;
    for (int i = 0; i < 3; ++i) {
        pressKey(form, Key::Tab);
        order += focus() + " ";
    }
    EXPECT_EQ(order, "Lst_Lignes Txt_Premier Lst_Lignes ");
    pressKey(form, Key::BackTab);
    EXPECT_EQ(focus(), "Txt_Premier");

    // From a control that lost the focus by being disabled, Tab goes on from its place.
    second.Visible(true);
    second.SetFocus();
    second.Enabled(false);
    button.Enabled(true);
    pressKey(form, Key::Tab);
    EXPECT_EQ(focus(), "Cmd_Valider");
}

TEST_F(GesturesFocus, NobodyReachesWhatIsDisabledHiddenCoveredOrOnAnotherTab) {
    Frame frame;
    CommandButton inside;
    add(frame, "Cdr_Cadre");
    inside.identify("Cmd_Dedans");
    inside.Click = [this] { log += "inside "; };
    inside.place({0, 0, 500, 200});
    frame.add(inside);
    EXPECT_EQ(click(inside), Outcome::Done);
    frame.Enabled(false);
    EXPECT_TRUE(inside.Enabled());
    EXPECT_EQ(click(inside), Outcome::Refused);
    frame.Enabled(true);

    ListBox above;
    add(above, "Lst_Dessus");
    above.place(frame.place());
    EXPECT_EQ(click(inside), Outcome::Refused);
    // What is covered in part can be pressed beside.
    above.place({frame.place().left + 1, 0, 900, 300});
    EXPECT_EQ(click(inside), Outcome::Done);

    TabContainer tabs;
    TextBox onSecond;
    add(tabs, "Ong_Onglets");
    tabs.tabs({"Un", "Deux", "Trois"});
    tabs.add(onSecond, 1);
    tabs.TabEnabled(2, false);
    EXPECT_EQ(focusField(onSecond), Outcome::Refused);
    EXPECT_EQ(showTab(tabs, 2), Outcome::Refused);
    EXPECT_EQ(showTab(tabs, 3), Outcome::Refused);
    EXPECT_EQ(showTab(tabs, 1), Outcome::Done);
    EXPECT_EQ(focus(), "Ong_Onglets");
    EXPECT_EQ(focusField(onSecond), Outcome::Done);

    form.Unload();
    EXPECT_EQ(click(button), Outcome::Refused);
    EXPECT_EQ(taken(), "inside inside ");
}

TEST_F(GesturesFocus, EscapePressesTheFirstButtonThatCanBePressed) {
    CommandButton cancel;
    add(cancel, "Cmd_Annuler");
    cancel.Click = [this] { log += "cancel "; };
    cancel.cancelRank(1);
    button.cancelRank(2);
    pressKey(form, Key::Escape);
    cancel.Enabled(false);
    pressKey(form, Key::Escape);
    EXPECT_EQ(taken(), "cancel click ");

    ruleOnFirst();
    first.SetFocus();
    EXPECT_EQ(pressKey(form, Key::Escape), Outcome::FocusKept);
    EXPECT_EQ(taken(), "rule ");
}

TEST_F(GesturesFocus, FormThatRefusesToUnloadStays) {
    bool stay = true;
    form.QueryUnload = [&](bool& cancel) { cancel = stay; };
    EXPECT_EQ(closeForm(form), Outcome::Refused);
    EXPECT_FALSE(form.unloaded());
    stay = false;
    EXPECT_EQ(closeForm(form), Outcome::Done);
    EXPECT_TRUE(form.unloaded());
}

TEST_F(GesturesFocus, ControlTakenOffTheFormHasTheFocusNoMore) {
    UserControl control;
    {
        TextBox field;
        add(control, "Ctr_Pose");
        control.add(field);
        ASSERT_EQ(focusField(field), Outcome::Done);
        form.remove(control);
        control.remove(field);
    }
    EXPECT_EQ(focus(), "");
    EXPECT_EQ(click(button), Outcome::Done);
    EXPECT_EQ(taken(), "click ");
}

} // namespace
} // namespace vorandine::widgets
