// The gestures of a scenario by name: from a line's words to the user's hand.
#pragma once

#include "apps/scenario/FormStack.h"
#include "apps/scenario/Hand.h"
#include "apps/scenario/Output.h"
#include "apps/scenario/Words.h"

#include <deque>
#include <optional>
#include <string>

namespace vorandine::scenario {

class Gestures {
  public:
    // All must outlive this.
    Gestures(Hand& hand, const FormStack& forms, Output& output)
        : hand_(hand), forms_(forms), output_(output) {}

    // Whether lines that begin with `command` are gestures.
    [[nodiscard]] static bool has(const std::string& command);
    // Reads such a line: one step, or several (`retype`, `tabs`, `key`). The steps of the line
    // before have been played. Throws LineError where the words are wrong or name no control.
    void read(const std::string& command, Words words);
    // Whether steps of the line are still to be played. They are played one by one, so that those
    // behind one that opens a form in front go on there, as what a user types does.
    [[nodiscard]] bool pending() const noexcept { return !steps_.empty(); }
    // Plays the next step. Prints "refused …" where a user could not do it; then, and where the
    // field left keeps the focus, the line ends there. Gives what was expected and what was found
    // where the step expects the focus elsewhere. Throws LineError, with nothing done, as `read`.
    std::optional<std::string> playStep();

    // A menu has been opened at the pointer.
    void popup(widgets::Menu& menu);

  private:
    Hand& hand_;
    const FormStack& forms_;
    Output& output_;
    widgets::Menu* menu_ = nullptr; // the one that is open

    // One gesture: reads the rest of the words, then acts.
    using Gesture = widgets::Outcome (Gestures::*)(Words&);
    struct Step {
        std::string command; // of the line, and on whom, as "refused …" tells it
        std::string whom;
        Gesture gesture = nullptr;
        std::string words;
        bool bringsFocus = false; // whom is expected to have the focus then
    };
    std::deque<Step> steps_; // of the line that is being played, still to come

    static Gesture find(const std::string& command);
    void readKeys(const std::string& command, Words& words);
    void readTabs(const std::string& command, Words& words);
    void readTexts(const std::string& command, Words& words);
    void readOne(const std::string& command, Words& words);

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
