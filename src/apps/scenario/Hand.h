// The user's hand: one function a gesture, so that a scenario is played alike on every front end.
// The headless hand calls the widget layer; a hand with windows sends real events.
#pragma once

#include "widgets/Gestures.h"
#include "widgets/World.h"

#include <string>
#include <vector>

namespace vorandine::scenario {

// All gestures give what widgets/Gestures.h says of theirs, and throw nothing.
class Hand {
  public:
    Hand() = default;
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;
    virtual ~Hand() = default;

    // The world that the forms worked on belong to; lives as long as the hand.
    [[nodiscard]] virtual widgets::World& world() = 0;

    // The host's form was made; it is about to be destroyed.
    virtual void show(widgets::Form& form) = 0;
    virtual void hide(widgets::Form& form) = 0;

    virtual widgets::Outcome focusField(widgets::TextField& field) = 0;
    virtual widgets::Outcome typeText(widgets::TextField& field, const std::string& text) = 0;
    virtual widgets::Outcome erase(widgets::TextField& field) = 0;
    virtual widgets::Outcome paste(widgets::TextField& field, const std::string& text) = 0;
    virtual widgets::Outcome pressKey(widgets::Form& form, widgets::Key key) = 0;
    virtual widgets::Outcome click(widgets::CommandButton& button) = 0;
    virtual widgets::Outcome click(widgets::OptionButton& option) = 0;
    virtual widgets::Outcome clickLine(widgets::ListBox& list, int line) = 0;
    virtual widgets::Outcome doubleClickLine(widgets::ListBox& list, int line) = 0;
    virtual widgets::Outcome mark(widgets::ListBox& list, const std::vector<int>& lines) = 0;
    virtual widgets::Outcome choose(widgets::ComboBox& combo, const std::string& entry) = 0;
    virtual widgets::Outcome scrollTo(widgets::ScrollBar& bar, int value) = 0;
    virtual widgets::Outcome showTab(widgets::TabContainer& tabs, int tab) = 0;
    virtual widgets::Outcome drag(widgets::ListBox& source, widgets::Control& target) = 0;
    virtual widgets::Outcome rightClick(widgets::Control& surface) = 0;
    virtual widgets::Outcome pick(widgets::Form& form, widgets::Menu& entry) = 0;
    virtual widgets::Outcome closeForm(widgets::Form& form) = 0;

    // A picture of the form, under the name that the scenario gives it.
    virtual void capture(widgets::Form& form, const std::string& name) = 0;
};

} // namespace vorandine::scenario
