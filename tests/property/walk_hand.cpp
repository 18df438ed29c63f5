// The gestures, by kind of control, and the texts.
#include "property/walk_hand.h"

#include <algorithm>

namespace vorandine::control_test {
namespace {

using namespace widgets;

const std::vector<std::string> Texts = {"",
                                        "7",
                                        "7,5",
                                        "1234",
                                        "12345",
                                        "1,234",
                                        "-12,5",
                                        "     ",
                                        ",",
                                        "12/03/2004",
                                        "1/2/5",
                                        "5/7",
                                        "0101",
                                        "010203",
                                        "31/02/2005",
                                        "2001",
                                        "abc",
                                        "Écoutante",
                                        "Nuit \"et\" jour",
                                        "é\u0001\n\tç",
                                        "Manutention",
                                        "01 BEP sanitaire",
                                        "þýü 😀"};

const std::vector<Key> Keys = {Key::Tab, Key::BackTab, Key::Enter,     Key::Space,
                               Key::Up,  Key::Down,    Key::Backspace, Key::Delete};

} // namespace

int WalkHand::below(int end) {
    return static_cast<int>(random_() % static_cast<unsigned long>(end));
}

Outcome WalkHand::touch(Control& control, const std::vector<Control*>& all) {
    if (auto* const combo = dynamic_cast<ComboBox*>(&control); combo != nullptr && below(2) == 0)
        return choose(*combo, combo->List(below(combo->ListCount() + 1)));
    if (auto* const field = dynamic_cast<TextField*>(&control))
        return inField(*field);
    if (auto* const list = dynamic_cast<ListBox*>(&control))
        return inList(*list, all);
    if (auto* const button = dynamic_cast<CommandButton*>(&control))
        return click(*button);
    if (auto* const option = dynamic_cast<OptionButton*>(&control))
        return click(*option);
    if (auto* const bar = dynamic_cast<ScrollBar*>(&control))
        return scrollTo(*bar, below(bar->Max() + 3) - 1);
    auto* const tabs = dynamic_cast<TabContainer*>(&control);
    return tabs != nullptr ? showTab(*tabs, below(4)) : moveFocus(control);
}

Outcome WalkHand::use(Control& control) {
    if (auto* const combo = dynamic_cast<ComboBox*>(&control))
        return choose(*combo, combo->List(below(std::max(1, combo->ListCount()))));
    if (auto* const field = dynamic_cast<TextField*>(&control)) {
        // Few days, so that they meet.
        const bool date = control.Name().find("Dat") != std::string::npos;
        return paste(*field, date ? "0" + std::to_string(1 + below(9)) + "/03/200" +
                                        std::to_string(below(7))
                                  : std::to_string(below(30)) + ",5");
    }
    if (auto* const list = dynamic_cast<ListBox*>(&control))
        return doubleClickLine(*list, below(list->ListCount() + 1));
    return click(dynamic_cast<CommandButton&>(control));
}

Outcome WalkHand::key(Form& form, int escapes) {
    const int chosen = below(60);
    if (chosen == 0)
        return closeForm(form);
    return pressKey(form, chosen < escapes ? Key::Escape : any(Keys));
}

Outcome WalkHand::inField(TextField& field) {
    switch (below(4)) {
    case 0:
        return focusField(field);
    case 1:
        return typeText(field, any(Texts));
    case 2:
        return erase(field);
    default:
        return paste(field, any(Texts));
    }
}

Outcome WalkHand::inList(ListBox& list, const std::vector<Control*>& all) {
    const int line = below(list.ListCount() + 2) - 1;
    switch (below(4)) {
    case 0:
        return doubleClickLine(list, line);
    case 1:
        return list.multiSelect() ? mark(list, {line, below(list.ListCount() + 1)})
                                  : clickLine(list, line);
    case 2:
        return drag(list, *any(all));
    default:
        return clickLine(list, line, {below(2) == 0, below(3) == 0});
    }
}

} // namespace vorandine::control_test
