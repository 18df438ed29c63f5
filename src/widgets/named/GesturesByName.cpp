// Each gesture finds its control and hands it to the hand.
#include "widgets/named/GesturesByName.h"

#include "widgets/FormTabs.h"
#include "widgets/Kinds.h"

#include <charconv>
#include <map>
#include <stdexcept>

namespace vorandine::widgets {
namespace {

// Runs `act` on a control of the right kind. Any other kind, or a form in front of the control
// (null), is what a user could not do.
template <typename Wanted, typename Act>
Outcome on(Control* control, Act act) {
    Wanted* const target = as<Wanted>(control);
    return target != nullptr ? act(*target) : Outcome::Refused;
}

int wholeNumber(const std::string& text, const char* what) {
    int value = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stop != end)
        throw std::invalid_argument(std::string(what) + " is no whole number: " + text);
    return value;
}

} // namespace

Key keyNamed(const std::string& name) {
    static const std::map<std::string, Key> keys{
        {"Tab", Key::Tab},       {"BackTab", Key::BackTab},     {"Enter", Key::Enter},
        {"Escape", Key::Escape}, {"Space", Key::Space},         {"Up", Key::Up},
        {"Down", Key::Down},     {"Backspace", Key::Backspace}, {"Delete", Key::Delete},
    };
    const auto found = keys.find(name);
    if (found == keys.end())
        throw std::invalid_argument("no key is named " + name);
    return found->second;
}

// The arguments, taken one by one; `what` names one where it is missing or wrong.
class GesturesByName::Arguments {
  public:
    explicit Arguments(const std::vector<std::string>& all) : next_(all.begin()), end_(all.end()) {}

    [[nodiscard]] bool atEnd() const noexcept { return next_ == end_; }
    const std::string& text(const char* what) {
        if (atEnd())
            throw std::invalid_argument(std::string(what) + " is missing");
        return *next_++;
    }
    int number(const char* what) { return wholeNumber(text(what), what); }
    std::vector<int> numbers(const char* what) {
        std::vector<int> all;
        while (!atEnd())
            all.push_back(number(what));
        return all;
    }
    void end() const {
        if (!atEnd())
            throw std::invalid_argument("there is more than the gesture takes: " + *next_);
    }

  private:
    std::vector<std::string>::const_iterator next_;
    std::vector<std::string>::const_iterator end_;
};

GesturesByName::Gesture GesturesByName::find(const std::string& gesture) {
    static const std::map<std::string, Gesture> gestures{
        {"focus", &GesturesByName::focus},
        {"type", &GesturesByName::type},
        {"erase", &GesturesByName::erase},
        {"paste", &GesturesByName::paste},
        {"key", &GesturesByName::key},
        {"click", &GesturesByName::click},
        {"dblclick", &GesturesByName::doubleClick},
        {"mark", &GesturesByName::mark},
        {"choose", &GesturesByName::choose},
        {"scroll", &GesturesByName::scroll},
        {"tab", &GesturesByName::tab},
        {"drag", &GesturesByName::drag},
        {"rightclick", &GesturesByName::rightClick},
        {"menu", &GesturesByName::pick},
        {"close", &GesturesByName::close},
    };
    const auto found = gestures.find(gesture);
    return found == gestures.end() ? nullptr : found->second;
}

bool GesturesByName::has(const std::string& gesture) {
    return find(gesture) != nullptr;
}

Outcome GesturesByName::make(const std::string& gesture,
                             const std::vector<std::string>& arguments) {
    const Gesture made = find(gesture);
    if (made == nullptr)
        throw std::invalid_argument("no gesture is named " + gesture);
    if (gesture != "menu")
        menu_ = nullptr;
    Arguments taken(arguments);
    return (this->*made)(taken);
}

Control* GesturesByName::target(Arguments& arguments) {
    return forms_.target(arguments.text("the control"));
}

Outcome GesturesByName::focus(Arguments& arguments) {
    Control* const control = target(arguments);
    arguments.end();
    return on<TextField>(control, [&](auto& field) { return hand_.focusField(field); });
}

