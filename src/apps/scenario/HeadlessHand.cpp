// Gestures handed on to the widget layer.
#include "apps/scenario/HeadlessHand.h"

#include "frontends/headless/TextRenderer.h"

namespace vorandine::scenario {

using widgets::Outcome;

Outcome HeadlessHand::focusField(widgets::TextField& field) {
    return widgets::focusField(field);
}

Outcome HeadlessHand::typeText(widgets::TextField& field, const std::string& text) {
    return widgets::typeText(field, text);
}

Outcome HeadlessHand::erase(widgets::TextField& field) {
    return widgets::erase(field);
}

Outcome HeadlessHand::paste(widgets::TextField& field, const std::string& text) {
    return widgets::paste(field, text);
}

Outcome HeadlessHand::pressKey(widgets::Form& form, widgets::Key key) {
    return widgets::pressKey(form, key);
}

Outcome HeadlessHand::click(widgets::CommandButton& button) {
    return widgets::click(button);
}

Outcome HeadlessHand::click(widgets::OptionButton& option) {
    return widgets::click(option);
}

Outcome HeadlessHand::clickLine(widgets::ListBox& list, int line) {
    return widgets::clickLine(list, line);
}

Outcome HeadlessHand::doubleClickLine(widgets::ListBox& list, int line) {
    return widgets::doubleClickLine(list, line);
}

Outcome HeadlessHand::mark(widgets::ListBox& list, const std::vector<int>& lines) {
    return widgets::mark(list, lines);
}

Outcome HeadlessHand::choose(widgets::ComboBox& combo, const std::string& entry) {
    return widgets::choose(combo, entry);
}

Outcome HeadlessHand::scrollTo(widgets::ScrollBar& bar, int value) {
    return widgets::scrollTo(bar, value);
}

Outcome HeadlessHand::showTab(widgets::TabContainer& tabs, int tab) {
    return widgets::showTab(tabs, tab);
}

Outcome HeadlessHand::drag(widgets::ListBox& source, widgets::Control& target) {
    return widgets::drag(source, target);
}

Outcome HeadlessHand::rightClick(widgets::Control& surface) {
    return widgets::rightClick(surface);
}

Outcome HeadlessHand::pick(widgets::Form& form, widgets::Menu& entry) {
    return widgets::pick(form, entry);
}

Outcome HeadlessHand::closeForm(widgets::Form& form) {
    return widgets::closeForm(form);
}

void HeadlessHand::capture(widgets::Form& form, const std::string& name) {
    if (screens_ != nullptr)
        *screens_ << name << '\n' << headless::render(form) << std::flush;
}

} // namespace vorandine::scenario
