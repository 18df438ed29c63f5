// The gestures of a scenario: a line of words is one or several of those that widgets/named/ knows
// by name.
#pragma once

#include "apps/scenario/Output.h"
#include "apps/scenario/Words.h"
#include "widgets/named/GesturesByName.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace vorandine::scenario {

class Gestures {
  public:
    // All must outlive this.
    Gestures(widgets::Hand& hand, const widgets::FormStack& forms, Output& output)
        : gestures_(hand, forms), forms_(forms), output_(output) {}

    // Whether lines that begin with `command` are gestures.
    [[nodiscard]] static bool has(const std::string& command);
    // Reads such a line: one step, or several (`retype`, `tabs`, `key`). The steps of the line
    // before have been played. Throws LineError or
    // std::invalid_argument where the words are wrong or name no control.
    void read(const std::string& command, Words words);
    // Whether steps of the line are still to be played. They are played one by one, so that those
    // behind one that opens a form in front go on there, as what a user types does.
    [[nodiscard]] bool pending() const noexcept { return !steps_.empty(); }
    // Plays the next step. Prints "refused …" where a user could not do it; then, and where the
    // field left keeps the focus, the line ends there. Gives what was expected and what was found
    // where the step expects the focus elsewhere. Throws std::invalid_argument, with nothing done,
    // as `read`.
    std::optional<std::string> playStep();

    // A menu has been opened at the pointer.
    void popup(widgets::Menu& menu);

  private:
    widgets::GesturesByName gestures_;
    const widgets::FormStack& forms_;
    Output& output_;

    struct Step {
        std::string command; // of the line, and on whom, as "refused …" tells it
        std::string whom;
        std::string gesture;
        std::vector<std::string> arguments;
        bool bringsFocus = false; // whom is expected to have the focus then
    };
    std::deque<Step> steps_; // of the line that is being played, still to come

    void readKeys(const std::string& command, Words& words);
    void readTabs(const std::string& command, Words& words);
    void readTexts(const std::string& command, Words& words);
    void readOne(const std::string& command, Words& words);
};

} // namespace vorandine::scenario
