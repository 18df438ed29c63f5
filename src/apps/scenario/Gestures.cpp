// A line is read whole before any of it is played.
#include "apps/scenario/Gestures.h"

#include <utility>

namespace vorandine::scenario {

using widgets::Outcome;

bool Gestures::has(const std::string& command) {
    return command == "retype" || command == "tabs" || widgets::GesturesByName::has(command);
}

void Gestures::read(const std::string& command, Words words) {
    output_.beginGesture();
    if (command == "key")
        readKeys(command, words);
    else if (command == "tabs")
        readTabs(command, words);
    else if (command == "retype")
        readTexts(command, words);
    else
        readOne(command, words);
}

void Gestures::readKeys(const std::string& command, Words& words) {
    std::deque<Step> steps;
    do {
        const std::string name = words.word("the key");
        static_cast<void>(widgets::keyNamed(name)); // there must be one
        steps.push_back({command, name, "key", {name}});
    } while (!words.atEnd());
    steps_ = std::move(steps);
}

void Gestures::readTabs(const std::string& command, Words& words) {
    std::deque<Step> steps;
    do {
        const std::string name = words.word("the control");
        static_cast<void>(forms_.target(name)); // there must be one
        steps.push_back({command, name, "key", {"Tab"}, true});
    } while (!words.atEnd());
    steps_ = std::move(steps);
}

void Gestures::readTexts(const std::string& command, Words& words) {
    std::deque<Step> steps;
    do {
        const std::string name = words.word("the control");
        const std::string text = words.word("the text");
        static_cast<void>(forms_.target(name)); // there must be one
        steps.push_back({command, name, "erase", {name}});
        steps.push_back({command, name, "type", {name, text}});
    } while (!words.atEnd());
    steps_ = std::move(steps);
}

void Gestures::readOne(const std::string& command, Words& words) {
    const bool ofForm = command == "close" && forms_.front() != nullptr;
    std::string whom = ofForm ? forms_.front()->Name() : std::string();
    std::vector<std::string> arguments = words.words();
    if (!arguments.empty())
        whom = arguments.front();
    steps_.push_back({command, std::move(whom), command, std::move(arguments)});
}

std::optional<std::string> Gestures::playStep() {
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    const Outcome outcome = gestures_.make(step.gesture, step.arguments);
    if (step.gesture == "rightclick" && outcome == Outcome::Done && !gestures_.menuOpen())
        output_.event("popup none");
    if (outcome == Outcome::Refused)
        output_.event("refused " + step.command + (step.whom.empty() ? "" : " " + step.whom));
    if (outcome != Outcome::Done)
        steps_.clear();
    const widgets::Control* const focus =
        step.bringsFocus && !forms_.empty() ? forms_.front()->focus() : nullptr;
    const std::string found = focus != nullptr ? focus->fullName() : std::string();
    if (!step.bringsFocus || found == step.whom)
        return std::nullopt;
    return "expected the focus at " + toText(step.whom) + ", found it at " + toText(found);
}

void Gestures::popup(widgets::Menu& menu) {
    gestures_.opened(menu);
    output_.event("popup " + menu.Name());
}

} // namespace vorandine::scenario
