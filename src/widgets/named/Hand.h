// The user's hand: one function a gesture, so that gestures asked for by name reach every front end
// alike. The direct hand calls this layer; one with windows sends real events.
#pragma once

#include "widgets/Gestures.h"

#include <string>
#include <vector>

namespace vorandine::widgets {

// All gestures give what widgets/Gestures.h says of theirs, and throw nothing.
class Hand {
  public:
    Hand() = default;
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;
    virtual ~Hand() = default;

    virtual Outcome focusField(TextField& field) = 0;
    virtual Outcome typeText(TextField& field, const std::string& text) = 0;
    virtual Outcome erase(TextField& field) = 0;
    virtual Outcome paste(TextField& field, const std::string& text) = 0;
    virtual Outcome pressKey(Form& form, Key key) = 0;
    virtual Outcome click(CommandButton& button) = 0;
    virtual Outcome click(OptionButton& option) = 0;
    virtual Outcome clickLine(ListBox& list, int line) = 0;
    virtual Outcome doubleClickLine(ListBox& list, int line) = 0;
    virtual Outcome mark(ListBox& list, const std::vector<int>& lines) = 0;
    virtual Outcome choose(ComboBox& combo, const std::string& entry) = 0;
    virtual Outcome scrollTo(ScrollBar& bar, int value) = 0;
    virtual Outcome showTab(TabContainer& tabs, int tab) = 0;
    virtual Outcome drag(ListBox& source, Control& target) = 0;
    virtual Outcome rightClick(Control& surface) = 0;
    virtual Outcome pick(Form& form, Menu& entry) = 0;
    virtual Outcome closeForm(Form& form) = 0;
};

// Needs no window: each gesture is this layer's own.
class DirectHand : public Hand {
  public:
    Outcome focusField(TextField& field) override;
    Outcome typeText(TextField& field, const std::string& text) override;
    Outcome erase(TextField& field) override;
    Outcome paste(TextField& field, const std::string& text) override;
    Outcome pressKey(Form& form, Key key) override;
    Outcome click(CommandButton& button) override;
    Outcome click(OptionButton& option) override;
    Outcome clickLine(ListBox& list, int line) override;
    Outcome doubleClickLine(ListBox& list, int line) override;
    Outcome mark(ListBox& list, const std::vector<int>& lines) override;
    Outcome choose(ComboBox& combo, const std::string& entry) override;
    Outcome scrollTo(ScrollBar& bar, int value) override;
    Outcome showTab(TabContainer& tabs, int tab) override;
    Outcome drag(ListBox& source, Control& target) override;
    Outcome rightClick(Control& surface) override;
    Outcome pick(Form& form, Menu& entry) override;
    Outcome closeForm(Form& form) override;
};

} // namespace vorandine::widgets
