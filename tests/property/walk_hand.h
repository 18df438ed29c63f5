// A hand that does anything with any control of any form, at random, as the gestures of a user.
#pragma once

#include "widgets/Gestures.h"

#include <random>
#include <string>
#include <vector>

namespace vorandine::control_test {

class WalkHand {
  public:
    explicit WalkHand(unsigned long seed) : random_(seed) {}

    // From 0 to `end` - 1.
    int below(int end);
    template <typename Item>
    const Item& any(const std::vector<Item>& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(items.size())))];
    }

    // Whatever the kind of control makes possible, with texts, lines and entries that fit or do
    // not. A drag goes to one of `all`.
    widgets::Outcome touch(widgets::Control& control, const std::vector<widgets::Control*>& all);
    // What someone does with it who means to get on: chance alone seldom gets there.
    widgets::Outcome use(widgets::Control& control);
    // A key where the focus is; Escape so many times out of 60, the close button once.
    widgets::Outcome key(widgets::Form& form, int escapes);

  private:
    std::mt19937_64 random_;

    widgets::Outcome inField(widgets::TextField& field);
    widgets::Outcome inList(widgets::ListBox& list, const std::vector<widgets::Control*>& all);
};

} // namespace vorandine::control_test
