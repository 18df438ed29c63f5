// The front end that needs no window.
#pragma once

#include "apps/scenario/FrontEnd.h"
#include "frontends/headless/HeadlessWorld.h"

#include <ostream>
#include <utility>

namespace vorandine::scenario {

class HeadlessFrontEnd : public FrontEnd {
  public:
    // Where `screens` is given, captures are drawn there as text; it must outlive this.
    HeadlessFrontEnd(headless::Callbacks callbacks, std::ostream* screens)
        : world_(std::move(callbacks)), screens_(screens) {}

    [[nodiscard]] widgets::Hand& hand() override { return hand_; }
    [[nodiscard]] widgets::World& world() override { return world_; }
    void show(widgets::Form& /*form*/) override {}
    void hide(widgets::Form& /*form*/) override {}
    void leave() override {}
    void enter() override {}
    void capture(widgets::Form& form, const std::string& name) override;

  private:
    widgets::DirectHand hand_;
    headless::HeadlessWorld world_;
    std::ostream* screens_;
};

} // namespace vorandine::scenario
