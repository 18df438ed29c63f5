// The gestures by name, with the names of what they are made on: for who has no pointers to the
// controls and sends words, such as the lines of a scenario.
#pragma once

#include "widgets/named/FormStack.h"
#include "widgets/named/Hand.h"

#include <string>
#include <vector>

namespace vorandine::widgets {

// The key of that name: Tab, BackTab, Enter, Escape, Space, Up, Down, Backspace, Delete. Throws
// std::invalid_argument if there is none.
[[nodiscard]] Key keyNamed(const std::string& name);

class GesturesByName {
  public:
    // Both must outlive this.
    GesturesByName(Hand& hand, const FormStack& forms) : hand_(hand), forms_(forms) {}

    [[nodiscard]] static bool has(const std::string& gesture);

    // Makes a gesture on the form in front:
    //     focus FIELD, type FIELD TEXT, erase FIELD, paste FIELD TEXT, choose COMBO ENTRY,
    //     click CONTROL, click LIST LINE, dblclick LIST LINE, mark LIST LINE..., key NAME,
    //     scroll BAR VALUE, tab NUMBER, drag LIST CONTROL, rightclick CONTROL, menu ENTRY, close
    // Lines and tabs count from 0. Refused also where the control is of a kind that has no such
    // gesture, where it stands in a form behind, and where no form or no menu is open. Throws
    // std::invalid_argument, with nothing done, where there is no gesture, control or key of that
    // name, and where arguments are missing, too many or no whole numbers.
    Outcome make(const std::string& gesture, const std::vector<std::string>& arguments);

    // The front end has opened a menu at the pointer. `menu` picks from it; any other gesture
    // closes it.
    void opened(Menu& menu) noexcept { menu_ = &menu; }
    [[nodiscard]] bool menuOpen() const noexcept { return menu_ != nullptr; }

  private:
    Hand& hand_;
    const FormStack& forms_;
    Menu* menu_ = nullptr; // the one that is open

    class Arguments;
    // Each takes all its arguments before it does anything.
    using Gesture = Outcome (GesturesByName::*)(Arguments&);
    static Gesture find(const std::string& gesture);

    Outcome focus(Arguments& arguments);
    Outcome type(Arguments& arguments);
    Outcome erase(Arguments& arguments);
    Outcome paste(Arguments& arguments);
    Outcome key(Arguments& arguments);
    Outcome click(Arguments& arguments);
    Outcome doubleClick(Arguments& arguments);
    Outcome mark(Arguments& arguments);
    Outcome choose(Arguments& arguments);
    Outcome scroll(Arguments& arguments);
    Outcome tab(Arguments& arguments);
    Outcome drag(Arguments& arguments);
    Outcome rightClick(Arguments& arguments);
    Outcome pick(Arguments& arguments);
    Outcome close(Arguments& arguments);

    Control* target(Arguments& arguments);
};

} // namespace vorandine::widgets
