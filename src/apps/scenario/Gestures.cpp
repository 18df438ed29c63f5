// Each gesture reads its whole line before it does anything.
#include "apps/scenario/Gestures.h"
#include "widgets/FormTabs.h"
#include "widgets/Kinds.h"

#include <map>
#include <utility>

namespace vorandine::scenario {
namespace {

using widgets::Outcome;

// Runs `act` on a control of the right kind. Any other kind, or a form in front of the control
// (null), is what a user could not do.
template <typename Kind, typename Act>
Outcome on(widgets::Control* control, Act act) {
    auto* const target = widgets::as<Kind>(control);
    return target != nullptr ? act(*target) : Outcome::Refused;
}

widgets::Key keyNamed(const std::string& name) {
    static const std::map<std::string, widgets::Key> keys{
        {"Tab", widgets::Key::Tab},       {"BackTab", widgets::Key::BackTab},
        {"Enter", widgets::Key::Enter},   {"Escape", widgets::Key::Escape},
        {"Space", widgets::Key::Space},   {"Up", widgets::Key::Up},
        {"Down", widgets::Key::Down},     {"Backspace", widgets::Key::Backspace},
        {"Delete", widgets::Key::Delete},
    };
    const auto found = keys.find(name);
    if (found == keys.end())
        throw LineError("no key is named " + name);
    return found->second;
}

} // namespace

Gestures::Gesture Gestures::find(const std::string& command) {
    static const std::map<std::string, Gesture> gestures{
        {"focus", &Gestures::focus},
        {"type", &Gestures::type},
        {"erase", &Gestures::erase},
        {"paste", &Gestures::paste},
        {"key", &Gestures::key},
        {"click", &Gestures::click},
        {"dblclick", &Gestures::doubleClick},
        {"mark", &Gestures::mark},
        {"choose", &Gestures::choose},
        {"scroll", &Gestures::scroll},
        {"tab", &Gestures::tab},
        {"drag", &Gestures::drag},
        {"rightclick", &Gestures::rightClick},
        {"menu", &Gestures::pick},
        {"close", &Gestures::close},
    };
    const auto found = gestures.find(command);
    return found == gestures.end() ? nullptr : found->second;
}

bool Gestures::has(const std::string& command) {
    return command == "retype" || command == "tabs" || find(command) != nullptr;
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
        keyNamed(name);
        steps.push_back({command, name, &Gestures::key, name});
    } while (!words.atEnd());
    steps_ = std::move(steps);
}

void Gestures::readTabs(const std::string& command, Words& words) {
    std::deque<Step> steps;
    do {
        const std::string name = words.word("the control");
        static_cast<void>(forms_.target(name)); // there must be one
        steps.push_back({command, name, &Gestures::key, "Tab", true});
    } while (!words.atEnd());
    steps_ = std::move(steps);
}

void Gestures::readTexts(const std::string& command, Words& words) {
    std::deque<Step> steps;
    do {
        const std::string name = words.word("the control");
        const std::string text = words.word("the text");
        static_cast<void>(forms_.target(name)); // there must be one
        const std::string field = toText(name);
        steps.push_back({command, name, &Gestures::erase, field});
        steps.push_back({command, name, &Gestures::type, field + " " + toText(text)});
    } while (!words.atEnd());
    steps_ = std::move(steps);
}

void Gestures::readOne(const std::string& command, Words& words) {
    const bool ofForm = command == "close" && forms_.front() != nullptr;
    std::string whom = ofForm ? forms_.front()->Name() : std::string();
    if (Words ahead = words; !ahead.atEnd())
        whom = ahead.word("the control");
    steps_.push_back({command, std::move(whom), find(command), std::string(words.rest())});
}

std::optional<std::string> Gestures::playStep() {
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    if (step.command != "menu")
        menu_ = nullptr;
    Words words(step.words);
    const Outcome outcome = (this->*step.gesture)(words);
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
    menu_ = &menu;
    output_.event("popup " + menu.Name());
}

widgets::Control* Gestures::target(Words& words) {
    return forms_.target(words.word("the control"));
}

