// The hand that needs no window: each gesture is the widget layer's own.
#pragma once

#include "apps/scenario/Hand.h"
#include "frontends/headless/HeadlessWorld.h"

#include <ostream>
#include <utility>

namespace vorandine::scenario {

class HeadlessHand : public Hand {
  public:
    // Where `screens` is given, captures are drawn there as text; it must outlive the hand.
    HeadlessHand(headless::Callbacks callbacks, std::ostream* screens)
        : world_(std::move(callbacks)), screens_(screens) {}

    [[nodiscard]] widgets::World& world() override { return world_; }
    void show(widgets::Form& /*form*/) override {}
    void hide(widgets::Form& /*form*/) override {}

    widgets::Outcome focusField(widgets::TextField& field) override;
    widgets::Outcome typeText(widgets::TextField& field, const std::string& text) override;
    widgets::Outcome erase(widgets::TextField& field) override;
    widgets::Outcome paste(widgets::TextField& field, const std::string& text) override;
    widgets::Outcome pressKey(widgets::Form& form, widgets::Key key) override;
    widgets::Outcome click(widgets::CommandButton& button) override;
    widgets::Outcome click(widgets::OptionButton& option) override;
    widgets::Outcome clickLine(widgets::ListBox& list, int line) override;
    widgets::Outcome doubleClickLine(widgets::ListBox& list, int line) override;
    widgets::Outcome mark(widgets::ListBox& list, const std::vector<int>& lines) override;
    widgets::Outcome choose(widgets::ComboBox& combo, const std::string& entry) override;
    widgets::Outcome scrollTo(widgets::ScrollBar& bar, int value) override;
    widgets::Outcome showTab(widgets::TabContainer& tabs, int tab) override;
    widgets::Outcome drag(widgets::ListBox& source, widgets::Control& target) override;
    widgets::Outcome rightClick(widgets::Control& surface) override;
    widgets::Outcome pick(widgets::Form& form, widgets::Menu& entry) override;
    widgets::Outcome closeForm(widgets::Form& form) override;

    void capture(widgets::Form& form, const std::string& name) override;

  private:
    headless::HeadlessWorld world_;
    std::ostream* screens_;
};

} // namespace vorandine::scenario
