// What each gesture does once it has reached its control: keys, lists, entries, drags. What bars
// and options do besides is shown by the scenarios.
#include "gestures_support.h"

#include <gtest/gtest.h>

namespace vorandine::widgets {
namespace {

using gestures_test::TestForm;

struct GesturesControls : testing::Test, TestForm {
    [[nodiscard]] std::string selected() const {
        std::string all;
        for (int i = 0; i < list.ListCount(); ++i)
            if (list.Selected(i))
                all += list.List(i);
        return all;
    }
};

TEST_F(GesturesControls, KeyRuleReplacesOrDropsTypedKeysButSeesNoPaste) {
    first.KeyPress = [](char32_t& key) {
        if (key == U'.')
            key = U',';
        else if (key == U'x')
            key = 0;
    };
    first.MaxLength(6);
    typeText(first, "1.xé€5");
    EXPECT_EQ(first.Text(), "1,é€5");
    typeText(first, "678");
    EXPECT_EQ(first.Text(), "1,é€56");
    pressKey(form, Key::Backspace);
    EXPECT_EQ(first.Text(), "1,é€5");
    EXPECT_EQ(typeKey(form, U'x'), Outcome::Done);
    EXPECT_EQ(first.Text(), "1,é€5");

    paste(first, "a.\tx\r\né€ trop long");
    EXPECT_EQ(first.Text(), "a. x é");
    paste(first, "");
    EXPECT_EQ(first.Text(), "");

    // A rule may keep the backspace key to itself.
    typeText(first, "ab");
    first.KeyPress = [](char32_t& key) { key = 0; };
    pressKey(form, Key::Backspace);
    EXPECT_EQ(first.Text(), "ab");
    erase(first);
    EXPECT_EQ(first.Text(), "");
}

TEST_F(GesturesControls, DeleteAndBackspaceTakeTheSelectionOrOneCharacter) {
    int changes = 0;
    first.Change = [&] { ++changes; };
    typeText(first, "été");
    pressKey(form, Key::Delete);
    EXPECT_EQ(first.Text(), "été");
    EXPECT_EQ(changes, 3);
    first.select(0, 0);
    pressKey(form, Key::Delete);
    EXPECT_EQ(first.Text(), "té");
    first.select(2, 1);
    pressKey(form, Key::Backspace);
    EXPECT_EQ(first.Text(), "t");
    first.selectAll();
    typeKey(form, U'ç');
    pressKey(form, Key::Space);
    EXPECT_EQ(first.Text(), "ç ");
}

TEST_F(GesturesControls, ClickOnALineRunsClickEachTimeKeysMoveByOne) {
    clickLine(list, 1);
    clickLine(list, 1);
    EXPECT_EQ(taken(), "line1 line1 ");
    EXPECT_EQ(clickLine(list, 4), Outcome::Refused);
    EXPECT_EQ(mark(list, {0}), Outcome::Refused);
    EXPECT_EQ(doubleClickLine(list, -1), Outcome::Refused);
    doubleClickLine(list, 2);
    pressKey(form, Key::Enter);
    EXPECT_EQ(taken(), "line2 open2 open2 ");
    pressKey(form, Key::Down);
    pressKey(form, Key::Down);
    pressKey(form, Key::Up);
    EXPECT_EQ(taken(), "line3 line2 ");
    list.Clear();
    pressKey(form, Key::Enter);
    EXPECT_EQ(taken(), "");
    doubleClickLine(list, -1);
    EXPECT_EQ(taken(), "open-1 ");
}

TEST_F(GesturesControls, SeveralLinesAreSelectedAsInEverySuchList) {
    list.multiSelect(true);
    clickLine(list, 1);
    clickLine(list, 3, {.control = false, .shift = true});
    EXPECT_EQ(selected(), "bcd");
    clickLine(list, 2, {.control = true, .shift = false});
    EXPECT_EQ(selected(), "bd");
    clickLine(list, 0);
    EXPECT_EQ(selected(), "a");
    mark(list, {1, 3});
    EXPECT_EQ(selected(), "bd");
    EXPECT_EQ(mark(list, {1, 4}), Outcome::Refused);
    EXPECT_EQ(selected(), "bd");
    taken();
    pressKey(form, Key::Enter);
    EXPECT_EQ(taken(), "open3 ");
    EXPECT_EQ(selected(), "bd");
    mark(list, {});
    EXPECT_EQ(selected(), "");
    taken();
    pressKey(form, Key::Enter);
    EXPECT_EQ(taken(), "");
}

TEST_F(GesturesControls, DragOntoAnotherListDropsOntoTheSameOneClicks) {
    ListBox target;
    add(target, "Lst_Cible");
    target.DragDrop = [this](Control& source) { log += "drop:" + source.Name() + " "; };
    EXPECT_EQ(drag(list, target), Outcome::Refused);
    list.MouseDown = [this](const MouseEvent& event) {
        log += "down" + std::to_string(event.button) + " ";
        list.Drag();
    };
    list.multiSelect(true);
    mark(list, {1, 2});
    taken();
    EXPECT_EQ(drag(list, target), Outcome::Done);
    EXPECT_EQ(taken(), "down1 drop:Lst_Lignes ");
    EXPECT_EQ(selected(), "bc");
    EXPECT_EQ(drag(list, list), Outcome::Done);
    EXPECT_EQ(taken(), "down1 line1 ");
    EXPECT_EQ(selected(), "b");
    clickLine(list, 0);
    EXPECT_EQ(taken(), "down1 line0 ");

    // A drag ends with the release: what follows is no drop.
    EXPECT_EQ(rightClick(list), Outcome::Done);
    EXPECT_FALSE(list.endDrag());
    EXPECT_EQ(taken(), "down2 ");
    target.Enabled(false);
    EXPECT_EQ(drag(list, target), Outcome::Refused);
    list.Clear();
    target.Enabled(true);
    EXPECT_EQ(drag(list, target), Outcome::Refused);
    EXPECT_EQ(taken(), "");
}

TEST_F(GesturesControls, DropDownListIsPickedFromNeverTypedIn) {
    ComboBox combo;
    add(combo, "Cbo_Choix");
    combo.dropDownList(true);
    combo.AddItem("OUI");
    combo.AddItem("NON");
    combo.Click = [this] { log += "pick "; };
    EXPECT_EQ(typeText(combo, "OUI"), Outcome::Refused);
    EXPECT_EQ(paste(combo, "OUI"), Outcome::Refused);
    EXPECT_EQ(choose(combo, "Peut-être"), Outcome::Refused);
    EXPECT_EQ(choose(combo, "NON"), Outcome::Done);
    EXPECT_EQ(choose(combo, "NON"), Outcome::Done);
    EXPECT_EQ(taken(), "pick ");
    pressKey(form, Key::Delete);
    pressKey(form, Key::Down);
    EXPECT_EQ(combo.Text(), "NON");
    pressKey(form, Key::Up);
    EXPECT_EQ(combo.Text(), "OUI");

    combo.dropDownList(false);
    EXPECT_EQ(typeText(combo, "…"), Outcome::Done);
    EXPECT_EQ(combo.Text(), "OUI…");
    EXPECT_EQ(combo.ListIndex(), -1);
    pressKey(form, Key::Down);
    EXPECT_EQ(combo.Text(), "OUI…");
}

TEST_F(GesturesControls, AnOptionThatIsSelectedDoesNotClickAgain) {
    OptionButton option;
    add(option, "Opt_Un");
    option.Click = [this] { log += "one "; };
    click(option);
    click(option);
    EXPECT_EQ(taken(), "one ");
}

} // namespace
} // namespace vorandine::widgets