Outcome Gestures::focus(Words& words) {
    widgets::Control* const control = target(words);
    words.end();
    return on<widgets::TextField>(control, [&](auto& field) { return hand_.focusField(field); });
}

Outcome Gestures::type(Words& words) {
    widgets::Control* const control = target(words);
    const std::string text = words.word("the text");
    words.end();
    return on<widgets::TextField>(control,
                                  [&](auto& field) { return hand_.typeText(field, text); });
}

Outcome Gestures::erase(Words& words) {
    widgets::Control* const control = target(words);
    words.end();
    return on<widgets::TextField>(control, [&](auto& field) { return hand_.erase(field); });
}

Outcome Gestures::paste(Words& words) {
    widgets::Control* const control = target(words);
    const std::string text = words.word("the text");
    words.end();
    return on<widgets::TextField>(control, [&](auto& field) { return hand_.paste(field, text); });
}

Outcome Gestures::key(Words& words) {
    const widgets::Key key = keyNamed(words.word("the key"));
    words.end();
    return forms_.empty() ? Outcome::Refused : hand_.pressKey(*forms_.front(), key);
}

Outcome Gestures::click(Words& words) {
    widgets::Control* const control = target(words);
    if (!words.atEnd()) {
        const int line = words.number("the line");
        words.end();
        return on<widgets::ListBox>(control,
                                    [&](auto& list) { return hand_.clickLine(list, line); });
    }
    if (auto* const option = widgets::as<widgets::OptionButton>(control))
        return hand_.click(*option);
    return on<widgets::CommandButton>(control, [&](auto& button) { return hand_.click(button); });
}

Outcome Gestures::doubleClick(Words& words) {
    widgets::Control* const control = target(words);
    const int line = words.number("the line");
    words.end();
    return on<widgets::ListBox>(control,
                                [&](auto& list) { return hand_.doubleClickLine(list, line); });
}

Outcome Gestures::mark(Words& words) {
    widgets::Control* const control = target(words);
    const std::vector<int> lines = words.numbers("a line");
    return on<widgets::ListBox>(control, [&](auto& list) { return hand_.mark(list, lines); });
}

Outcome Gestures::choose(Words& words) {
    widgets::Control* const control = target(words);
    const std::string entry = words.word("the entry");
    words.end();
    return on<widgets::ComboBox>(control, [&](auto& combo) { return hand_.choose(combo, entry); });
}

Outcome Gestures::scroll(Words& words) {
    widgets::Control* const control = target(words);
    const int value = words.number("the value");
    words.end();
    return on<widgets::ScrollBar>(control, [&](auto& bar) { return hand_.scrollTo(bar, value); });
}

Outcome Gestures::tab(Words& words) {
    const int tab = words.number("the tab");
    words.end();
    widgets::TabContainer* const tabs = forms_.empty() ? nullptr : widgets::tabsOf(*forms_.front());
    return tabs != nullptr ? hand_.showTab(*tabs, tab) : Outcome::Refused;
}

Outcome Gestures::drag(Words& words) {
    widgets::Control* const source = target(words);
    widgets::Control* const onto = target(words);
    words.end();
    return on<widgets::ListBox>(source, [&](auto& list) {
        return onto != nullptr ? hand_.drag(list, *onto) : Outcome::Refused;
    });
}

Outcome Gestures::rightClick(Words& words) {
    widgets::Control* const control = target(words);
    words.end();
    const Outcome outcome = control != nullptr ? hand_.rightClick(*control) : Outcome::Refused;
    if (outcome == Outcome::Done && menu_ == nullptr)
        output_.event("popup none");
    return outcome;
}

Outcome Gestures::pick(Words& words) {
    const std::string name = words.word("the menu entry");
    words.end();
    if (menu_ == nullptr)
        return Outcome::Refused;
    for (widgets::Menu* const entry : menu_->entries())
        if (entry->Visible() && entry->Name() == name) {
            menu_ = nullptr;
            return hand_.pick(*forms_.front(), *entry);
        }
    return Outcome::Refused;
}

Outcome Gestures::close(Words& words) {
    words.end();
    return forms_.empty() ? Outcome::Refused : hand_.closeForm(*forms_.front());
}

} // namespace vorandine::scenario
