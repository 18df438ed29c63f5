// Gestures handed on.
#include "widgets/named/Hand.h"

namespace vorandine::widgets {

Outcome DirectHand::focusField(TextField& field) {
    return widgets::focusField(field);
}

Outcome DirectHand::typeText(TextField& field, const std::string& text) {
    return widgets::typeText(field, text);
}

Outcome DirectHand::erase(TextField& field) {
    return widgets::erase(field);
}

Outcome DirectHand::paste(TextField& field, const std::string& text) {
    return widgets::paste(field, text);
}

Outcome DirectHand::pressKey(Form& form, Key key) {
    return widgets::pressKey(form, key);
}

Outcome DirectHand::click(CommandButton& button) {
    return widgets::click(button);
}

Outcome DirectHand::click(OptionButton& option) {
    return widgets::click(option);
}

Outcome DirectHand::clickLine(ListBox& list, int line) {
    return widgets::clickLine(list, line);
}

Outcome DirectHand::doubleClickLine(ListBox& list, int line) {
    return widgets::doubleClickLine(list, line);
}

Outcome DirectHand::mark(ListBox& list, const std::vector<int>& lines) {
    return widgets::mark(list, lines);
}

Outcome DirectHand::choose(ComboBox& combo, const std::string& entry) {
    return widgets::choose(combo, entry);
}

Outcome DirectHand::scrollTo(ScrollBar& bar, int value) {
    return widgets::scrollTo(bar, value);
}

Outcome DirectHand::showTab(TabContainer& tabs, int tab) {
    return widgets::showTab(tabs, tab);
}

Outcome DirectHand::drag(ListBox& source, Control& target) {
    return widgets::drag(source, target);
}

Outcome DirectHand::rightClick(Control& surface) {
    return widgets::rightClick(surface);
}

Outcome DirectHand::pick(Form& form, Menu& entry) {
    return widgets::pick(form, entry);
}

Outcome DirectHand::closeForm(Form& form) {
    return widgets::closeForm(form);
}

} // namespace vorandine::widgets
