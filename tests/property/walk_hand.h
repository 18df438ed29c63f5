// A hand that does anything with any control of any form, at random, as the gestures of a user.
#pragma once

#include "widgets/Gestures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace vorandine::control_test {

using namespace widgets;

inline const std::vector<std::string> Texts = {"",
                                               "7,5",
                                               "12345",
                                               "-12,5",
                                               "     ",
                                               ",",
                                               "12/03/2004",
                                               "1/2/5",
                                               "010203",
                                               "31/02/2005",
                                               "Écoutante",
                                               "Nuit \"et\" jour",
                                               "é\u0001\n\tç",
                                               "Manutention",
                                               "01 BEP sanitaire",
                                               "þýü 😀"};

inline const std::vector<Key> Keys = {Key::Tab, Key::BackTab, Key::Enter,     Key::Space,
                                      Key::Up,  Key::Down,    Key::Backspace, Key::Delete};

class WalkHand {
  public:
    explicit WalkHand(unsigned long seed) : random_(seed) {}

    // From 0 to `end` - 1.
    int below(int end) { return static_cast<int>(random_() % static_cast<unsigned long>(end)); }
    template <typename Item>
    const Item& any(const std::vector<Item>& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }

    // Whatever the kind of control makes possible, with texts, lines and entries that fit or do
    // not. A drag goes to one of `all`.
    Outcome touch(Control& control, const std::vector<Control*>& all) {
        if (auto* const combo = dynamic_cast<ComboBox*>(&control);
            combo != nullptr && below(2) == 0)
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
    // What someone does with it who means to get on: chance alone seldom gets there.
    Outcome use(Control& control) {
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
    // A key where the focus is; Escape so many times out of 60, the close button once.
    Outcome key(Form& form, int escapes) {
        const int chosen = below(60);
        if (chosen == 0)
            return closeForm(form);
        return pressKey(form, chosen < escapes ? Key::Escape : any(Keys));
    }

  private:
    std::mt19937_64 random_;

    Outcome inField(TextField& field) {
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
    Outcome inList(ListBox& list, const std::vector<Control*>& all) {
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
};

inline unsigned long fromEnvironment(const char* name, unsigned long otherwise) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::strtoul(text, nullptr, 10) : otherwise;
}

// Walks so many steps, unless told otherwise, or until one fails.
template <typename Walk, typename... Arguments>
void walkOn(unsigned long otherwise, const Arguments&... arguments) {
    const unsigned long steps = fromEnvironment("VORANDINE_WALK_STEPS", otherwise);
    const unsigned long seed = fromEnvironment("VORANDINE_WALK_SEED", 20060615);
    std::cout << "VORANDINE_WALK_SEED=" << seed << " VORANDINE_WALK_STEPS=" << steps << '\n';
    Walk walk(seed, arguments...);
    for (unsigned long i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
        walk.step();
        if (testing::Test::HasFailure())
            ADD_FAILURE() << "VORANDINE_WALK_SEED=" << seed << ", step " << i << ": "
                          << walk.last();
    }
    if (!testing::Test::HasFailure())
        walk.checkReach();
}

} // namespace vorandine::control_test
