// A front end as the player uses it: the hand that makes the gestures, and the world around it, so
// that a scenario is played alike on every one.
#pragma once

#include "widgets/World.h"
#include "widgets/named/Hand.h"

#include <string>

namespace vorandine::scenario {

class FrontEnd {
  public:
    FrontEnd() = default;
    FrontEnd(const FrontEnd&) = delete;
    FrontEnd& operator=(const FrontEnd&) = delete;
    virtual ~FrontEnd() = default;

    // The hand, and the world that the forms worked on belong to; both live as long as this.
    [[nodiscard]] virtual widgets::Hand& hand() = 0;
    [[nodiscard]] virtual widgets::World& world() = 0;

    // The host's form was made; it is about to be destroyed.
    virtual void show(widgets::Form& form) = 0;
    virtual void hide(widgets::Form& form) = 0;

    // The person goes to another seat, and comes back to this one.
    virtual void leave() = 0;
    virtual void enter() = 0;

    // A picture of the form, under the name that the scenario gives it.
    virtual void capture(widgets::Form& form, const std::string& name) = 0;
};

} // namespace vorandine::scenario