Outcome GesturesByName::type(Arguments& arguments) {
    Control* const control = target(arguments);
    const std::string& text = arguments.text("the text");
    arguments.end();
    return on<TextField>(control, [&](auto& field) { return hand_.typeText(field, text); });
}

Outcome GesturesByName::erase(Arguments& arguments) {
    Control* const control = target(arguments);
    arguments.end();
    return on<TextField>(control, [&](auto& field) { return hand_.erase(field); });
}

Outcome GesturesByName::paste(Arguments& arguments) {
    Control* const control = target(arguments);
    const std::string& text = arguments.text("the text");
    arguments.end();
    return on<TextField>(control, [&](auto& field) { return hand_.paste(field, text); });
}

Outcome GesturesByName::key(Arguments& arguments) {
    const Key key = keyNamed(arguments.text("the key"));
    arguments.end();
    return forms_.empty() ? Outcome::Refused : hand_.pressKey(*forms_.front(), key);
}

Outcome GesturesByName::click(Arguments& arguments) {
    Control* const control = target(arguments);
    if (!arguments.atEnd()) {
        const int line = arguments.number("the line");
        arguments.end();
        return on<ListBox>(control, [&](auto& list) { return hand_.clickLine(list, line); });
    }
    if (auto* const option = as<OptionButton>(control))
        return hand_.click(*option);
    return on<CommandButton>(control, [&](auto& button) { return hand_.click(button); });
}

Outcome GesturesByName::doubleClick(Arguments& arguments) {
    Control* const control = target(arguments);
    const int line = arguments.number("the line");
    arguments.end();
    return on<ListBox>(control, [&](auto& list) { return hand_.doubleClickLine(list, line); });
}

Outcome GesturesByName::mark(Arguments& arguments) {
    Control* const control = target(arguments);
    const std::vector<int> lines = arguments.numbers("a line");
    return on<ListBox>(control, [&](auto& list) { return hand_.mark(list, lines); });
}

Outcome GesturesByName::choose(Arguments& arguments) {
    Control* const control = target(arguments);
    const std::string& entry = arguments.text("the entry");
    arguments.end();
    return on<ComboBox>(control, [&](auto& combo) { return hand_.choose(combo, entry); });
}

Outcome GesturesByName::scroll(Arguments& arguments) {
    Control* const control = target(arguments);
    const int value = arguments.number("the value");
    arguments.end();
    return on<ScrollBar>(control, [&](auto& bar) { return hand_.scrollTo(bar, value); });
}

Outcome GesturesByName::tab(Arguments& arguments) {
    const int tab = arguments.number("the tab");
    arguments.end();
    TabContainer* const tabs = forms_.empty() ? nullptr : tabsOf(*forms_.front());
    return tabs != nullptr ? hand_.showTab(*tabs, tab) : Outcome::Refused;
}

Outcome GesturesByName::drag(Arguments& arguments) {
    Control* const source = target(arguments);
    Control* const onto = target(arguments);
    arguments.end();
    return on<ListBox>(source, [&](auto& list) {
        return onto != nullptr ? hand_.drag(list, *onto) : Outcome::Refused;
    });
}

Outcome GesturesByName::rightClick(Arguments& arguments) {
    Control* const control = target(arguments);
    arguments.end();
    return control != nullptr ? hand_.rightClick(*control) : Outcome::Refused;
}

Outcome GesturesByName::pick(Arguments& arguments) {
    const std::string& name = arguments.text("the menu entry");
    arguments.end();
    if (menu_ == nullptr)
        return Outcome::Refused;
    for (Menu* const entry : menu_->entries())
        if (entry->Visible() && entry->Name() == name) {
            menu_ = nullptr;
            return hand_.pick(*forms_.front(), *entry);
        }
    return Outcome::Refused;
}

Outcome GesturesByName::close(Arguments& arguments) {
    arguments.end();
    return forms_.empty() ? Outcome::Refused : hand_.closeForm(*forms_.front());
}

} // namespace vorandine::widgets
