// The gestures of a scenario by name: from a line's words to the user's hand.
#pragma once

#include "apps/scenario/FormStack.h"
#include "apps/scenario/Hand.h"
#include "apps/scenario/Output.h"
#include "apps/scenario/Words.h"

#include <string>

namespace vorandine::scenario {

class Gestures {
  public:
    // All must outlive this.
    Gestures(Hand& hand, const FormStack& forms, Output& output)
        : hand_(hand), forms_(forms), output_(output) {}

    // Makes the gesture `command` if there is one of that name; false if not. Prints "refused …"
    // where a user could not make it. Throws LineError, with nothing done, where the words are
    // wrong or name no control.
    bool play(const std::string& command, Words words);

    // A menu has been opened at the pointer.
    void popup(widgets::Menu& menu);

  private:
    Hand& hand_;
    const FormStack& forms_;
    Output& output_;
    widgets::Menu* menu_ = nullptr; // the one that is open

    // One gesture: reads the rest of the words, then acts.
    using Gesture = widgets::Outcome (Gestures::*)(Words&);
    static Gesture find(const std::string& command);

    widgets::Outcome focus(Words& words);
    widgets::Outcome type(Words& words);
    widgets::Outcome erase(Words& words);
    widgets::Outcome paste(Words& words);
    widgets::Outcome key(Words& words);
    widgets::Outcome click(Words& words);
    widgets::Outcome doubleClick(Words& words);
    widgets::Outcome mark(Words& words);
    widgets::Outcome choose(Words& words);
    widgets::Outcome scroll(Words& words);
    widgets::Outcome tab(Words& words);
    widgets::Outcome drag(Words& words);
    widgets::Outcome rightClick(Words& words);
    widgets::Outcome pick(Words& words);
    widgets::Outcome close(Words& words);

    widgets::Control* target(Words& words);
};

} // namespace vorandine::scenario
